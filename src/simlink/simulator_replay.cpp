#include "simlink/fsuipc_records.h"
#include "simlink/simulator_recording.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <vector>

namespace quillset {

namespace {

using Bytes = std::vector<std::byte>;

constexpr std::string_view separator = " = ";

struct Answer {
    bool failed = false;
    /// 0 and 1, the answer to an exchange, a process id or a system error.
    std::uint64_t value = 0;
    bool existed = false;
    Bytes block;
};

template <class Number>
std::optional<Number> number(std::string_view text, int base = 10) {
    Number value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<Bytes> bytesOf(std::string_view hex) {
    if (hex.size() % 2 != 0 || hex.size() / 2 > fsuipc::blockSize)
        return std::nullopt;
    Bytes bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        const auto byte = number<unsigned char>(hex.substr(i, 2), 16);
        if (!byte)
            return std::nullopt;
        bytes.push_back(std::byte{*byte});
    }
    return bytes;
}

// "1", "existed", "failed 1400", or of an exchange "1 0100...".
std::optional<Answer> answerOf(std::string_view text) {
    Answer answer;
    if (text == "existed") {
        answer.value = 1;
        answer.existed = true;
        return answer;
    }
    constexpr std::string_view failed = "failed ";
    if (text.starts_with(failed)) {
        answer.failed = true;
        text.remove_prefix(failed.size());
    }
    const std::size_t blank = text.find(' ');
    const auto value = number<std::uint64_t>(text.substr(0, blank));
    if (!value)
        return std::nullopt;
    answer.value = *value;
    if (blank == std::string_view::npos)
        return answer;
    auto block = bytesOf(text.substr(blank + 1));
    if (!block)
        return std::nullopt;
    answer.block = std::move(*block);
    return answer;
}

// A damaged question would never be asked, and its answer silently be missing.
bool isQuestion(std::string_view text) {
    constexpr std::array<std::string_view, 3> plain{"supported", "process", "map"};
    constexpr std::array<std::string_view, 4> named{"find ", "message ", "atom ", "block "};
    constexpr std::string_view send = "send ";
    if (text.starts_with(send))
        return bytesOf(text.substr(send.size())).has_value();
    const auto names = [text](std::string_view kind) {
        return text.size() > kind.size() && text.starts_with(kind);
    };
    return std::ranges::find(plain, text) != plain.end() || std::ranges::any_of(named, names);
}

// The recorded answers by their question, each list read once from its start.
class Script {
public:
    bool add(std::string_view line) {
        const std::size_t mark = line.find(separator);
        if (mark == std::string_view::npos || !isQuestion(line.substr(0, mark)))
            return false;
        auto answer = answerOf(line.substr(mark + separator.size()));
        if (!answer)
            return false;
        questions_[std::string(line.substr(0, mark))].answers.push_back(std::move(*answer));
        return true;
    }

    const Answer* next(const std::string& question) {
        const auto found = questions_.find(question);
        if (found == questions_.end())
            return nullptr;
        Entry& entry = found->second;
        const Answer& answer = entry.answers[entry.next];
        entry.next = std::min(entry.next + 1, entry.answers.size() - 1);
        return &answer;
    }

private:
    struct Entry {
        std::vector<Answer> answers;
        std::size_t next = 0;
    };
    std::map<std::string, Entry> questions_;
};

class Replayer : public SimulatorServices {
public:
    explicit Replayer(Script script)
        : script_(std::move(script))
        , supported_(value("supported") != 0) {}

    bool supported() const override { return supported_; }
    SimulatorWindow findWindow(const std::string& className) override {
        return static_cast<SimulatorWindow>(value("find " + className));
    }
    std::uint32_t registerMessage(const std::string& name) override {
        return static_cast<std::uint32_t>(value("message " + name));
    }

    SendOutcome send(SimulatorWindow, std::uint32_t, std::uint16_t, std::chrono::milliseconds,
                     const Silence&) override {
        const Answer* const answer = script_.next("send " + fsuipc::hexText(fsuipc::usedPart(block_)));
        if (answer == nullptr)
            return {true, 0, 0};
        if (answer->failed)
            return {false, 0, static_cast<std::uint32_t>(answer->value)};
        std::copy_n(answer->block.begin(), std::min(answer->block.size(), block_.size()), block_.begin());
        return {true, static_cast<std::uintptr_t>(answer->value), 0};
    }

    std::uint16_t addAtom(const std::string& name) override {
        return static_cast<std::uint16_t>(value("atom " + name));
    }
    void deleteAtom(std::uint16_t) override {}
    CreatedBlock createBlock(const std::string& name, std::size_t) override {
        const Answer* const answer = script_.next("block " + name);
        if (answer == nullptr)
            return {};
        return {static_cast<SharedBlock>(answer->value), answer->existed};
    }
    void closeBlock(SharedBlock) override {}
    std::byte* mapBlock(SharedBlock, std::size_t size) override {
        block_.assign(size, std::byte{0});
        return value("map") != 0 ? block_.data() : nullptr;
    }
    void unmapBlock(std::byte*) override {}
    std::uint32_t processId() override { return static_cast<std::uint32_t>(value("process")); }
    void sleep(std::chrono::milliseconds) override {}

private:
    std::uint64_t value(const std::string& question) {
        const Answer* const answer = script_.next(question);
        return answer == nullptr ? 0 : answer->value;
    }

    Script script_;
    bool supported_;
    Bytes block_;
};

// Takes the first line out of a text.
std::string_view takeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

} // namespace

Replay replayedServices(std::string_view recording) {
    if (takeLine(recording) != recordingHeading)
        return {nullptr, "The file is no recording of the simulator link"};
    Script script;
    for (std::size_t number = 2; !recording.empty(); ++number) {
        const std::string_view line = takeLine(recording);
        if (!line.empty() && !line.starts_with('#') && !script.add(line))
            return {nullptr, "The recording cannot be understood in line " + std::to_string(number)};
    }
    return {std::make_unique<Replayer>(std::move(script)), {}};
}

} // namespace quillset
