#include "shell/program_files.h"

#include "base/paths.h"

#include <filesystem>

namespace quillset {

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
    return paths;
}

std::string ProgramFiles::shipped(const std::string& name) const {
    const std::string own = joinPath(data, name);
    const std::string share = joinPath(joinPath(folderOf(executable), "share"), "quillset-xml");
    for (const std::string& candidate : {own, joinPath(executable, name), joinPath(share, name)})
        if (fileExists(candidate))
            return candidate;
    return own;
}

std::vector<std::string> ProgramFiles::manualPlaces() const {
    const std::string share = joinPath(joinPath(folderOf(executable), "share"), "quillset-xml");
    return {joinPath(executable, "docs"), joinPath(share, "docs")};
}

std::optional<std::string> ProgramFiles::manual() const {
    for (const std::string& folder : manualPlaces())
        if (std::string page = joinPath(folder, "index.html"); fileExists(page))
            return page;
    return std::nullopt;
}

std::string ProgramFiles::compilerFolder() const {
    return joinPath(executable, "compiler");
}

} // namespace quillset
