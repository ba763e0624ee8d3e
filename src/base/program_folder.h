#pragma once

#include "base/folder_lock.h"

#include <memory>
#include <optional>
#include <string>

namespace quillset {

/// The folder of the running executable, symbolic links followed.
[[nodiscard]] std::string executableFolder();

/// True when a file can be made in the folder, which is tried.
[[nodiscard]] bool isWritable(const std::string& folder);

/// Where the data of a program in `executableFolder` ("bin") lies when a package has spread it over the
/// system's folders: "share/quillset-xml" beside that one. The folder need not be there.
[[nodiscard]] std::string packagedDataFolder(const std::string& executableFolder);

/// The folder for settings and working files, made when it is missing: `wanted` when given, else the
/// executable's own folder if it can be written (a copy that carries its settings with it), else the user's
/// data folder. A program that a package has put into the system's folders never takes those, also not when
/// root could write there. Throws RuntimeError when the folder cannot be made or written.
[[nodiscard]] std::string chooseDataFolder(const std::string& executableFolder,
                                           const std::string& userDataFolder,
                                           const std::optional<std::string>& wanted);

/// A folder that no other running instance uses, for files whose names would clash: the data folder itself
/// for the first instance, "instance2", "instance3", ... below it for further ones. Free again when the
/// object is destroyed, and after a crash too.
class InstanceFolder {
public:
    /// Throws RuntimeError when no folder can be had.
    explicit InstanceFolder(const std::string& dataFolder);
    ~InstanceFolder();
    InstanceFolder(const InstanceFolder&) = delete;
    InstanceFolder& operator=(const InstanceFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
    bool ownFolder_ = false; // a numbered one, removed at the end when it is empty
    std::unique_ptr<FolderLock> lock_;
};

} // namespace quillset
