#pragma once

#include "catalogue/catalogue_nodes.h"

class QIcon;

namespace quillset {

/// The symbol of a kind of node, drawn at any size in the colours of the palette at the time of drawing.
[[nodiscard]] QIcon objectIcon(NodeKind kind);

} // namespace quillset
