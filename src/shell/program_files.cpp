#include "shell/program_files.h"

#include "base/paths.h"
#include "base/program_folder.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quillset {

namespace {

/// What an earlier error has left stays.
std::string unusedName(const std::string& path) {
    const std::filesystem::path wanted = toPath(path);
    std::filesystem::path name = wanted;
    for (int number = 2; fileExists(toText(name)); ++number) {
        name = wanted.parent_path() / wanted.stem();
        name += " " + std::to_string(number);
        name += wanted.extension();
    }
    return toText(name);
}

} // namespace

std::string ProgramFiles::config() const {
    return joinPath(data, "config.xml");
}

std::string ProgramFiles::log() const {
    return joinPath(data, "quillset.log");
}

std::vector<std::string> ProgramFiles::recoveries(const std::string& sceneryPath) const {
    std::vector<std::string> paths{joinPath(undo, "recovery.xml"), sceneryPath + ".recovery"};
    std::error_code failed;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(failed);
    if (!failed)
        paths.push_back(toText(temporary / "quillset-recovery.xml"));
    std::transform(paths.begin(), paths.end(), paths.begin(), unusedName);
    return paths;
}

std::string ProgramFiles::shipped(const std::string& name) const {
    const std::string own = joinPath(data, name);
    const std::string packaged = packagedDataFolder(executable);
    for (const std::string& candidate : {own, joinPath(executable, name), joinPath(packaged, name)})
        if (fileExists(candidate))
            return candidate;
    return own;
}

std::vector<std::string> ProgramFiles::manualPlaces() const {
    return {joinPath(executable, "docs"), joinPath(packagedDataFolder(executable), "docs")};
}

std::optional<std::string> ProgramFiles::manual() const {
    for (const std::string& folder : manualPlaces())
        if (std::string page = joinPath(folder, "index.html"); fileExists(page))
            return page;
    return std::nullopt;
}

std::vector<std::string> ProgramFiles::pictureFolders() const {
    std::vector<std::string> folders{data};
    for (const std::string& further : {executable, packagedDataFolder(executable)})
        if (further != data)
            folders.push_back(further);
    return folders;
}

std::string ProgramFiles::compilerFolder() const {
    const std::string beside = joinPath(executable, "compiler");
    const std::string packaged = joinPath(folderOf(executable), "libexec/quillset-xml/compiler");
    return !folderExists(beside) && folderExists(packaged) ? packaged : beside;
}

} // namespace quillset
