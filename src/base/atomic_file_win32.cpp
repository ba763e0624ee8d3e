#include "base/atomic_file.h"
#include "base/paths.h"
#include "base/runtime_error.h"
#include "base/wide_path.h"

#include <algorithm>
#include <windows.h>

namespace quillset {

namespace {

constexpr DWORD diskQuotaExceeded = 1295; // the cross compiler's headers have no name for it

[[noreturn]] void fail(DWORD error, const std::string& path) {
    if (error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_USER_MAPPED_FILE)
        throw RuntimeError(ErrorNumber::permissionDenied,
                           "Permission denied, another program uses the file: " + path);
    if (error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL || error == diskQuotaExceeded)
        throw RuntimeError(ErrorNumber::diskFull, "Disk full: " + path);
    if (error == ERROR_PATH_NOT_FOUND)
        throw RuntimeError(ErrorNumber::pathNotFound, "Path not found: " + path);
    throw fileError(std::error_code(static_cast<int>(error), std::system_category()), path);
}

class FileHandle {
public:
    explicit FileHandle(HANDLE handle)
        : handle_(handle) {}
    ~FileHandle() { close(); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    [[nodiscard]] bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE get() const { return handle_; }
    bool close() {
        const bool closed = !isOpen() || CloseHandle(handle_) != 0;
        handle_ = INVALID_HANDLE_VALUE;
        return closed;
    }

private:
    HANDLE handle_;
};

bool writeAll(HANDLE file, std::string_view bytes) {
    constexpr std::size_t portion = std::size_t{1} << 26;
    while (!bytes.empty()) {
        DWORD done = 0;
        if (WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), portion)), &done,
                      nullptr) == 0)
            return false;
        bytes.remove_prefix(done);
    }
    return true;
}

std::string linkTarget(const std::string& path) {
    const FileHandle opened(CreateFileW(widePath(path).c_str(), 0,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!opened.isOpen())
        fail(GetLastError(), path);
    std::wstring name(32768, L'\0'); // the longest path there is
    const DWORD length = GetFinalPathNameByHandleW(opened.get(), name.data(), static_cast<DWORD>(name.size()),
                                                   VOLUME_NAME_DOS);
    if (length == 0 || length >= name.size())
        return path;
    name.resize(length);
    return toText(std::filesystem::path(name));
}

// False while another program holds the file. Asked before each try, since a failed ReplaceFileW can leave
// the empty file behind that it meant for a backup.
bool mayBeReplaced(const std::wstring& path) {
    const FileHandle opened(CreateFileW(path.c_str(), DELETE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return opened.isOpen() || GetLastError() == ERROR_FILE_NOT_FOUND;
}

// True when the exchange worked. Where ReplaceFileW is not known (some network folders) or gave up half-way,
// a plain move over the target does.
bool exchange(const std::wstring& from, const std::wstring& to) {
    if (GetFileAttributesW(to.c_str()) != INVALID_FILE_ATTRIBUTES &&
        ReplaceFileW(to.c_str(), from.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) !=
            0)
        return true;
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

class WindowsFiles : public FileOperations {
public:
    std::string writableTarget(const std::string& path) override {
        const DWORD attributes = GetFileAttributesW(widePath(path).c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES) {
            if (GetLastError() != ERROR_FILE_NOT_FOUND)
                fail(GetLastError(), path);
            return path;
        }
        if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            throw RuntimeError(ErrorNumber::pathAccess, "Not a file but a folder: " + path);
        if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
            throw RuntimeError(ErrorNumber::permissionDenied,
                               "Permission denied, the file is write-protected: " + path);
        return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 ? linkTarget(path) : path;
    }

    void writeAndFlush(const std::string& path, const FileContent& content,
                       const std::string& target) override {
        FileHandle file(CreateFileW(widePath(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        const auto check = [&](bool done) {
            if (!done)
                fail(GetLastError(), target);
        };
        check(file.isOpen());
        content([&](std::string_view piece) { check(writeAll(file.get(), piece)); });
        check(FlushFileBuffers(file.get()) != 0);
        check(file.close());
    }

    void replace(const std::string& from, const std::string& to) override {
        const std::wstring wideFrom = widePath(from);
        const std::wstring wideTo = widePath(to);
        // Virus scanners and indexers open a file just written for a moment.
        constexpr int tries = 8;
        constexpr DWORD firstWait = 10; // milliseconds, doubled each time: 1.3 seconds in all
        for (int attempt = 0; !mayBeReplaced(wideTo) || !exchange(wideFrom, wideTo); ++attempt) {
            const DWORD error = GetLastError();
            if (attempt + 1 == tries || (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED &&
                                         error != ERROR_LOCK_VIOLATION && error != ERROR_USER_MAPPED_FILE))
                fail(error, to);
            Sleep(firstWait << attempt);
        }
    }

    void flushFolder(const std::string&) override {} // NTFS journals the entry with the exchange

    void remove(const std::string& path) override {
        if (DeleteFileW(widePath(path).c_str()) == 0 && GetLastError() != ERROR_FILE_NOT_FOUND)
            fail(GetLastError(), path);
    }
};

} // namespace

std::unique_ptr<FileOperations> systemFileOperations() {
    return std::make_unique<WindowsFiles>();
}

} // namespace quillset
