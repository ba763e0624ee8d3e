#include "build/compiler_command.h"

#include "base/paths.h"
#include "build/program_search.h"

#include <algorithm>
#include <cstdlib>

namespace quillset {

namespace {

/// True when the program, links followed, lies in one of the folders.
bool liesIn(const std::vector<std::string>& folders, const std::string& program) {
    std::error_code failed;
    const std::filesystem::path folder = std::filesystem::canonical(toPath(program), failed).parent_path();
    return std::any_of(folders.begin(), folders.end(), [&](const std::string& other) {
        return std::filesystem::equivalent(folder, toPath(other), failed) && !failed;
    });
}

/// A package links our own compiler into the system's folder of programs. That does not make it an installed
/// one, which would win over the user's Windows compiler.
std::optional<std::string> findInstalledCompiler(const std::string& programFolder,
                                                 const std::vector<std::string>& searchFolders,
                                                 const std::vector<std::string>& ownFolders) {
    if (std::optional<std::string> wanted = findProgram(joinPath(programFolder, "bglcomp"), {}))
        return wanted;
    for (const std::string& folder : searchFolders)
        if (std::optional<std::string> found = findProgram(joinPath(folder, "bglcomp"), {});
            found && !liesIn(ownFolders, *found))
            return found;
    return std::nullopt;
}

/// The Windows compiler in one of the folders; its file name is spelled in several ways.
std::optional<std::string> findWindowsCompiler(const std::vector<std::string>& folders) {
    for (const std::string& folder : folders) {
        const std::optional<std::string> found = findIgnoringCase(folder, "bglcomp.exe");
        if (found && fileExists(*found))
            return found;
    }
    return std::nullopt;
}

std::vector<std::string> searchedFolders(const std::string& programFolder) {
    const char* const variable = std::getenv("PATH");
    std::vector<std::string> folders = pathFolders(variable == nullptr ? "" : variable);
    folders.insert(folders.begin(), programFolder);
    return folders;
}

} // namespace

ProcessRequest compilerCommand(const std::string& programFolder,
                               const std::vector<std::string>& foldersAfterPath) {
    const char* const variable = std::getenv("PATH");
    const std::string searchPath = variable == nullptr ? "" : variable;
    ProcessRequest request{"bglcomp", {compileXmlName}, {programFolder, {}, foldersAfterPath}};

    std::vector<std::string> folders = pathFolders(searchPath);
    if (const auto compiler = findInstalledCompiler(programFolder, folders, foldersAfterPath)) {
        request.program = *compiler;
        return request;
    }
    const std::optional<std::string> wine = findProgram("wine", searchPath);
    const std::optional<std::string> windowsCompiler = findWindowsCompiler(searchedFolders(programFolder));
    if (wine && windowsCompiler) {
        request.program = *wine;
        request.arguments.insert(request.arguments.begin(), *windowsCompiler);
    }
    return request; // else by its name, which the PATH with our own folder at its end may still find
}

std::optional<std::string> compilerInUse(const std::string& programFolder,
                                         const std::vector<std::string>& foldersAfterPath) {
    const ProcessRequest request = compilerCommand(programFolder, foldersAfterPath);
    if (request.arguments.size() > 1)
        return request.arguments.front() + ", run by " + request.program;
    const char* const path = std::getenv("PATH");
    std::optional<std::string> found = findProgram(request.program, path == nullptr ? "" : path);
    for (const std::string& folder : foldersAfterPath)
        if (!found)
            found = findProgram(joinPath(folder, request.program), {});
    return found;
}

std::string compilerMissingText(const std::string& programFolder) {
    if (const auto windowsCompiler = findWindowsCompiler(searchedFolders(programFolder)))
        return "The compiler could not be started: " + *windowsCompiler +
               " is a Windows program, and Wine, which runs it, is not installed.";
    return "The compiler bglcomp was not found. Put it (or bglcomp.exe, which needs Wine) into the folder " +
           programFolder + " or into a folder of the search path.";
}

bool meansNoCompiler(const std::optional<ProcessEnd>& /*end*/) {
    return false; // then it would not even have been started
}

} // namespace quillset
