#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillset {

/// A hash index from keys to numbers; the keys themselves stay with the caller. Open addressing without an
/// allocation per entry: a catalogue of 50,000 objects is built anew at every scan.
class KeyIndex {
public:
    static constexpr std::uint32_t none = 0xFFFFFFFF;
    /// Calls `isKey(number)` for the candidates and gives the number for which it returns true, else `none`.
    template <class IsKey>
    [[nodiscard]] std::uint32_t find(std::string_view key, IsKey isKey) const {
        if (slots_.empty())
            return none;
        const std::uint32_t hash = hashOf(key);
        for (std::size_t at = hash & mask();; at = (at + 1) & mask()) {
            const Slot& slot = slots_[at];
            if (slot.number == none)
                return none;
            if (slot.hash == hash && isKey(slot.number))
                return slot.number;
        }
    }

    /// The key must not be there yet; `number` is not `none`.
    void insert(std::string_view key, std::uint32_t number);

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = none;
    };

    [[nodiscard]] static std::uint32_t hashOf(std::string_view key);
    [[nodiscard]] std::size_t mask() const { return slots_.size() - 1; }
    void place(const Slot& slot);
    void grow();

    std::vector<Slot> slots_; // a power of two of them, at most half in use
    std::size_t used_ = 0;
};

} // namespace quillset
