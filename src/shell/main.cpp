#include "base/console_program.h"
#include "base/paths.h"
#include "base/program_folder.h"
#include "base/registry.h"
#include "base/runtime_error.h"
#include "base/user_folder.h"
#include "shell/batch_commands.h"
#include "shell/check_json.h"
#include "shell/command_line.h"
#include "shell/editor.h"
#include "shell/qt_clock.h"
#include "shell/qt_dialogs.h"
#include "simlink/simulator_recording.h"

#include <QApplication>
#include <QLoggingCategory>

#include <cstdlib>

namespace {

using namespace quillset;

// Without a display the toolkit would abort with a core dump; the user gets a sentence and an exit code
// instead.
void explainMissingDisplay(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) {
        writeConsole(ConsoleStream::error,
                     "quillset-xml: no display can be opened. Start the editor in a graphical session.\n");
        std::_Exit(1);
    }
    if (type == QtCriticalMsg)
        writeConsole(ConsoleStream::error, text.toStdString() + "\n");
}

// The simulator of this system, or a recording in its place. Throws RuntimeError.
std::unique_ptr<SimulatorServices> simulatorFor(const CommandLine& options, const Clock& clock) {
    if (options.replaySimulator) {
        Replay replay = replayedServices(readWholeFile(*options.replaySimulator));
        if (!replay.services)
            throw RuntimeError(ErrorNumber::invalidCall, *options.replaySimulator + ": " + replay.problem);
        return std::move(replay.services);
    }
    std::unique_ptr<SimulatorServices> services = systemSimulatorServices();
    return options.recordSimulator ? recordedServices(std::move(services), *options.recordSimulator, clock)
                                   : std::move(services);
}

// Paths are kept in the settings, where the next run may begin in another folder, and are told in messages.
CommandLine withAbsolutePaths(CommandLine options) {
    if (!options.file.empty())
        options.file = absolutePath(options.file);
    for (std::optional<std::string>* const path :
         {&options.fsPath, &options.programFolder, &options.recordSimulator, &options.replaySimulator})
        if (*path)
            *path = absolutePath(**path);
    return options;
}

int edit(const CommandLine& options) {
    const std::string executable = executableFolder();
    const std::string data = chooseDataFolder(executable, userDataFolder(), options.programFolder);
    const InstanceFolder instance(data);
    const std::unique_ptr<Registry> registry = systemRegistry();
    const QtClock clock;
    const std::unique_ptr<SimulatorServices> simulator = simulatorFor(options, clock);
    QtDialogs dialogs;
    // Deliberate: nothing is unwound or saved on an unexpected error; what went wrong must not reach the
    // user's files.
    Editor editor({options,
                   {executable, data, instance.path()},
                   dialogs,
                   *simulator,
                   [&registry] { return registeredSimulatorFolder(*registry); },
                   [] { std::_Exit(1); }});
    dialogs.setParent(&editor.window());
    return editor.start() ? QApplication::exec() : 1;
}

// The program folder of a command without a window. Only a compilation writes there; the others must not fail
// where nothing can be written. Nothing after a message.
std::optional<std::string> dataFolder(const std::string& executable, const CommandLine& options) {
    try {
        return chooseDataFolder(executable, userDataFolder(), options.programFolder);
    } catch (const RuntimeError& error) {
        if (options.action != CommandLine::Action::compile)
            return options.programFolder.value_or(userDataFolder());
        writeConsole(ConsoleStream::error,
                     std::string("quillset-xml: there is no folder for the working files (--program-folder "
                                 "DIR names one): ") +
                         error.what() + "\n");
        return std::nullopt;
    }
}

// No window, no display: nothing of the toolkit is started.
int runWithoutWindow(const CommandLine& options) {
    const std::string executable = executableFolder();
    const std::optional<std::string> data = dataFolder(executable, options);
    if (!data)
        return 1;
    const std::unique_ptr<FileOperations> files = systemFileOperations();
    const std::unique_ptr<ProcessStarter> processes = systemProcessStarter();
    const std::unique_ptr<Registry> registry = systemRegistry();
    return runBatchCommand(options, {*files,
                                     *processes,
                                     {executable, *data, {}},
                                     [&registry] { return registeredSimulatorFolder(*registry); },
                                     writeConsole,
                                     checkJson});
}

int run(int argc, char** argv, const CommandLine& options) {
    const QtMessageHandler usual = qInstallMessageHandler(explainMissingDisplay);
    QApplication application(argc, argv);
    qInstallMessageHandler(usual);
    QApplication::setApplicationName(QStringLiteral("quillset-xml"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLSET_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("quillset-xml"));
    // Fonts without the shapes of some script are no fault of the program; another font stands in.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.text.font.match=false"));
    try {
        return edit(options);
    } catch (const RuntimeError& error) {
        // Before there is a window: no folder for the settings, a recording that cannot be read.
        QtDialogs().tell(error.what(), errorTitle, MessageIcon::critical);
        return 1;
    }
}

} // namespace

int main(int argc, char** argv) {
    prepareConsole();
    const CommandLineResult parsed = parseCommandLine(programArguments(argc, argv));
    if (!parsed.error.empty()) {
        writeConsole(ConsoleStream::error, parsed.error);
        return 2;
    }
    switch (parsed.options.action) {
    case CommandLine::Action::showHelp:
        return writeConsole(ConsoleStream::output, helpText()) ? 0 : 1;
    case CommandLine::Action::showVersion:
        return writeConsole(ConsoleStream::output, versionText()) ? 0 : 1;
    case CommandLine::Action::start:
        return run(argc, argv, withAbsolutePaths(parsed.options));
    default:
        return runWithoutWindow(withAbsolutePaths(parsed.options));
    }
}
