#include "base/paths.h"
#include "base/runtime_error.h"
#include "simlink/fsuipc_records.h"
#include "simlink/simulator_recording.h"

#include <array>
#include <fstream>
#include <span>

namespace quillset {

namespace {

std::string textOf(const fsuipc::Record& record) {
    const auto offset = record.offset;
    const std::array<std::byte, 4> bigEndian{std::byte(offset >> 24), std::byte(offset >> 16),
                                             std::byte(offset >> 8), std::byte(offset)};
    return (record.id == fsuipc::readRecord ? "read " : "write ") + fsuipc::hexText(bigEndian) + ": " +
           fsuipc::hexText(record.data);
}

// A mistyped name must not cost the user a file: only a recording is written over.
std::ofstream createdFile(const std::string& path) {
    if (fileExists(path)) {
        std::ifstream file(toPath(path), std::ios::binary);
        std::string first(recordingHeading.size(), '\0');
        file.read(first.data(), static_cast<std::streamsize>(first.size()));
        if (file.gcount() > 0 && first != recordingHeading)
            throw RuntimeError(ErrorNumber::fileExists,
                               "The recording would replace a file that is no recording: " + path);
    }
    std::ofstream file(toPath(path), std::ios::binary);
    if (!file)
        throw RuntimeError(ErrorNumber::pathAccess, "The recording cannot be created: " + path);
    return file;
}

class Recorder : public SimulatorServices {
public:
    Recorder(std::unique_ptr<SimulatorServices> services, const std::string& path, const Clock& clock)
        : services_(std::move(services))
        , file_(createdFile(path))
        , clock_(clock) {
        line(std::string(recordingHeading));
        line("# " + clock_.timeText());
        line(std::string("supported = ") + (services_->supported() ? "1" : "0"));
    }

    bool supported() const override { return services_->supported(); }

    SimulatorWindow findWindow(const std::string& className) override {
        const SimulatorWindow window = services_->findWindow(className);
        line("find " + className + " = " + (window == SimulatorWindow::none ? "0" : "1"));
        return window;
    }

    std::uint32_t registerMessage(const std::string& name) override {
        const std::uint32_t message = services_->registerMessage(name);
        line("message " + name + " = " + (message == 0 ? "0" : "1"));
        return message;
    }

    SendOutcome send(SimulatorWindow window, std::uint32_t message, std::uint16_t atom,
                     std::chrono::milliseconds timeOut, const Silence& silence) override {
        const std::span<const std::byte> used = fsuipc::usedPart(block_);
        const std::string question = "send " + fsuipc::hexText(used) + " = ";
        line("# " + clock_.timeText());
        const SendOutcome outcome = services_->send(window, message, atom, timeOut, silence);
        if (!outcome.sent) {
            line(question + "failed " + std::to_string(outcome.systemError));
            return outcome;
        }
        std::size_t at = 0;
        while (const auto record = fsuipc::recordAt(used, at)) {
            line("#   " + textOf(*record));
            at += record->length;
        }
        line(question + std::to_string(outcome.answer) + " " + fsuipc::hexText(used));
        return outcome;
    }

    std::uint16_t addAtom(const std::string& name) override {
        const std::uint16_t atom = services_->addAtom(name);
        line("atom " + name + " = " + (atom == 0 ? "0" : "1"));
        return atom;
    }
    void deleteAtom(std::uint16_t atom) override {
        line("# close");
        services_->deleteAtom(atom);
    }

    CreatedBlock createBlock(const std::string& name, std::size_t size) override {
        const CreatedBlock created = services_->createBlock(name, size);
        const char* const answer = created.block == SharedBlock::none ? "0"
                                   : created.existed                  ? "existed"
                                                                      : "1";
        line("block " + name + " = " + answer);
        return created;
    }
    void closeBlock(SharedBlock block) override { services_->closeBlock(block); }

    std::byte* mapBlock(SharedBlock block, std::size_t size) override {
        std::byte* const view = services_->mapBlock(block, size);
        line(std::string("map = ") + (view == nullptr ? "0" : "1"));
        block_ = view == nullptr ? std::span<std::byte>() : std::span(view, size);
        return view;
    }
    void unmapBlock(std::byte* view) override {
        block_ = {};
        services_->unmapBlock(view);
    }

    std::uint32_t processId() override {
        const std::uint32_t id = services_->processId();
        line("process = " + std::to_string(id));
        return id;
    }
    void sleep(std::chrono::milliseconds time) override { services_->sleep(time); }

private:
    void line(const std::string& text) { file_ << text << '\n' << std::flush; }

    std::unique_ptr<SimulatorServices> services_;
    std::ofstream file_;
    const Clock& clock_;
    std::span<std::byte> block_; ///< the mapped one
};

} // namespace

std::unique_ptr<SimulatorServices> recordedServices(std::unique_ptr<SimulatorServices> services,
                                                    const std::string& path, const Clock& clock) {
    return std::make_unique<Recorder>(std::move(services), path, clock);
}

} // namespace quillset
