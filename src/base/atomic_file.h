#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillset {

/// Takes a file's content piece by piece.
using PieceSink = std::function<void(std::string_view piece)>;
/// Makes a file's content: calls the sink for each piece, in order.
using FileContent = std::function<void(const PieceSink&)>;
/// Content that is there already, in one piece; the bytes must outlive it.
[[nodiscard]] inline FileContent wholeContent(std::string_view bytes) {
    return [bytes](const PieceSink& put) { put(bytes); };
}

/// The operations of a crash-safe save, so that a test can let the n-th one fail. All throw RuntimeError
/// whose description names the file being saved, never the working copy.
class FileOperations {
public:
    virtual ~FileOperations() = default;
    /// The file that a save to `path` must replace: symbolic links are followed, also one whose target is
    /// missing. Throws for a folder, a device and a file that is write-protected (deliberate: replacing such
    /// a file by another one would be allowed by the file system, but not expected by its owner).
    [[nodiscard]] virtual std::string writableTarget(const std::string& path) = 0;
    /// Creates `path`, which must not exist, with the mode and, where possible, the owner of `target` if
    /// there is one, writes the content and forces it to the disk. What `content` throws goes on to the
    /// caller.
    virtual void writeAndFlush(const std::string& path, const FileContent& content,
                               const std::string& target) = 0;
    /// Puts `from` in the place of `to` in one step. The mode of the file that was there stays.
    virtual void replace(const std::string& from, const std::string& to) = 0;
    /// Forces the folder entry of `target` to the disk, where that is a step of its own.
    virtual void flushFolder(const std::string& target) = 0;
    /// Removes a file; a missing one is no error.
    virtual void remove(const std::string& path) = 0;
};

/// The operating system's files.
[[nodiscard]] std::unique_ptr<FileOperations> systemFileOperations();

/// A path in the folder that no other file has, for a file that is there for a moment.
[[nodiscard]] std::string workingCopyIn(const std::string& folder);

/// Writes a whole file so that after a crash or a full disk the old or the new one is there, never neither.
/// Follows a symbolic link to its target. Throws RuntimeError and leaves no working copy behind.
void writeFileAtomically(FileOperations& files, const std::string& path, std::string_view bytes);

/// The same for content that is made while it is written. What `content` throws goes on to the caller, with
/// the old file untouched.
void writeFileAtomically(FileOperations& files, const std::string& path, const FileContent& content);

/// A whole file; throws RuntimeError for a missing or unreadable one, for a folder, for anything that is
/// not a regular file (a pipe could block for ever) and for one of more than largestFile bytes.
[[nodiscard]] std::string readWholeFile(const std::string& path);

} // namespace quillset
