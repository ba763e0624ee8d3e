#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace quillset {

/// Files above this size (1 GiB) are not read: every text that the editor knows is far smaller.
inline constexpr std::uint64_t largestFile = std::uint64_t{1} << 30;

/// A regular file opened for reading. Its size is known before anything is allocated for it.
class InputFile {
public:
    /// Throws RuntimeError, naming the path: for a missing or unreadable file, a folder, a pipe or a device,
    /// and for a file of more than largestFile bytes. Never blocks.
    explicit InputFile(const std::string& path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Size in bytes when the file was opened.
    [[nodiscard]] std::size_t size() const;
    /// Reads up to `count` bytes and gives how many there were; fewer only at the end of the file.
    std::size_t read(char* buffer, std::size_t count);

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
};

} // namespace quillset
