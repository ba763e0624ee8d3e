#pragma once

#include "document/placement.h"

#include <QIcon>

namespace quillset {

/// A line drawing of what is placed: a box for a library object, a spark for an effect, a house for a generic
/// building, a ring for anything else. Sharp at every size, in the colours of the palette.
[[nodiscard]] QIcon placementIcon(PlacementKind kind);

} // namespace quillset
