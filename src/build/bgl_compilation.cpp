#include "build/bgl_compilation.h"

#include "base/folder_lock.h"
#include "base/paths.h"
#include "base/runtime_error.h"
#include "base/same_file.h"
#include "build/command_line.h"
#include "build/compiler_command.h"
#include "build/console_text.h"

namespace quillset {

namespace {

/// Removes the working files however the command ends. Their own removal may fail (a virus scanner holds
/// one): that must not replace the error that is under way.
class WorkingFiles {
public:
    WorkingFiles(FileOperations& files, std::vector<std::string> paths)
        : files_(files)
        , paths_(std::move(paths)) {}
    WorkingFiles(const WorkingFiles&) = delete;
    WorkingFiles& operator=(const WorkingFiles&) = delete;
    ~WorkingFiles() {
        for (const std::string& path : paths_) {
            try {
                files_.remove(path);
            } catch (const RuntimeError&) { // the error under way is the one to report
            }
        }
    }

    /// The regular end of the command: here a failure is reported.
    void remove() {
        while (!paths_.empty()) {
            const std::string path = paths_.front();
            paths_.erase(paths_.begin());
            files_.remove(path);
        }
    }

private:
    FileOperations& files_;
    std::vector<std::string> paths_;
};

/// Ties the log to one run of the compiler.
class WatchedRun {
public:
    WatchedRun(DOSOutputs& runner, CompileLog& log, CompileOutcome& outcome)
        : runner_(runner)
        , pieces_(runner.ReceiveOutputs.connect([&log](const std::string& piece) { log.append(piece); })) {
        runner_.waitObserver = [&runner, &log, &outcome] {
            if (log.wait() == WaitAnswer::endCompiler) {
                outcome = CompileOutcome::endedByUser;
                runner.terminate();
            }
        };
    }
    WatchedRun(const WatchedRun&) = delete;
    WatchedRun& operator=(const WatchedRun&) = delete;
    ~WatchedRun() { runner_.waitObserver = nullptr; }

private:
    DOSOutputs& runner_;
    Connection pieces_;
};

} // namespace

RememberedOutput rememberedOutput(const std::vector<BglPathEntry>& entries, const std::string& sceneryPath) {
    RememberedOutput found;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (sameIgnoringCase(entries[i].fileName, sceneryPath))
            found = {i, foldedForStorage(entries[i].output)};
    }
    return found;
}

void BglCompilation::run(const std::function<void(const std::string& path)>& saveDocument) {
    const RememberedOutput remembered = rememberedOutput(with_.settings.bglPaths(), with_.settings.xmlPath());
    const std::string chosen = chooseOutput(remembered);
    if (chosen.empty())
        return;
    if (const std::string reason = reasonToRefuse(chosen); !reason.empty()) {
        with_.dialogs.tell(reason, applicationTitle, MessageIcon::critical);
        return;
    }
    with_.settings.setBglPath(remembered.index, chosen);
    // The working files have the same names for every running program of this folder.
    const std::unique_ptr<FolderLock> lock = tryLock(workingFile(".quillset-compile.lock"));
    if (!lock) {
        with_.dialogs.tell("Another compilation is running. Please try again when it has ended.");
        return;
    }

    // Left by a run whose result could not be moved: it must not pass for the result of this one.
    with_.files.remove(workingFile(compileBglName));
    const std::string xml = workingFile(compileXmlName);
    const std::string batch = workingFile(compileBatName);
    WorkingFiles working(with_.files, {xml, batch});
    saveDocument(xml);
    writeFileAtomically(with_.files, batch, toConsoleCodePage(compileBatch(with_.programFolder)));
    const CompileOutcome outcome = runCompiler();
    with_.log.showModal();
    if (outcome == CompileOutcome::endedByUser) {
        with_.files.remove(workingFile(compileBglName)); // it may be cut short
        working.remove();
        with_.activityLine.show("compilation ended");
        return;
    }
    if (fileExists(workingFile(compileBglName)))
        moveOutput(chosen);
    working.remove();
    // Deliberate: also when the compiler made nothing. Its own messages are the sign of failure.
    with_.activityLine.show(chosen + " created");
}

std::string BglCompilation::chooseOutput(const RememberedOutput& remembered) const {
    FileRequest request;
    request.title = "Generate BGL file";
    request.filter = "BGL file (*.bgl)|*.bgl|";
    request.suggestedName = remembered.output;
    return with_.dialogs.saveFile(request);
}

std::string BglCompilation::reasonToRefuse(const std::string& chosen) const {
    const std::string scenery = with_.settings.xmlPath();
    if (sameFile(chosen, scenery))
        return "The BGL file cannot have the name of the scenery file itself:\r\n" + chosen;
    for (const char* const name : {compileXmlName, compileBatName}) {
        if (sameFile(chosen, workingFile(name)))
            return "This file name is needed for the compilation itself:\r\n" + chosen;
    }
    for (const char* const name : {compileXmlName, compileBatName, compileBglName}) {
        if (sameFile(scenery, workingFile(name)))
            return "The compilation would overwrite the scenery file, please save it under another name "
                   "first:\r\n" +
                   scenery;
    }
    return {};
}

CompileOutcome BglCompilation::runCompiler() {
    DOSOutputs& runner = with_.runner;
    const ProcessRequest request = compilerCommand(with_.programFolder, with_.foldersAfterPath);
    std::vector<std::string> words{request.program};
    words.insert(words.end(), request.arguments.begin(), request.arguments.end());
    runner.CommandLine = commandLineText(words);
    runner.surroundings = request.surroundings;

    CompileRun run;
    const WatchedRun watched(runner, with_.log, run.outcome);
    with_.log.runBegins(runner.CommandLine);
    run.printed = !runner.ExecuteCommand().empty();
    run.end = runner.ended();
    run.missing = compilerMissingText(with_.programFolder);
    if (run.outcome == CompileOutcome::madeNothing) {
        if (fileExists(workingFile(compileBglName)))
            run.outcome = CompileOutcome::madeScenery;
        else if (!runner.started() || meansNoCompiler(run.end))
            run.outcome = CompileOutcome::notFound;
    }
    with_.log.runEnds(run.outcome, compileVerdict(run));
    return run.outcome;
}

void BglCompilation::moveOutput(const std::string& chosen) {
    const std::string made = workingFile(compileBglName);
    if (sameFile(made, chosen))
        return; // it lies where it is wanted
    // By way of the bytes and not by renaming: the target may be on another volume, and neither the old nor
    // the new file may be lost half-way.
    try {
        writeFileAtomically(with_.files, chosen, readWholeFile(made));
    } catch (const RuntimeError& error) {
        throw RuntimeError(static_cast<ErrorNumber>(error.number()),
                           std::string(error.what()) + "\r\nThe new scenery is kept as " + made);
    }
    with_.files.remove(made);
}

std::string BglCompilation::workingFile(const char* name) const {
    return joinPath(with_.programFolder, name);
}

} // namespace quillset
