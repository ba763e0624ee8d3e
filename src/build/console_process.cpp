#include "build/console_process.h"

#include "base/paths.h"
#include "build/program_search.h"

#include <algorithm>
#include <optional>

namespace quillset {

namespace {

bool hasName(const std::string& entry, const std::string& name) {
    if (entry.size() <= name.size() || entry[name.size()] != '=')
        return false;
    const std::string own = entry.substr(0, name.size());
#ifdef _WIN32
    return sameIgnoringCase(own, name);
#else
    return own == name;
#endif
}

void setVariable(std::vector<std::string>& entries, const std::string& name, const std::string& value) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const std::string& entry) { return hasName(entry, name); });
    if (found == entries.end())
        entries.push_back(name + '=' + value);
    else
        *found = found->substr(0, name.size() + 1) + value; // keeps the spelling of the name
}

} // namespace

std::string environmentValue(const std::vector<std::string>& entries, const std::string& name) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const std::string& entry) { return hasName(entry, name); });
    return found == entries.end() ? std::string() : found->substr(name.size() + 1);
}

std::vector<std::string> childEnvironment(std::vector<std::string> own,
                                          const ProcessSurroundings& surroundings) {
    for (const auto& [name, value] : surroundings.environment)
        setVariable(own, name, value);
    std::string path = environmentValue(own, "PATH");
    for (const std::string& folder : surroundings.foldersAfterPath) {
        if (!path.empty())
            path += pathListSeparator;
        path += folder;
    }
    if (!surroundings.foldersAfterPath.empty())
        setVariable(own, "PATH", path);
    return own;
}

} // namespace quillset
