#include "base/paths.h"
#include "base/user_folder.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace quillset {

namespace {

// Only absolute folders count; others would depend on where the program was started.
std::string folderFrom(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? value : std::string();
}

} // namespace

std::string homeFolder() {
    std::string home = folderFrom("HOME");
    if (!home.empty())
        return home;
    const passwd* const user = ::getpwuid(::getuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : std::string();
}

std::string userDataFolder() {
    const std::string data = folderFrom("XDG_DATA_HOME");
    return joinPath(data.empty() ? joinPath(homeFolder(), ".local/share") : data, "quillset-xml");
}

} // namespace quillset
