#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillset::tools {

/// Bytes of the address space.
struct Preset {
    std::uint32_t offset;
    std::vector<std::byte> bytes;
};

/// A word that is put into the client's block after an exchange was served.
struct Damage {
    std::uint32_t position;
    std::uint32_t word;
};

struct Options {
    std::string windowClass = "UIPCMAIN";
    std::intptr_t answer = 1;
    std::vector<Preset> presets;
    std::vector<Damage> damages;
    /// The exchange from which on the damage is done, counted from 1.
    unsigned damageFrom = 1;
    unsigned lateMilliseconds = 0;
    /// How many exchanges are late.
    unsigned lateCount = 1;
    /// Ends the process in the middle of that exchange, counted from 1; 0 never.
    unsigned dieIn = 0;
    bool log = false;
    /// Ends when the standard input does, that is with the program that started it.
    bool untilInputEnds = false;
};

extern const char* const usage;

/// Nothing for arguments that cannot be understood, or for --help.
[[nodiscard]] std::optional<Options> parseOptions(std::span<const std::string> arguments);

} // namespace quillset::tools
