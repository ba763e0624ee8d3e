#include "shell/recent_files.h"

#include <algorithm>

namespace quillset {

void RecentFiles::add(const std::string& path) {
    std::vector<std::string> paths = configuration_.lastFiles();
    const auto held = std::find(paths.begin(), paths.end(), path);
    if (held != paths.end())
        paths.erase(held);
    paths.insert(paths.begin(), path);
    if (paths.size() > limit)
        paths.resize(limit);
    configuration_.setLastFiles(paths);
    changed.notify();
}

void RecentFiles::remove(const std::string& path) {
    std::vector<std::string> paths = configuration_.lastFiles();
    const auto held = std::find(paths.begin(), paths.end(), path);
    if (held == paths.end())
        return;
    paths.erase(held);
    configuration_.setLastFiles(paths);
    changed.notify();
}

} // namespace quillset
