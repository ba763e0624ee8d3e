#pragma once

#include "shell/configuration.h"

#include <QDockWidget>
#include <QHash>
#include <QMainWindow>
#include <QString>

namespace quillset {

/// The docking of the tool windows: each stands at a side of the main window, in a tab with others, or
/// floats.
class DockHost {
public:
    explicit DockHost(QMainWindow& window)
        : window_(window) {}

    /// Takes the tool window in; its object name becomes the dock's name.
    QDockWidget* add(QWidget* toolWindow, const QString& title);

    void apply(const QString& name, const WindowLayout& layout);
    [[nodiscard]] WindowLayout layout(const QString& name) const;
    /// 0 floating, 1 top, 2 bottom, 3 left, 4 right.
    [[nodiscard]] int dockStatus(const QString& name) const;
    [[nodiscard]] QDockWidget* dock(const QString& name) const { return docks_.value(name); }

    /// Whether tool windows can be dragged to another side; a window that floats keeps floating when they
    /// cannot.
    void setDockable(bool dockable);
    /// Takes the tool window that has the keyboard out of the main window, or puts it back where it was; only
    /// while tool windows can be dragged.
    void toggleFloating();

private:
    QMainWindow& window_;
    QHash<QString, QDockWidget*> docks_;
};

} // namespace quillset
