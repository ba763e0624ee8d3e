#pragma once

#include "simlink/position_exchange.h"

#include <optional>
#include <span>
#include <string_view>

namespace quillset {

/// The control that edits a property in place.
enum class EditorKind { text, list, spin };

struct SpinLimits {
    int minimum = 0;
    int maximum = 0;

    bool operator==(const SpinLimits&) const = default;
};

/// How a property is edited. `items` are those of a drop-down list, `limits` those of a spin box.
struct EditorChoice {
    EditorKind kind = EditorKind::text;
    std::span<const std::string_view> items = {};
    SpinLimits limits = {};
};

/// The one-line description of a property, UTF-8; nothing for names without one.
[[nodiscard]] std::optional<std::string_view> propertyDescription(std::string_view name);

[[nodiscard]] EditorChoice editorFor(std::string_view name);

/// Whether a printable character may be put into the editor of a property, however it gets there. Control
/// characters are no matter of this filter.
[[nodiscard]] bool acceptsCharacter(std::string_view name, char32_t character);

/// Captions of the commands that read a coordinate from the simulator and write it there.
struct CoordinateCaptions {
    std::string_view read;
    std::string_view write;
};
[[nodiscard]] CoordinateCaptions captionsOf(Coordinate coordinate);

} // namespace quillset
