#include "base/input_file.h"
#include "base/runtime_error.h"
#include "base/wide_path.h"

#include <algorithm>
#include <windows.h>

namespace quillset {

struct InputFile::Handle {
    HANDLE file = INVALID_HANDLE_VALUE;
    std::string path;
    std::size_t size = 0;

    ~Handle() {
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(file);
    }
    [[noreturn]] void fail() const {
        throw fileError(std::error_code(static_cast<int>(GetLastError()), std::system_category()), path);
    }
};

InputFile::InputFile(const std::string& path)
    : handle_(std::make_unique<Handle>()) {
    handle_->path = path;
    const std::wstring wide = widePath(path);
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        throw RuntimeError(ErrorNumber::pathAccess, "Not a file but a folder: " + path);
    handle_->file = CreateFileW(wide.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle_->file == INVALID_HANDLE_VALUE)
        handle_->fail();
    if (GetFileType(handle_->file) != FILE_TYPE_DISK)
        throw RuntimeError(ErrorNumber::pathAccess, "Not a regular file: " + path);
    LARGE_INTEGER size{};
    if (GetFileSizeEx(handle_->file, &size) == 0)
        handle_->fail();
    if (static_cast<std::uint64_t>(size.QuadPart) > largestFile)
        throw RuntimeError(ErrorNumber::outOfMemory, "File too large to be read: " + path);
    handle_->size = static_cast<std::size_t>(size.QuadPart);
}

InputFile::~InputFile() = default;

std::size_t InputFile::size() const {
    return handle_->size;
}

std::size_t InputFile::read(char* buffer, std::size_t count) {
    constexpr std::size_t portion = std::size_t{1} << 30;
    std::size_t done = 0;
    while (done < count) {
        DWORD got = 0;
        const auto wanted = static_cast<DWORD>(std::min(count - done, portion));
        if (ReadFile(handle_->file, buffer + done, wanted, &got, nullptr) == 0)
            handle_->fail();
        if (got == 0)
            break;
        done += got;
    }
    return done;
}

} // namespace quillset
