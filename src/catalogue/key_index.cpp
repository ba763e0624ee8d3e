#include "catalogue/key_index.h"

#include <functional>
#include <utility>

namespace quillset {

std::uint32_t KeyIndex::hashOf(std::string_view key) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(key));
}

void KeyIndex::insert(std::string_view key, std::uint32_t number) {
    if (2 * (used_ + 1) > slots_.size())
        grow();
    place({hashOf(key), number});
    ++used_;
}

void KeyIndex::place(const Slot& slot) {
    std::size_t at = slot.hash & mask();
    while (slots_[at].number != none)
        at = (at + 1) & mask();
    slots_[at] = slot;
}

void KeyIndex::grow() {
    constexpr std::size_t smallest = 64;
    const std::vector<Slot> old = std::exchange(slots_, {});
    slots_.resize(old.empty() ? smallest : 2 * old.size());
    for (const Slot& slot : old)
        if (slot.number != none)
            place(slot);
}

} // namespace quillset
