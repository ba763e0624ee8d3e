#pragma once

#include <cstddef>
#include <optional>

namespace quillset {

class SceneryDocument;

/// Moves a placement one place up or down among its neighbours, together with the comment immediately before
/// it. Only a comment counts as belonging to a placement here: in a file without comments "one place up"
/// would be none otherwise.
///
/// A placement stays within its parent element. Its neighbour is the nearest sibling that is a placement or
/// holds some (a tower with a beacon, say); that sibling is passed as a whole. Moving down to the last place
/// appends it as the last child of the parent, after whatever else stands there.
///
/// Returns the new index; nothing, with the document unchanged, when there is no neighbour on that side.
/// Throws RuntimeError when there is no such placement.
std::optional<std::size_t> movePlacementUp(SceneryDocument& document, std::size_t index);
std::optional<std::size_t> movePlacementDown(SceneryDocument& document, std::size_t index);

} // namespace quillset
