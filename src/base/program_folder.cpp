#include "base/program_folder.h"

#include "base/atomic_file.h"
#include "base/paths.h"
#include "base/runtime_error.h"

#include <fstream>

namespace quillset {

namespace {

constexpr int mostInstances = 1000;

void makeFolder(const std::string& folder) {
    std::error_code failed;
    std::filesystem::create_directories(toPath(folder), failed);
    if (failed && !folderExists(folder))
        throw fileError(failed, folder);
}

std::unique_ptr<FolderLock> tryFolder(const std::string& folder) {
    makeFolder(folder);
    return tryLock(joinPath(folder, ".quillset-instance.lock"));
}

} // namespace

bool isWritable(const std::string& folder) {
    const std::filesystem::path probe = toPath(workingCopyIn(folder));
    const bool made = std::ofstream(probe).is_open();
    std::error_code ignored;
    std::filesystem::remove(probe, ignored);
    return made;
}

std::string packagedDataFolder(const std::string& executableFolder) {
    return joinPath(joinPath(folderOf(executableFolder), "share"), "quillset-xml");
}

std::string chooseDataFolder(const std::string& executableFolder, const std::string& userDataFolder,
                             const std::optional<std::string>& wanted) {
    std::string folder = userDataFolder;
    if (wanted)
        folder = *wanted;
    else if (!folderExists(packagedDataFolder(executableFolder)) && isWritable(executableFolder))
        folder = executableFolder;
    makeFolder(folder);
    if (!isWritable(folder))
        throw RuntimeError(ErrorNumber::pathAccess,
                           "The program folder, which takes the settings and the undo files, cannot be "
                           "written: " +
                               folder);
    return folder;
}

InstanceFolder::InstanceFolder(const std::string& dataFolder)
    : path_(dataFolder)
    , lock_(tryFolder(dataFolder)) {
    for (int number = 2; !lock_ && number <= mostInstances; ++number) {
        path_ = joinPath(dataFolder, "instance" + std::to_string(number));
        ownFolder_ = true;
        lock_ = tryFolder(path_);
    }
    if (!lock_)
        throw RuntimeError(ErrorNumber::pathAccess, "Too many instances use the folder: " + dataFolder);
}

InstanceFolder::~InstanceFolder() {
    lock_.reset();
    std::error_code ignored; // not empty: files that a crash has left stay for the next one
    if (ownFolder_)
        std::filesystem::remove(toPath(path_), ignored);
}

} // namespace quillset
