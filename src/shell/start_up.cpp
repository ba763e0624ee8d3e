#include "shell/start_up.h"

#include "base/paths.h"
#include "shell/temporary_files.h"

namespace quillset {

namespace {

std::string simulatorFolder(Session& session, const std::optional<std::string>& fsPath) {
    if (fsPath)
        return *fsPath;
    const std::string registered = session.registeredSimulatorFolder();
    if (!registered.empty())
        return registered;
    return session.dialogs().chooseFolder("Choose the folder of Flight Simulator 2004.");
}

// False when files are missing; the message has been shown then.
bool runtimeFilesPresent(Session& session, const RuntimeFiles& files, const std::vector<std::string>& table) {
    const std::vector<std::string> missing = files.missing(table);
    if (missing.empty())
        return true;
    session.dialogs().tell(missingRuntimeFilesText(missing), applicationTitle, MessageIcon::critical);
    return false;
}

void lookForSimulatorModule(Session& session) {
    const std::string fsPath = session.configuration().fsPath();
    session.log().write("simulator folder: " + fsPath);
    if (!findIgnoringCase(fsPath, "modules/fsuipc.dll"))
        session.dialogs().tell(
            "FSUIPC was not found on your system, communication with FS will not be possible");
}

void preparePreview(Session& session, StartUpWindows& windows, const RuntimeFiles& files,
                    const std::vector<std::string>& table) {
    if (files.missing(table).empty()) {
        windows.initialisePreview();
        return;
    }
    session.dialogs().tell(
        "The graphical DLL files could not be found on your system. Please download the latest "
        "version from the web site of the library\r\n"
        "the chapter on the preview in the manual tells where\r\n"
        "Quillset XML will continue without the dynamic preview now");
}

/// Names each stage on the splash, and remembers the last one.
class Stages {
public:
    explicit Stages(StartUpWindows& windows)
        : windows_(windows) {}
    void begin(const char* name) {
        current_ = name;
        windows_.setSplashText(current_);
    }
    [[nodiscard]] const std::string& current() const { return current_; }

private:
    StartUpWindows& windows_;
    std::string current_;
};

// The window opens after a failure too, but what would have come next is not there.
void tellWhatIsMissing(Session& session, const std::string& stage) {
    session.dialogs().tell(
        "The start was not completed: it failed at \"" + stage +
            "\". What comes after that is missing, which can be the catalogue, the link to the "
            "simulator and the preview of buildings.\r\n\r\nObjects > Rescan object tree "
            "reads the catalogue again. If the settings in " +
            session.files().config() + " are to blame, end the program, remove that file and start again.",
        errorTitle, MessageIcon::critical);
}

// False when the program must end.
bool runStages(Session& session, StartUpWindows& windows, const StartUpOptions& options, Stages& stages) {
    stages.begin("Creating internal objects and variables");
    const RuntimeFiles files(session.files().executable, options.windowsFolder);
    stages.begin("Reading configuration");
    removeTemporaryFiles(session.files().undo);
    if (!readConfiguration(session, options.fsPath))
        return false;
    session.recentFiles().changed.notify();
    stages.begin("Docking windows");
    windows.dockWindows();
    stages.begin("Reading available objects");
    session.rescanCatalogue();
    stages.begin("Checking for runtime files");
    if (!runtimeFilesPresent(session, files, options.runtimeFiles))
        return false;
    lookForSimulatorModule(session);
    stages.begin("Initializing generic building preview");
    preparePreview(session, windows, files, options.textureConverter);
    return true;
}

} // namespace

std::string registeredSimulatorFolder(const Registry& registry) {
    return registry.nativePath(
        registry.text("SOFTWARE\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0", "EXE Path"));
}

bool readConfiguration(Session& session, const std::optional<std::string>& fsPath) {
    Configuration& configuration = session.configuration();
    const std::string file = session.files().config();
    if (fileExists(file) || folderExists(file)) {
        if (const std::optional<std::string> problem = configuration.load(file)) {
            session.dialogs().tell(
                "Failed to load config.xml file, please remove the current config.xml and restart "
                "Quillset XML",
                errorTitle, MessageIcon::critical,
                problem->find(file) == std::string::npos ? file + ": " + *problem : *problem);
            return false;
        }
        if (fsPath)
            configuration.setFsPath(*fsPath);
        return true;
    }
    const std::string folder = simulatorFolder(session, fsPath);
    configuration.createFresh(folder);
    if (!folder.empty())
        return true;
    // The unfinished last word is deliberate: the text is known to users as it is.
    session.dialogs().tell(
        "The path to Fs2004 could not be read from the registry, please update the config.xml file manual",
        errorTitle, MessageIcon::critical);
    return false;
}

StartUpOutcome startUp(Session& session, StartUpWindows& windows, const StartUpOptions& options) {
    bool ready = true;
    Stages stages(windows);
    const bool complete = session.errors().trapped("MDIForm_Load", "MDIForm1", [&] {
        windows.showSplash();
        ready = runStages(session, windows, options, stages);
    });
    session.errors().trapped("MDIForm_Load", "MDIForm1", [&] { windows.closeSplash(); });
    if (!complete)
        tellWhatIsMissing(session, stages.current());
    return ready ? StartUpOutcome::ready : StartUpOutcome::programEnds;
}

} // namespace quillset
