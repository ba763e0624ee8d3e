#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillset {

/// Reads little-endian numbers of a file in memory; what lies beyond its end reads as 0.
class LittleEndian {
public:
    explicit LittleEndian(std::string_view bytes)
        : bytes_(bytes) {}

    [[nodiscard]] std::uint64_t size() const { return bytes_.size(); }
    [[nodiscard]] bool has(std::uint64_t offset, std::uint64_t count) const {
        return offset <= size() && count <= size() - offset;
    }
    /// A stretch of the file, which must be there.
    [[nodiscard]] std::string_view bytes(std::uint64_t offset, std::uint64_t count) const {
        return bytes_.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(count));
    }
    [[nodiscard]] std::uint8_t u8(std::uint64_t offset) const {
        return offset < size() ? static_cast<std::uint8_t>(bytes_[static_cast<std::size_t>(offset)])
                               : std::uint8_t{0};
    }
    [[nodiscard]] std::uint16_t u16(std::uint64_t offset) const {
        return static_cast<std::uint16_t>(u8(offset) | (u8(offset + 1) << 8));
    }
    [[nodiscard]] std::uint32_t u32(std::uint64_t offset) const {
        return u16(offset) | (static_cast<std::uint32_t>(u16(offset + 2)) << 16);
    }
    [[nodiscard]] std::int32_t i32(std::uint64_t offset) const {
        return static_cast<std::int32_t>(u32(offset));
    }

private:
    std::string_view bytes_;
};

/// Appends a number, least significant byte first.
inline void append16(std::string& out, std::uint32_t value) {
    out.push_back(static_cast<char>(value & 0xFF));
    out.push_back(static_cast<char>((value >> 8) & 0xFF));
}
inline void append32(std::string& out, std::uint32_t value) {
    append16(out, value & 0xFFFF);
    append16(out, value >> 16);
}

} // namespace quillset
