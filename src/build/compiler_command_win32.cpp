#include "build/compiler_command.h"

#include "base/paths.h"
#include "build/program_search.h"

#include <cstdlib>

namespace quillset {

ProcessRequest compilerCommand(const std::string& programFolder,
                               const std::vector<std::string>& foldersAfterPath) {
    // Deliberate: the interpreter gets the bare file name and starts in the program folder, so that no folder
    // name, whatever characters it has, passes through the interpreter's own parsing.
    return {
        "cmd.exe", {"/d", "/c", std::string(".\\") + compileBatName}, {programFolder, {}, foldersAfterPath}};
}

// As the interpreter looks for it.
std::optional<std::string> compilerInUse(const std::string& programFolder,
                                         const std::vector<std::string>& foldersAfterPath) {
    const char* const path = std::getenv("PATH");
    std::vector<std::string> folders = pathFolders(path == nullptr ? "" : path);
    folders.insert(folders.begin(), programFolder);
    folders.insert(folders.end(), foldersAfterPath.begin(), foldersAfterPath.end());
    for (const std::string& folder : folders)
        for (const char* const name : {"bglcomp.exe", "bglcomp.bat", "bglcomp.cmd"})
            if (std::string program = joinPath(folder, name); fileExists(program))
                return program;
    return std::nullopt;
}

std::string compilerMissingText(const std::string& programFolder) {
    return "The compiler bglcomp was not found. Put bglcomp.exe into the folder " + programFolder +
           " or into a folder of the search path.";
}

bool meansNoCompiler(const std::optional<ProcessEnd>& end) {
    constexpr int noSuchCommand = 9009; // what the interpreter ends with
    return end && end->exitCode == noSuchCommand;
}

} // namespace quillset
