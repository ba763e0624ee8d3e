#include "shell/temporary_files.h"

#include "base/paths.h"

#include <chrono>
#include <filesystem>
#include <vector>

namespace quillset {

namespace {

namespace fs = std::filesystem;

// A working copy may belong to an instance that saves its settings into the same folder just now.
bool isOld(const fs::path& path) {
    std::error_code failed;
    const fs::file_time_type written = fs::last_write_time(path, failed);
    return !failed && fs::file_time_type::clock::now() - written > std::chrono::hours(24);
}

bool isTemporary(const fs::path& path) {
    const std::string name = toText(path.filename());
    const bool bitmap = name == "temp.bmp"; // the way of the preview's textures
    const bool snapshot = name.starts_with("undo") && name.ends_with(".xml.part");
    const bool workingCopy = name.starts_with(".quillset-") && name.ends_with(".tmp");
    return bitmap || snapshot || (workingCopy && isOld(path));
}

} // namespace

void removeTemporaryFiles(const std::string& instanceFolder) {
    std::vector<fs::path> found; // first all, since a folder that changes is listed as it pleases
    std::error_code failed;
    for (fs::directory_iterator it(toPath(instanceFolder), failed), end; !failed && it != end;
         it.increment(failed))
        if (isTemporary(it->path()))
            found.push_back(it->path());
    for (const fs::path& path : found)
        fs::remove(path, failed);
}

} // namespace quillset
