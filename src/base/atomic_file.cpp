#include "base/atomic_file.h"

#include "base/input_file.h"
#include "base/paths.h"
#include "base/runtime_error.h"

#include <array>
#include <cstdio>
#include <new>
#include <random>

namespace quillset {

namespace {

void removeQuietly(FileOperations& files, const std::string& path) {
    try {
        files.remove(path);
    } catch (...) { // the failure that led here is the one to tell
    }
}

} // namespace

// A short name of its own: beside a target whose name is as long as the file system allows, a suffix would
// not fit.
std::string workingCopyIn(const std::string& folder) {
    std::random_device random;
    std::array<char, 40> name{};
    std::snprintf(name.data(), name.size(), ".quillset-%08x%08x.tmp", random(), random());
    return joinPath(folder, name.data());
}

// What is on the disk when the power fails
//   before or while the working copy is written: the old file, whole, and perhaps a useless working copy;
//   after its flush: the old file, and the new one complete under its working name;
//   while replacing: the old or the new file under the target's name, since the exchange is one step of the
//     file system, and whichever it is, its content is on the disk already;
//   after replacing, before the folder's flush: the same;
//   after the folder's flush: the new file.
// Were the copy renamed before its flush, the name could reach the disk ahead of the content: neither file.
void writeFileAtomically(FileOperations& files, const std::string& path, const FileContent& content) {
    const std::string target = files.writableTarget(path);
    const bool replacesOne = fileExists(target);
    const std::string copy = workingCopyIn(folderOf(target));
    try {
        files.writeAndFlush(copy, content, target);
        files.replace(copy, target);
    } catch (...) {
        // On Windows a replacement can fail half-way, with the old file moved aside: then the copy is all
        // that is left of the user's work.
        if (!replacesOne || fileExists(target))
            removeQuietly(files, copy);
        throw;
    }
    files.flushFolder(target);
}

void writeFileAtomically(FileOperations& files, const std::string& path, std::string_view bytes) {
    writeFileAtomically(files, path, wholeContent(bytes));
}

std::string readWholeFile(const std::string& path) {
    InputFile file(path);
    std::string bytes;
    try {
        bytes.resize(file.size());
    } catch (const std::bad_alloc&) {
        throw RuntimeError(ErrorNumber::outOfMemory, "Out of memory: " + path);
    }
    bytes.resize(file.read(bytes.data(), bytes.size()));
    return bytes;
}

} // namespace quillset
