#pragma once

#include "shell/dock_host.h"
#include "shell/document_area.h"
#include "shell/menu_builder.h"
#include "shell/session.h"
#include "shell/status_panel.h"

#include <QMainWindow>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace quillset {

/// The windows inside the main window. The main window owns them.
struct ToolWindows {
    QWidget* frmObjTree = nullptr;
    QWidget* frmPreview = nullptr;
    QWidget* frmObjProp = nullptr;
    QWidget* frmCoorConv = nullptr;
    QWidget* frmXMLList = nullptr;
};

/// The program's frame: menus, tool bar, docked tool windows, document area, status bar. It knows what is on
/// the screen; what the commands do is given to it by name.
class MDIForm1 : public QMainWindow {
    Q_OBJECT
public:
    MDIForm1(Session& session, const ToolWindows& windows);

    /// What runs when the command of that name is chosen.
    void setCommand(const char* name, std::function<void()> action);
    /// What runs when recent file `index` is chosen.
    void setRecentCommand(std::function<void(std::size_t)> action);
    /// What runs when the main window has been told to close; false keeps it open.
    void setShutDown(std::function<bool()> action) { shutDown_ = std::move(action); }

    /// What runs once, when the window's first picture is on the screen.
    void setFirstShown(std::function<void()> action) { firstShown_ = std::move(action); }

    /// Lays out the tool windows as the configuration says.
    void dockWindows();
    /// Remembers size, place and the exact arrangement of the docks for the next run.
    void storeArrangement();

    /// Shows the conversion window, ready for typing.
    void showConversion();
    void showDocument(const QString& caption);
    void hideDocument();
    void showContextMenu(const QPoint& globalPlace);
    void setLinkState(const QString& text, Bevel bevel, const QString& explanation);
    /// Says what the program waits for while it cannot listen; an empty text ends it.
    void showWaiting(const QString& text);
    /// Brings every command's enabled state up to date.
    void updateCommands();
    void rebuildRecentMenu();

    [[nodiscard]] DockHost& docks() { return docks_; }
    [[nodiscard]] DocumentArea& documentArea() { return *area_; }
    [[nodiscard]] const BuiltMenus& commands() const { return menus_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void buildStatusBar();
    void buildAppearanceMenu();
    void connectMenus();
    void connectSession();
    void chooseAppearance(const QString& text);
    void walkWindows(int step);
    void toggleDock(const char* action, const QString& window);
    void prepareObjectsMenu();
    void prepareViewMenu();
    void prepareEditMenu();

    Session& session_;
    BuiltMenus menus_;
    DockHost docks_;
    DocumentArea* area_;
    StatusPanel* activity_;
    SwitchPanel* dockable_;
    StatusPanel* link_;
    std::function<void(std::size_t)> openRecent_;
    std::function<bool()> shutDown_;
    std::function<void()> firstShown_;
    bool conversionShown_ = false;
    std::vector<Connection> connections_;
};

} // namespace quillset
