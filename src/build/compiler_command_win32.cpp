#include "build/compiler_command.h"

#include <cstdlib>

namespace quillset {

ProcessRequest compilerCommand(const std::string& programFolder,
                               const std::vector<std::string>& foldersAfterPath) {
    // Deliberate: the interpreter gets the bare file name and starts in the program folder, so that no folder
    // name, whatever characters it has, passes through the interpreter's own parsing.
    return {
        "cmd.exe", {"/d", "/c", std::string(".\\") + compileBatName}, {programFolder, {}, foldersAfterPath}};
}

} // namespace quillset
