#include "base/folder_lock.h"
#include "base/runtime_error.h"
#include "base/wide_path.h"

#include <windows.h>

namespace quillset {

namespace {

class WindowsLock : public FolderLock {
public:
    explicit WindowsLock(HANDLE file)
        : file_(file) {}
    ~WindowsLock() override { CloseHandle(file_); }
    WindowsLock(const WindowsLock&) = delete;
    WindowsLock& operator=(const WindowsLock&) = delete;

private:
    HANDLE file_;
};

} // namespace

// Not shared with anyone is lock enough; the system removes the file even after a crash.
std::unique_ptr<FolderLock> tryLock(const std::string& path) {
    const HANDLE file = CreateFileW(widePath(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file != INVALID_HANDLE_VALUE)
        return std::make_unique<WindowsLock>(file);
    const DWORD error = GetLastError();
    // Denied: another instance is just closing its file, which is about to be removed.
    if (error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED)
        return nullptr;
    throw fileError(std::error_code(static_cast<int>(error), std::system_category()), path);
}

} // namespace quillset
