#include "shell/dock_host.h"

#include <QApplication>

namespace quillset {

namespace {

Qt::DockWidgetArea areaOf(int align) {
    switch (align) {
    case 1:
        return Qt::TopDockWidgetArea;
    case 2:
        return Qt::BottomDockWidgetArea;
    case 3:
        return Qt::LeftDockWidgetArea;
    default:
        return Qt::RightDockWidgetArea;
    }
}

int alignOf(Qt::DockWidgetArea area) {
    switch (area) {
    case Qt::TopDockWidgetArea:
        return 1;
    case Qt::BottomDockWidgetArea:
        return 2;
    case Qt::LeftDockWidgetArea:
        return 3;
    case Qt::RightDockWidgetArea:
        return 4;
    default:
        return 0;
    }
}

} // namespace

QDockWidget* DockHost::add(QWidget* toolWindow, const QString& title) {
    auto* const dock = new QDockWidget(title, &window_);
    dock->setObjectName(QStringLiteral("dock_") + toolWindow->objectName());
    dock->setWidget(toolWindow);
    dock->setAccessibleName(title);
    docks_.insert(toolWindow->objectName(), dock);
    // A place of its own even when the layout cannot be read: else it would lie across the menu bar.
    window_.addDockWidget(Qt::RightDockWidgetArea, dock);
    return dock;
}

void DockHost::apply(const QString& name, const WindowLayout& layout) {
    QDockWidget* const dock = docks_.value(name);
    window_.addDockWidget(areaOf(layout.align), dock);
    // Hidden before it floats: a window that begins to float shows itself if it may, and takes the focus.
    dock->setVisible(layout.visible);
    dock->setFloating(!layout.docked);
}

WindowLayout DockHost::layout(const QString& name) const {
    const QDockWidget* const dock = docks_.value(name);
    // isHidden, not isVisible: a window in a hidden tab or in a main window that is closing still counts as
    // shown.
    return {alignOf(window_.dockWidgetArea(docks_.value(name))), !dock->isFloating(), !dock->isHidden()};
}

int DockHost::dockStatus(const QString& name) const {
    const WindowLayout now = layout(name);
    return now.docked ? now.align : 0;
}

void DockHost::setDockable(bool dockable) {
    for (QDockWidget* const dock : docks_) {
        dock->setAllowedAreas(dockable || !dock->isFloating() ? Qt::AllDockWidgetAreas
                                                              : Qt::NoDockWidgetArea);
        QDockWidget::DockWidgetFeatures features = QDockWidget::DockWidgetClosable;
        if (dockable || dock->isFloating())
            features |= QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable;
        dock->setFeatures(features);
    }
}

void DockHost::toggleFloating() {
    QWidget* const focused = QApplication::focusWidget();
    for (QDockWidget* const dock : docks_) {
        const bool movable = dock->features().testFlag(QDockWidget::DockWidgetFloatable) &&
                             dock->allowedAreas() != Qt::NoDockWidgetArea;
        if (!dock->isAncestorOf(focused) || !movable)
            continue;
        dock->setFloating(!dock->isFloating());
        dock->activateWindow(); // the keyboard stays in it
        focused->setFocus();
        return;
    }
}

} // namespace quillset
