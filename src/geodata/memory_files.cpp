#include "geodata/memory_files.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>
#include <string_view>
#include <type_traits>

namespace quillset {

struct MemoryFiles::Stream {
    std::string* bytes;
    std::size_t position = 0;
};

namespace {

// The hooks get no context of ours but the file's name: it carries the address of the object.
struct Named {
    MemoryFiles* files = nullptr;
    std::string extension;
};

Named named(std::string_view filename) {
    const std::size_t dot = filename.rfind('.');
    std::uintptr_t address = 0;
    const char* const end = filename.data() + std::min(dot, filename.size());
    if (dot == std::string_view::npos || std::from_chars(filename.data(), end, address, 16).ptr != end)
        return {};
    return {reinterpret_cast<MemoryFiles*>(address), std::string(filename.substr(dot + 1))};
}

} // namespace

std::string MemoryFiles::name() const {
    char digits[2 * sizeof(std::uintptr_t)];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, reinterpret_cast<std::uintptr_t>(this), 16).ptr;
    return std::string(digits, end) + ".shp";
}

SAHooks MemoryFiles::hooks() {
    SAHooks hooks{};
    // These three have other types from the library's version 1.6 on: a context as well, a constant buffer.
    hooks.FOpen = [](const char* filename, const char* access, auto...) { return open(filename, access); };
    hooks.Remove = [](const char* filename, auto...) { return remove(filename); };
    hooks.FWrite = [](auto* from, SAOffset size, SAOffset count, SAFile file) {
        return write(from, size, count, file);
    };
    hooks.FRead = &MemoryFiles::read;
    hooks.FSeek = &MemoryFiles::seek;
    hooks.FTell = &MemoryFiles::tell;
    hooks.FFlush = &MemoryFiles::flush;
    hooks.FClose = &MemoryFiles::close;
    hooks.Error = [](const char*) {}; // what failed shows in the results of the calls
    hooks.Atof = [](const char* text) {
        double value = 0;
        std::from_chars(text, text + std::strlen(text), value);
        return value;
    };
    return hooks;
}

MemoryFiles::Stream* MemoryFiles::streamOf(SAFile file) {
    return reinterpret_cast<Stream*>(file);
}

SAFile MemoryFiles::open(const char* filename, const char* access) {
    const auto [files, extension] = named(filename);
    if (files == nullptr)
        return nullptr;
    const bool creates = *access == 'w';
    const auto found = files->files_.find(extension);
    if (!creates && found == files->files_.end())
        return nullptr;
    std::string& bytes = files->files_[extension];
    if (creates)
        bytes.clear();
    return reinterpret_cast<SAFile>(std::make_unique<Stream>(Stream{&bytes}).release());
}

SAOffset MemoryFiles::read(void* to, SAOffset size, SAOffset count, SAFile file) {
    Stream& stream = *streamOf(file);
    const std::size_t left = stream.bytes->size() - std::min(stream.position, stream.bytes->size());
    // The bytes of an item that is cut off count for nothing, but they are copied, as from a file.
    const std::size_t length = std::min(std::size_t{size} * count, left);
    if (length > 0)
        std::memcpy(to, stream.bytes->data() + stream.position, length);
    stream.position += length;
    return static_cast<SAOffset>(size == 0 ? 0 : length / size);
}

SAOffset MemoryFiles::write(const void* from, SAOffset size, SAOffset count, SAFile file) {
    Stream& stream = *streamOf(file);
    const std::size_t length = std::size_t{size} * count;
    try {
        if (stream.bytes->size() < stream.position)
            stream.bytes->resize(stream.position, '\0');
        const auto* const bytes = static_cast<const char*>(from);
        stream.bytes->replace(stream.position, length, bytes, length);
    } catch (const std::bad_alloc&) { // must not pass through the library, which is written in C
        return 0;
    }
    stream.position += length;
    return count;
}

SAOffset MemoryFiles::seek(SAFile file, SAOffset offset, int whence) {
    Stream& stream = *streamOf(file);
    // The type has no sign, but offsets may be meant to have one.
    const auto distance = static_cast<std::size_t>(static_cast<std::make_signed_t<SAOffset>>(offset));
    if (whence == SEEK_SET)
        stream.position = offset;
    else if (whence == SEEK_CUR)
        stream.position += distance;
    else
        stream.position = stream.bytes->size() + distance;
    return 0;
}

SAOffset MemoryFiles::tell(SAFile file) {
    return static_cast<SAOffset>(streamOf(file)->position);
}

int MemoryFiles::flush(SAFile) {
    return 0;
}

int MemoryFiles::close(SAFile file) {
    const std::unique_ptr<Stream> closed(streamOf(file));
    return 0;
}

int MemoryFiles::remove(const char* filename) {
    const auto [files, extension] = named(filename);
    if (files != nullptr)
        files->files_.erase(extension);
    return 0;
}

} // namespace quillset
