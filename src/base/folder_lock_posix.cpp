#include "base/folder_lock.h"
#include "base/runtime_error.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillset {

namespace {

class PosixLock : public FolderLock {
public:
    PosixLock(int descriptor, std::string path)
        : descriptor_(descriptor)
        , path_(std::move(path)) {}
    ~PosixLock() override {
        ::unlink(path_.c_str()); // while it is held, so that nobody's new file is removed
        ::close(descriptor_);
    }
    PosixLock(const PosixLock&) = delete;
    PosixLock& operator=(const PosixLock&) = delete;

private:
    int descriptor_;
    std::string path_;
};

// The previous holder may have removed the file between our opening and our locking it.
bool isStill(int descriptor, const std::string& path) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(descriptor, &opened) == 0 && ::stat(path.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

} // namespace

std::unique_ptr<FolderLock> tryLock(const std::string& path) {
    for (;;) {
        const int descriptor = ::open(path.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (descriptor < 0)
            throw fileError(std::error_code(errno, std::generic_category()), path);
        const bool taken = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        const bool held = !taken && (errno == EWOULDBLOCK || errno == EINTR);
        if (held) {
            ::close(descriptor);
            return nullptr;
        }
        // Some network file systems know no locks: then the folder is used without one.
        if (!taken || isStill(descriptor, path))
            return std::make_unique<PosixLock>(descriptor, path);
        ::close(descriptor);
    }
}

} // namespace quillset
