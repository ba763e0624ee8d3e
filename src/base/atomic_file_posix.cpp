#include "base/atomic_file.h"
#include "base/paths.h"
#include "base/runtime_error.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillset {

namespace {

constexpr mode_t newFileMode = 0666; // less the user's mask
constexpr mode_t privateMode = 0600;
constexpr mode_t writeBits = 0222;

[[noreturn]] void fail(int error, const std::string& path) {
    // A used-up quota is a full disk to its user.
    throw fileError(std::error_code(error == EDQUOT ? ENOSPC : error, std::generic_category()), path);
}

class Descriptor {
public:
    explicit Descriptor(int number)
        : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int number() const { return number_; }
    /// Network file systems report a late write error only here.
    int close() {
        const int result = number_ >= 0 ? ::close(number_) : 0;
        number_ = -1;
        return result;
    }

private:
    int number_;
};

std::string followLinks(std::string path) {
    constexpr int mostLinks = 40; // what the system itself follows
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code failed;
        const std::filesystem::path target = std::filesystem::read_symlink(toPath(path), failed);
        if (failed)
            return path;
        path = toText(toPath(path).parent_path() / target);
    }
    fail(ELOOP, path);
}

void takeOver(int descriptor, const struct stat& from) {
    // Only the superuser may give a file away; others can keep the group at most. Where neither works the
    // file becomes the user's own, as an ordinary new file would.
    constexpr auto unchanged = static_cast<uid_t>(-1);
    const bool kept = ::fchown(descriptor, from.st_uid, from.st_gid) == 0 ||
                      ::fchown(descriptor, unchanged, from.st_gid) == 0;
    const mode_t groupBits = kept ? S_IRWXG : 0; // rights meant for one group must not go to another
    ::fchmod(descriptor, from.st_mode & (S_IRWXU | S_IRWXO | groupBits));
}

void writeAll(int descriptor, std::string_view bytes, const std::string& target) {
    while (!bytes.empty()) {
        const ssize_t done = ::write(descriptor, bytes.data(), bytes.size());
        if (done >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(done));
        else if (errno != EINTR)
            fail(errno, target);
    }
}

// A new file with the mode and the owner of `target`, where that is there.
std::unique_ptr<Descriptor> createLike(const std::string& path, const std::string& target) {
    struct stat old {};
    const bool replacesOne = ::stat(target.c_str(), &old) == 0;
    // Narrow until the mode is known, lest others read a private file's copy.
    auto file = std::make_unique<Descriptor>(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                                                    replacesOne ? privateMode : newFileMode));
    if (file->number() < 0) {
        if (errno == ENOENT)
            throw RuntimeError(ErrorNumber::pathNotFound, "Path not found: " + target);
        fail(errno, target);
    }
    if (replacesOne)
        takeOver(file->number(), old);
    return file;
}

class PosixFiles : public FileOperations {
public:
    std::string writableTarget(const std::string& path) override {
        std::string target = followLinks(path);
        struct stat status {};
        if (::stat(target.c_str(), &status) != 0) {
            if (errno != ENOENT)
                fail(errno, path);
            return target;
        }
        if (S_ISDIR(status.st_mode))
            throw RuntimeError(ErrorNumber::pathAccess, "Not a file but a folder: " + path);
        if (!S_ISREG(status.st_mode))
            throw RuntimeError(ErrorNumber::pathAccess, "Not a regular file: " + path);
        // The superuser may write to every file; the owner's wish counts all the same.
        if ((status.st_mode & writeBits) == 0 || ::access(target.c_str(), W_OK) != 0)
            throw RuntimeError(ErrorNumber::permissionDenied,
                               "Permission denied, the file is write-protected: " + path);
        return target;
    }

    void writeAndFlush(const std::string& path, const FileContent& content,
                       const std::string& target) override {
        const auto file = createLike(path, target);
        content([&](std::string_view piece) { writeAll(file->number(), piece, target); });
        if (::fsync(file->number()) != 0 || file->close() != 0)
            fail(errno, target);
    }

    void replace(const std::string& from, const std::string& to) override {
        if (std::rename(from.c_str(), to.c_str()) != 0)
            fail(errno, to);
    }

    void flushFolder(const std::string& target) override {
        const std::string folder = folderOf(target);
        Descriptor opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        // A folder that may be written but not listed cannot be opened, and some file systems know no flush
        // of a folder: the file itself is safe then too, only later.
        if (opened.number() >= 0 && ::fsync(opened.number()) != 0 && errno == EIO)
            fail(errno, target);
    }

    void remove(const std::string& path) override {
        if (::unlink(path.c_str()) != 0 && errno != ENOENT)
            fail(errno, path);
    }
};

} // namespace

std::unique_ptr<FileOperations> systemFileOperations() {
    return std::make_unique<PosixFiles>();
}

} // namespace quillset
