#pragma once

#include "preview/preview_context.h"
#include "properties/document_target.h"
#include "properties/property_editor.h"
#include "shell/MDIForm1.h"
#include "shell/command_line.h"
#include "shell/compile_command.h"
#include "shell/document_commands.h"
#include "shell/frmSplash.h"
#include "shell/geodata_commands.h"
#include "shell/help_commands.h"
#include "shell/object_commands.h"
#include "shell/progress_window.h"
#include "shell/qt_clock.h"
#include "shell/registration_commands.h"
#include "shell/session.h"
#include "shell/start_up.h"
#include "simlink/link_monitor.h"
#include "simlink/position_exchange.h"

#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

namespace quillset {

class frmObjProp;
class frmObjTree;
class frmPreview;
class frmXMLList;

/// What an editor takes from `main`; everything referred to must outlive it.
struct EditorEnvironment {
    CommandLine options;
    ProgramFiles programFiles;
    Dialogs& dialogs;
    SimulatorServices& simulator;
    /// The simulator's folder as the system knows it; empty when it does not.
    std::function<std::string()> registeredSimulatorFolder;
    /// Ends the program at once, without saving anything.
    std::function<void()> endProgram;
};

/// The whole running editor: the session, its commands and its windows, and how they hear of each other.
class Editor : private StartUpWindows, private PreviewContext {
public:
    /// Needs a QApplication.
    explicit Editor(const EditorEnvironment& environment);
    ~Editor() override;
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    /// Runs the start-up sequence and shows the main window; false when the program must end.
    [[nodiscard]] bool start();

    [[nodiscard]] Session& session() { return session_; }
    [[nodiscard]] MDIForm1& window() { return *window_; }

private:
    SessionEnvironment sessionEnvironment(const EditorEnvironment& environment);
    void makeWindows();
    void connectCommands();
    void connectGeodata();
    void connectWindows();
    void connectSimulator();
    void showWaiting(Waiting waiting);
    void setBusyCursor(bool busy);
    void followCompileMessage(const QString& line);
    void finish();

    // StartUpWindows
    void showSplash() override;
    void setSplashText(const std::string& text) override;
    void closeSplash() override;
    void dockWindows() override;
    void initialisePreview() override;

    // PreviewContext
    [[nodiscard]] bool documentOpen() const override;
    [[nodiscard]] std::string currentKind() const override;
    [[nodiscard]] bool selectedIsGenBuild() const override;
    [[nodiscard]] pugi::xml_node currentBuilding() const override;
    [[nodiscard]] int getFormDockStatus(std::string_view formName) const override;

    CommandLine options_;
    QtClock clock_;
    std::unique_ptr<FileOperations> files_;
    std::unique_ptr<GuidMaker> guids_;
    std::unique_ptr<ProcessStarter> processes_;
    FsuipcClient simulator_;
    FSUIPCFunctions position_;
    LinkMonitor link_;
    // The preview asks through const members; the session's parts are reached through references.
    mutable Session session_;
    DocumentCommands documentCommands_;
    ObjectCommands objectCommands_;
    RegistrationCommands registrationCommands_;
    HelpCommands helpCommands_;
    ProgressWindow progress_;
    GeodataCommands geodataCommands_;
    DocumentTarget propertyTarget_;
    PropertyEditor propertyEditor_;
    std::unique_ptr<frmSplash> splash_;
    std::unique_ptr<MDIForm1> window_;
    frmObjTree* tree_ = nullptr;
    frmPreview* preview_ = nullptr;
    frmObjProp* properties_ = nullptr;
    frmXMLList* list_ = nullptr;
    std::optional<CompileCommand> compileCommand_;
    QTimer timer_;
    bool busyCursor_ = false; // ours, not one that somebody else shows
    std::vector<Connection> connections_;
};

} // namespace quillset
