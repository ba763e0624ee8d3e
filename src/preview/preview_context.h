#pragma once

#include <pugixml.hpp>

#include <string>
#include <string_view>

namespace quillset {

/// What the preview asks its surroundings. The timer asks ten times a second, so every answer must take
/// constant time, whatever the size of the document.
class PreviewContext {
public:
    virtual ~PreviewContext() = default;

    [[nodiscard]] virtual bool documentOpen() const = 0;
    /// Column 0 of the object list's current row, which names the kind of the placement; empty without a row.
    [[nodiscard]] virtual std::string currentKind() const = 0;
    /// Whether the catalogue tree's selection is a generic building.
    [[nodiscard]] virtual bool selectedIsGenBuild() const = 0;
    /// The `GenericBuilding` element of the current row's placement in the live document; a null node when
    /// the row has none. The preview reads it before it returns to the event loop and keeps no reference.
    [[nodiscard]] virtual pugi::xml_node currentBuilding() const = 0;
    /// The docking state of a tool window: 0 floating, 1 top, 2 bottom, 3 left, 4 right.
    [[nodiscard]] virtual int getFormDockStatus(std::string_view formName) const = 0;
};

} // namespace quillset
