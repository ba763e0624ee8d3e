#include "simlink/fsuipc_records.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quillset::fsuipc {

static_assert(std::endian::native == std::endian::little, "words and values are copied as they stand");

std::uint32_t wordAt(std::span<const std::byte> bytes, std::size_t at) {
    std::uint32_t word = 0;
    std::memcpy(&word, bytes.data() + at, wordSize);
    return word;
}

std::optional<Record> recordAt(std::span<const std::byte> bytes, std::size_t at) {
    const std::size_t room = bytes.size() - std::min(at, bytes.size());
    if (room < writeHeaderSize)
        return std::nullopt;
    const std::uint32_t id = wordAt(bytes, at);
    if (id != readRecord && id != writeRecord)
        return std::nullopt;
    const std::size_t header = id == readRecord ? readHeaderSize : writeHeaderSize;
    const std::size_t size = wordAt(bytes, at + 2 * wordSize);
    if (room < header || size > room - header)
        return std::nullopt;
    const std::uint32_t target = id == readRecord ? wordAt(bytes, at + 3 * wordSize) : 0;
    return Record{id, wordAt(bytes, at + wordSize), target, bytes.subspan(at + header, size), header + size};
}

std::span<const std::byte> usedPart(std::span<const std::byte> block) {
    std::size_t at = 0;
    while (const auto record = recordAt(block, at))
        at += record->length;
    return block.first(std::min(at + wordSize, block.size()));
}

std::string hexText(std::span<const std::byte> bytes) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const std::byte byte : bytes) {
        text += digits[std::to_integer<unsigned>(byte) >> 4];
        text += digits[std::to_integer<unsigned>(byte) & 0xF];
    }
    return text;
}

} // namespace quillset::fsuipc
