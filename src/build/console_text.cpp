#include "build/console_text.h"

#include <algorithm>
#include <cstdint>

namespace quillset {

namespace {

enum class Sequence { complete, cut, invalid };

struct Character {
    Sequence sequence = Sequence::invalid;
    std::size_t length = 1;
};

/// Bytes that follow a lead byte, and the range of the first of them (RFC 3629 section 4).
struct LeadByte {
    std::size_t followers = 0;
    std::uint8_t low = 0x80;
    std::uint8_t high = 0xBF;
};

LeadByte leadByte(std::uint8_t byte) {
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, std::uint8_t(byte == 0xE0 ? 0xA0 : 0x80), std::uint8_t(byte == 0xED ? 0x9F : 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, std::uint8_t(byte == 0xF0 ? 0x90 : 0x80), std::uint8_t(byte == 0xF4 ? 0x8F : 0xBF)};
    return {};
}

Character firstCharacter(std::string_view text) {
    const auto first = static_cast<std::uint8_t>(text.front());
    if (first < 0x80)
        return {Sequence::complete, 1};
    LeadByte lead = leadByte(first);
    if (lead.followers == 0)
        return {};
    for (std::size_t i = 1; i <= lead.followers; ++i) {
        if (i == text.size())
            return {Sequence::cut, i};
        const auto byte = static_cast<std::uint8_t>(text[i]);
        if (byte < lead.low || byte > lead.high)
            return {};
        lead.low = 0x80;
        lead.high = 0xBF;
    }
    return {Sequence::complete, lead.followers + 1};
}

/// Length of the run at the start that is one kind: complete characters, or invalid bytes.
std::size_t runLength(std::string_view text, Sequence kind) {
    std::size_t length = 0;
    while (length < text.size()) {
        const Character next = firstCharacter(text.substr(length));
        if (next.sequence != kind)
            break;
        length += next.length;
    }
    return length;
}

} // namespace

std::string ConsoleTextDecoder::decode(std::string_view piece) {
    std::string joined = std::move(pending_);
    pending_.clear();
    joined.append(piece);
    std::string text;
    std::string_view rest = joined;
    while (!rest.empty()) {
        const std::size_t valid = runLength(rest, Sequence::complete);
        text.append(rest.substr(0, valid));
        rest.remove_prefix(valid);
        const std::size_t invalid = runLength(rest, Sequence::invalid);
        text.append(fromConsoleCodePage(rest.substr(0, invalid)));
        rest.remove_prefix(invalid);
        if (!rest.empty() && firstCharacter(rest).sequence == Sequence::cut) {
            pending_ = rest;
            return text;
        }
    }
    return text;
}

std::string ConsoleTextDecoder::finish() {
    const std::string rest = std::move(pending_);
    pending_.clear();
    return fromConsoleCodePage(rest);
}

} // namespace quillset
