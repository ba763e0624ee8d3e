#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quillset::compiler {

/// Bytes of a file with its numbers, low byte first on every machine.
class ByteBuffer {
public:
    void word(std::uint16_t value) { number(value, 2); }
    void dword(std::uint32_t value) { number(value, 4); }
    void float32(float value) { dword(std::bit_cast<std::uint32_t>(value)); }
    void bytes(std::string_view text) { bytes_ += text; }
    void bytes(std::span<const std::uint8_t> values) {
        for (const std::uint8_t value : values)
            bytes_.push_back(static_cast<char>(value));
    }
    void zeros(std::size_t count) { bytes_.append(count, '\0'); }
    void reserve(std::size_t count) { bytes_.reserve(count); }
    void clear() { bytes_.clear(); }

    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] const std::string& text() const { return bytes_; }

private:
    void number(std::uint32_t value, std::size_t count) {
        char low[4];
        for (std::size_t i = 0; i < count; ++i)
            low[i] = static_cast<char>(value >> (8 * i) & 0xFFU);
        bytes_.append(low, count);
    }

    std::string bytes_;
};

} // namespace quillset::compiler
