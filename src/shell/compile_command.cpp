#include "shell/compile_command.h"

#include "base/runtime_error.h"

#include <algorithm>

namespace quillset {

namespace {

bool written(FileOperations& files, const std::string& path, const std::string& bytes) {
    try {
        writeFileAtomically(files, path, bytes);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace

CompileCommand::CompileCommand(Session& session, ProcessStarter& starter, CompileLog& log)
    : session_(session)
    , log_(session.log(), log)
    , runner_(session.dialogs(), starter)
    , compilation_({*this,
                    session.dialogs(),
                    session.fileOperations(),
                    session.activity(),
                    runner_,
                    log_,
                    session.files().data,
                    {session.files().compilerFolder()}}) {}

void CompileCommand::compile() {
    session_.commitEdits();
    if (!session_.document().isOpen())
        return;
    if (!session_.document().hasRoot()) {
        session_.dialogs().tell(
            "There is nothing to compile: the scenery file could not be read, or has no content.", errorTitle,
            MessageIcon::critical);
        return;
    }
    session_.errors().runUntrapped(
        [&] {
            compilation_.run([&](const std::string& path) {
                source_ = session_.document().serialise();
                writeFileAtomically(session_.fileOperations(), path, source_);
            });
        },
        [&] { keepRecoveryFile(); });
}

void CompileCommand::keepRecoveryFile() {
    session_.errors().trapped("mCompile_Click", "MDIForm1", [&] {
        const std::string bytes = session_.document().fileBytes();
        const std::vector<std::string> paths = session_.files().recoveries(session_.document().path());
        const auto path = std::find_if(paths.begin(), paths.end(), [&](const std::string& candidate) {
            return written(session_.fileOperations(), candidate, bytes);
        });
        if (path == paths.end())
            throw RuntimeError(ErrorNumber::pathAccess,
                               "The scenery could be written to none of the places " + paths.front() +
                                   ", ... " + paths.back());
        session_.dialogs().tell("Your scenery as it stands now was written to " + *path);
    });
}

void CompileCommand::NotedLog::runBegins(const std::string& commandLine) {
    file_.write("compile: " + commandLine);
    window_.runBegins(commandLine);
}

void CompileCommand::NotedLog::runEnds(CompileOutcome outcome, const std::string& verdict) {
    file_.write("compile: " + verdict);
    window_.runEnds(outcome, verdict);
}

std::string CompileCommand::xmlPath() const {
    return session_.configuration().xmlPath();
}

std::vector<BglPathEntry> CompileCommand::bglPaths() const {
    std::vector<BglPathEntry> entries;
    for (const BglPath& path : session_.configuration().bglPaths())
        entries.push_back({path.fileName, path.output});
    return entries;
}

void CompileCommand::setBglPath(std::size_t index, const std::string& output) {
    session_.configuration().setBglOutput(index, output);
}

} // namespace quillset
