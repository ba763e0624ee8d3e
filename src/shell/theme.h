#pragma once

#include <QString>

namespace quillset {

enum class Appearance { system, light, dark };

/// One calm look on every platform, in light or dark colours; `system` follows the desktop.
void applyAppearance(Appearance appearance);

[[nodiscard]] Appearance appearanceFromText(const QString& text);
[[nodiscard]] QString textOf(Appearance appearance);

} // namespace quillset
