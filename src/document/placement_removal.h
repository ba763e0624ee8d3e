#pragma once

#include <cstddef>
#include <string>

namespace quillset {

class SceneryDocument;

/// What a removal takes away beside the placement itself.
struct Removal {
    std::size_t first = 0; ///< index of the first placement that goes
    std::size_t count = 1; ///< number of placements that go, nested ones included
    /// What goes with it unasked: the name of the element before it, "text" or "processing instruction";
    /// empty for the usual comment and for nothing.
    std::string before;
};

/// What removePlacement() would take. Throws RuntimeError when there is no such placement.
[[nodiscard]] Removal removalOf(const SceneryDocument& document, std::size_t index);

/// Removes the node before the placement, whatever kind of node it is (deliberate: usually its comment), and
/// then the placement with everything in it. Throws RuntimeError when there is no such placement.
void removePlacement(SceneryDocument& document, std::size_t index);

} // namespace quillset
