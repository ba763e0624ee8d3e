#include "build/compiler_command.h"

#include "base/paths.h"
#include "build/program_search.h"

#include <cstdlib>

namespace quillset {

namespace {

/// The Windows compiler in one of the folders; its file name is spelled in several ways.
std::optional<std::string> findWindowsCompiler(const std::vector<std::string>& folders) {
    for (const std::string& folder : folders) {
        const std::optional<std::string> found = findIgnoringCase(folder, "bglcomp.exe");
        if (found && fileExists(*found))
            return found;
    }
    return std::nullopt;
}

} // namespace

ProcessRequest compilerCommand(const std::string& programFolder,
                               const std::vector<std::string>& foldersAfterPath) {
    const char* const variable = std::getenv("PATH");
    const std::string searchPath = variable == nullptr ? "" : variable;
    ProcessRequest request{"bglcomp", {compileXmlName}, {programFolder, {}, foldersAfterPath}};

    std::optional<std::string> compiler = findProgram(joinPath(programFolder, "bglcomp"), {});
    if (!compiler)
        compiler = findProgram("bglcomp", searchPath);
    if (compiler) {
        request.program = *compiler;
        return request;
    }
    std::vector<std::string> folders = pathFolders(searchPath);
    folders.insert(folders.begin(), programFolder);
    const std::optional<std::string> wine = findProgram("wine", searchPath);
    const std::optional<std::string> windowsCompiler = findWindowsCompiler(folders);
    if (wine && windowsCompiler) {
        request.program = *wine;
        request.arguments.insert(request.arguments.begin(), *windowsCompiler);
    }
    return request; // else by its name, which the PATH with our own folder at its end may still find
}

} // namespace quillset
