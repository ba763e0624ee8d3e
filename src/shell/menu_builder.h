#pragma once

#include <QAction>
#include <QHash>
#include <QMainWindow>
#include <QMenu>
#include <QString>

namespace quillset {

/// The menus of a main window as made from the command table.
struct BuiltMenus {
    QHash<QString, QMenu*> menus;
    QHash<QString, QAction*> actions;

    [[nodiscard]] QAction* action(const char* name) const { return actions.value(QLatin1String(name)); }
    [[nodiscard]] QMenu* menu(const char* name) const { return menus.value(QLatin1String(name)); }
};

/// Fills the menu bar; every action bears its command's name. The context menu of the list is made too, but
/// hidden.
[[nodiscard]] BuiltMenus buildMenus(QMainWindow& window);

/// A tool bar with the commands that are used most, in groups.
void buildToolBar(QMainWindow& window, const BuiltMenus& built);

} // namespace quillset
