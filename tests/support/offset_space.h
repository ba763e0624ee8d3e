#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace quillset::test {

/// The server's side of the simulator link: an address space of offsets, and the walk over a client's block.
/// Written without the client's code, so that an error in one does not hide in the other.
class OffsetSpace {
public:
    OffsetSpace() {
        set<std::uint32_t>(0x3304, 0x39990001); // version of the module
        set<std::uint16_t>(0x3308, 7);          // the 2004 simulator
        set<std::uint16_t>(0x330A, 0xFADE);     // identity mark
    }

    template <class T>
    void set(std::uint32_t offset, T value) {
        std::memcpy(bytes_.data() + offset, &value, sizeof value);
    }
    template <class T>
    [[nodiscard]] T get(std::uint32_t offset) const {
        T value;
        std::memcpy(&value, bytes_.data() + offset, sizeof value);
        return value;
    }

    /// Runs the requests of a block; false when they cannot be followed. `note` gets one line for each.
    bool serve(std::span<std::byte> block, const std::function<void(const std::string&)>& note = {}) {
        std::size_t at = 0;
        while (at + 4 <= block.size()) {
            const std::uint32_t kind = word(block, at);
            if (kind == 0)
                return true;
            const std::size_t header = kind == 1 ? 16 : 12;
            if (kind > 2 || at + header > block.size())
                return false;
            const std::uint32_t offset = word(block, at + 4);
            const std::uint32_t size = word(block, at + 8);
            if (size > block.size() - at - header || offset > bytes_.size() || size > bytes_.size() - offset)
                return false;
            std::byte* const data = block.data() + at + header;
            if (kind == 1)
                std::memcpy(data, bytes_.data() + offset, size);
            else
                write(offset, data, size);
            if (note)
                note((kind == 1 ? "read " : "write ") + hex(offset) + " " + std::to_string(size));
            at += header + size;
        }
        return false;
    }

    /// What the client announced as its library's version; -1 before.
    [[nodiscard]] int libraryVersion() const { return libraryVersion_; }

private:
    static std::uint32_t word(std::span<const std::byte> block, std::size_t at) {
        std::uint32_t value = 0;
        std::memcpy(&value, block.data() + at, sizeof value);
        return value;
    }
    static std::string hex(std::uint32_t offset) {
        std::string text;
        for (int shift = 12; shift >= 0; shift -= 4)
            text += "0123456789ABCDEF"[(offset >> shift) & 0xF];
        return text;
    }
    void write(std::uint32_t offset, const std::byte* data, std::uint32_t size) {
        // The place where clients announce their version reads as the identity mark all the same.
        if (offset == 0x330A && size == 2) {
            std::uint16_t version = 0;
            std::memcpy(&version, data, sizeof version);
            libraryVersion_ = version;
        } else {
            std::memcpy(bytes_.data() + offset, data, size);
        }
    }

    std::vector<std::byte> bytes_ = std::vector<std::byte>(0x10000);
    int libraryVersion_ = -1;
};

} // namespace quillset::test
