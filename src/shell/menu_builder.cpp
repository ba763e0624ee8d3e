#include "shell/menu_builder.h"

#include "shell/command_icons.h"
#include "shell/commands.h"

#include <QMenuBar>
#include <QToolBar>

namespace quillset {

namespace {

QString text(std::string_view view) {
    return QString::fromUtf8(view.data(), static_cast<qsizetype>(view.size()));
}

QAction* makeAction(QMainWindow& window, const CommandRow& row) {
    auto* const action = new QAction(commandIcon(row.icon), text(row.caption), &window);
    action->setObjectName(text(row.name));
    action->setStatusTip(text(row.tip));
    if (row.caption == "-") {
        // With its caption the style would draw a heading in place of a line.
        action->setText(QString());
        action->setSeparator(true);
        return action;
    }
    if (!row.shortcut.empty()) {
        action->setShortcut(QKeySequence::fromString(text(row.shortcut), QKeySequence::PortableText));
        action->setShortcutVisibleInContextMenu(true);
    }
    QString tip = text(row.tip);
    if (!row.shortcut.empty())
        tip += QStringLiteral(" (%1)").arg(action->shortcut().toString(QKeySequence::NativeText));
    action->setToolTip(tip);
    // No command may move elsewhere by its words (macOS does that); names and places are fixed.
    action->setMenuRole(QAction::NoRole);
    return action;
}

} // namespace

BuiltMenus buildMenus(QMainWindow& window) {
    BuiltMenus built;
    for (const MenuRow& row : menus()) {
        const bool hidden = row.name == "mXMLList";
        auto* const menu =
            hidden ? new QMenu(text(row.caption), &window) : window.menuBar()->addMenu(text(row.caption));
        menu->setObjectName(text(row.name));
        built.menus.insert(text(row.name), menu);
        for (const CommandRow& command : row.commands) {
            QAction* const action = makeAction(window, command);
            // These are switched on and off: a check mark is clearer than a frame around an icon.
            action->setIconVisibleInMenu(row.name != "mView");
            menu->addAction(action);
            built.actions.insert(text(command.name), action);
        }
    }
    return built;
}

void buildToolBar(QMainWindow& window, const BuiltMenus& built) {
    QToolBar* const bar = window.addToolBar(QMainWindow::tr("Commands"));
    bar->setObjectName(QStringLiteral("toolBar"));
    bar->setMovable(false);
    bar->setIconSize(QSize(20, 20));
    for (const char* const name :
         {"mNew", "mOpen", "mSave", "", "mUndo", "", "mAddNewBefore", "mAddNewEnd", "mUpdateObject",
          "mRemoveObject", "mMoveUp", "mMoveDown", "", "mCompile"}) {
        if (*name == '\0')
            bar->addSeparator();
        else
            bar->addAction(built.action(name));
    }
}

} // namespace quillset
