#pragma once

#include <span>
#include <string_view>

namespace quillset {

/// Pictures of commands; drawn by the windows in the palette's colours.
enum class CommandIcon {
    none,
    newFile,
    openFile,
    save,
    saveAs,
    compile,
    exportFile,
    importFile,
    close,
    quit,
    undo,
    convert,
    addBefore,
    addEnd,
    update,
    library,
    model,
    removeModel,
    folder,
    rescan,
    tree,
    properties,
    preview,
    remove,
    moveUp,
    moveDown,
    help,
    copy,
    about
};

/// One menu command: what it is called in menus and by tools, its usual shortcut, what it does in one
/// sentence.
struct CommandRow {
    /// Object name; empty for a plain separator without a name.
    std::string_view name;
    /// With "&" before the access key; "-" is a separator.
    std::string_view caption;
    /// Portable form ("Ctrl+Shift+S"); empty for none.
    std::string_view shortcut = {};
    CommandIcon icon = CommandIcon::none;
    std::string_view tip = {};
};

/// A top menu and its commands in order. Separators have the caption "-".
struct MenuRow {
    std::string_view name;
    std::string_view caption;
    std::span<const CommandRow> commands;
};

/// All menus in the order of the menu bar; the last one, `mXMLList`, is hidden and serves as context menu.
[[nodiscard]] std::span<const MenuRow> menus();

} // namespace quillset
