#pragma once

#include "shell/commands.h"

#include <QIcon>

namespace quillset {

/// Line pictures of the commands, drawn at any size in the palette's colours (light and dark alike).
[[nodiscard]] QIcon commandIcon(CommandIcon icon);

/// The program's own picture: a quill that sets a point.
[[nodiscard]] QIcon programIcon();

} // namespace quillset
