#include "shortcut_list/shortcut_list.h"

#include "shell/commands.h"

namespace quillset {

namespace {

std::string withoutAccessKey(std::string_view caption) {
    std::string text(caption);
    std::erase(text, '&');
    return text;
}

std::string headingOf(const MenuRow& menu) {
    // The last menu is never in the menu bar.
    return menu.name == "mXMLList" ? "Menu of the object list" : withoutAccessKey(menu.caption) + " menu";
}

} // namespace

std::string shortcutList() {
    std::string text;
    for (const MenuRow& menu : menus()) {
        text += "\n## " + headingOf(menu) + "\n\n| Command | Key | What it does |\n|---|---|---|\n";
        for (const CommandRow& command : menu.commands) {
            if (command.caption == "-" || command.caption.empty())
                continue;
            text += "| " + withoutAccessKey(command.caption) + " | " + std::string(command.shortcut) + " | " +
                    std::string(command.tip) + " |\n";
        }
    }
    return text;
}

} // namespace quillset
