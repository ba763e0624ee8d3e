#include "base/input_file.h"
#include "base/runtime_error.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillset {

struct InputFile::Handle {
    int descriptor = -1;
    std::string path;
    std::size_t size = 0;

    ~Handle() {
        if (descriptor >= 0)
            ::close(descriptor);
    }
    [[noreturn]] void fail(int error) const {
        throw fileError(std::error_code(error, std::generic_category()), path);
    }
};

InputFile::InputFile(const std::string& path)
    : handle_(std::make_unique<Handle>()) {
    handle_->path = path;
    // Without O_NONBLOCK, opening a pipe that nobody writes to would wait for ever.
    handle_->descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    struct stat status {};
    if (handle_->descriptor < 0 || ::fstat(handle_->descriptor, &status) != 0)
        handle_->fail(errno);
    if (S_ISDIR(status.st_mode))
        throw RuntimeError(ErrorNumber::pathAccess, "Not a file but a folder: " + path);
    if (!S_ISREG(status.st_mode))
        throw RuntimeError(ErrorNumber::pathAccess, "Not a regular file: " + path);
    if (static_cast<std::uint64_t>(status.st_size) > largestFile)
        throw RuntimeError(ErrorNumber::outOfMemory, "File too large to be read: " + path);
    handle_->size = static_cast<std::size_t>(status.st_size);
}

InputFile::~InputFile() = default;

std::size_t InputFile::size() const {
    return handle_->size;
}

std::size_t InputFile::read(char* buffer, std::size_t count) {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got = ::read(handle_->descriptor, buffer + done, count - done);
        if (got == 0)
            break;
        if (got > 0)
            done += static_cast<std::size_t>(got);
        else if (errno != EINTR)
            handle_->fail(errno);
    }
    return done;
}

} // namespace quillset
