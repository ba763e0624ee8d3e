#pragma once

#include <memory>
#include <string>

namespace quillset {

/// A lock file, held as long as the object or the process lives. The file is removed at the end; one that a
/// crash has left behind is no obstacle.
class FolderLock {
public:
    virtual ~FolderLock() = default;
};

/// Takes the lock; null when another process, or another object of this one, holds it. Throws RuntimeError
/// when the file can be neither made nor opened.
[[nodiscard]] std::unique_ptr<FolderLock> tryLock(const std::string& path);

} // namespace quillset
