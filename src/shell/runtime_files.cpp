#include "shell/runtime_files.h"

#include "base/paths.h"

namespace quillset {

RuntimeFiles::RuntimeFiles(std::string programFolder, const std::string& windowsFolder) {
    folders_.push_back(std::move(programFolder));
    if (!windowsFolder.empty()) {
        folders_.push_back(joinPath(windowsFolder, "system"));
        folders_.push_back(joinPath(windowsFolder, "system32"));
    }
}

bool RuntimeFiles::present(const std::string& name) const {
    for (const std::string& folder : folders_)
        if (fileExists(joinPath(folder, name)))
            return true;
    return false;
}

std::vector<std::string> RuntimeFiles::missing(const std::vector<std::string>& table) const {
    std::vector<std::string> names;
    for (const std::string& name : table)
        if (!present(name))
            names.push_back(name);
    return names;
}

const std::vector<std::string>& runtimeFileTable() {
    // The loader of every platform that we build for refuses to start a program whose libraries are missing,
    // and the rest is linked in: nothing is left to look for.
    static const std::vector<std::string> table;
    return table;
}

const std::vector<std::string>& textureConverterTable() {
    static const std::vector<std::string> table;
    return table;
}

std::string missingRuntimeFilesText(const std::vector<std::string>& missing) {
    std::string text = "The following runtime files could not be found in your Windows system folder\r\n"
                       "or in the folder of Quillset XML. Please download the full installer version\r\n"
                       "which includes all needed runtime files\r\n";
    for (const std::string& name : missing)
        text += "\r\n" + name;
    return text;
}

} // namespace quillset
