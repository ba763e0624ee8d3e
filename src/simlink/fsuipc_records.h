#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

/// The shared block of the simulator link: records packed back to back, all words little-endian. A read has
/// the words id, offset, size, target and then its data, a write id, offset, size and its data; a word 0 ends
/// the list.
namespace quillset::fsuipc {

inline constexpr std::size_t blockSize = 0x8000;
/// From the block's start, with the end mark.
inline constexpr std::size_t usableSize = 0x7F00;

inline constexpr std::size_t wordSize = 4;
inline constexpr std::size_t readHeaderSize = 4 * wordSize;
inline constexpr std::size_t writeHeaderSize = 3 * wordSize;

inline constexpr std::uint32_t endMark = 0;
inline constexpr std::uint32_t readRecord = 1;
inline constexpr std::uint32_t writeRecord = 2;

struct Record {
    std::uint32_t id;
    std::uint32_t offset;
    std::uint32_t target; ///< of a read
    std::span<const std::byte> data;
    std::size_t length; ///< header and data
};

/// A word that lies inside the bytes.
[[nodiscard]] std::uint32_t wordAt(std::span<const std::byte> bytes, std::size_t at);
/// The record at that place; nothing for an end mark, an unknown id and a record that reaches beyond the
/// bytes.
[[nodiscard]] std::optional<Record> recordAt(std::span<const std::byte> bytes, std::size_t at);
/// The first bytes of a block, up to and with its end mark.
[[nodiscard]] std::span<const std::byte> usedPart(std::span<const std::byte> block);

/// Two upper-case digits a byte.
[[nodiscard]] std::string hexText(std::span<const std::byte> bytes);

} // namespace quillset::fsuipc
