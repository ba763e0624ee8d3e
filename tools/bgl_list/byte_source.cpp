#include "byte_source.h"

#include "base/paths.h"

#include <bit>
#include <filesystem>

namespace bgl_list {

Damage::Damage(std::uint64_t offset, const std::string& problem)
    : std::runtime_error("byte " + std::to_string(offset) + ": " + problem) {}

std::string ByteSource::read(std::uint64_t offset, std::uint64_t count) {
    if (offset > size() || count > size() - offset)
        throw Damage(offset, std::to_string(count) + " bytes should be here, but the file ends at " +
                                 std::to_string(size()));
    return readInside(offset, count);
}

std::string MemorySource::readInside(std::uint64_t offset, std::uint64_t count) {
    return std::string(bytes_.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(count)));
}

FileSource::FileSource(const std::string& path) {
    std::error_code failed;
    const std::filesystem::path name = quillset::toPath(path);
    if (!std::filesystem::is_regular_file(name,
                                          failed)) // before it is opened: a pipe would wait for a writer
        throw Damage(0, std::filesystem::exists(name, failed) ? "this is no regular file"
                                                              : "the file does not exist");
    size_ = std::filesystem::file_size(name, failed);
    file_.open(name, std::ios::binary);
    if (failed || !file_)
        throw Damage(0, "the file cannot be opened");
}

std::string FileSource::readInside(std::uint64_t offset, std::uint64_t count) {
    std::string bytes(static_cast<std::size_t>(count), '\0');
    file_.seekg(static_cast<std::streamoff>(offset));
    if (!file_.read(bytes.data(), static_cast<std::streamsize>(count)))
        throw Damage(offset, "the file cannot be read");
    return bytes;
}

std::uint8_t Fields::byte() {
    if (left() == 0)
        throw Damage(place(), "the record ends too early");
    return static_cast<std::uint8_t>(bytes_[at_++]);
}

std::uint16_t Fields::word() {
    const unsigned low = byte();
    return static_cast<std::uint16_t>(low + 256U * byte());
}

std::uint32_t Fields::dword() {
    const std::uint32_t low = word();
    return low + 65536U * word();
}

float Fields::real() {
    return std::bit_cast<float>(dword());
}

std::string Fields::text(std::size_t count) {
    if (count > left())
        throw Damage(place(), "the record ends too early");
    at_ += count;
    return bytes_.substr(at_ - count, count);
}

} // namespace bgl_list
