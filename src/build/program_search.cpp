#include "build/program_search.h"

#include "base/paths.h"

#include <algorithm>

namespace quillset {

namespace {

bool isExecutable(std::string_view path) {
    std::error_code failed;
    const std::filesystem::file_status status = std::filesystem::status(toPath(path), failed);
    using Permissions = std::filesystem::perms;
    const Permissions any = Permissions::owner_exec | Permissions::group_exec | Permissions::others_exec;
    return std::filesystem::is_regular_file(status) && (status.permissions() & any) != Permissions::none;
}

} // namespace

std::vector<std::string> pathFolders(std::string_view searchPath) {
    std::vector<std::string> folders;
    while (!searchPath.empty()) {
        const std::size_t end = std::min(searchPath.find(pathListSeparator), searchPath.size());
        if (end > 0)
            folders.emplace_back(searchPath.substr(0, end));
        searchPath.remove_prefix(std::min(end + 1, searchPath.size()));
    }
    return folders;
}

std::optional<std::string> findProgram(std::string_view name, std::string_view searchPath) {
    if (name.find('/') != std::string_view::npos)
        return isExecutable(name) ? std::optional(std::string(name)) : std::nullopt;
    for (const std::string& folder : pathFolders(searchPath)) {
        std::string candidate = joinPath(folder, name);
        if (isExecutable(candidate))
            return candidate;
    }
    return std::nullopt;
}

} // namespace quillset
