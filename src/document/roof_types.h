#pragma once

#include <cstddef>

namespace quillset {

class SceneryDocument;

/// Brings the rectangular building of a placement into the shape that its roofType asks for: removes the
/// attributes of other roofs and sets its own to their first values (also where they held others). Any other
/// roofType, and any other placement, stays as it is. Throws RuntimeError when there is no such placement.
void reshapeRoof(SceneryDocument& document, std::size_t placement);

} // namespace quillset
