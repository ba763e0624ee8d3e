#pragma once

#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace bgl_list {

/// A file that is not what a BGL file must be; says where and why.
class Damage : public std::runtime_error {
public:
    Damage(std::uint64_t offset, const std::string& problem);
};

/// The bytes of a file, of which only the wanted ones are read: models can be large.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    [[nodiscard]] virtual std::uint64_t size() const = 0;
    /// Exactly these bytes; throws Damage when the file has fewer. Nothing is allocated before that is known.
    [[nodiscard]] std::string read(std::uint64_t offset, std::uint64_t count);

protected:
    virtual std::string readInside(std::uint64_t offset, std::uint64_t count) = 0;
};

class MemorySource : public ByteSource {
public:
    /// The bytes outlive the source.
    explicit MemorySource(std::string_view bytes)
        : bytes_(bytes) {}
    [[nodiscard]] std::uint64_t size() const override { return bytes_.size(); }

protected:
    std::string readInside(std::uint64_t offset, std::uint64_t count) override;

private:
    std::string_view bytes_;
};

class FileSource : public ByteSource {
public:
    /// Throws Damage for a file that cannot be opened and for what is no regular file.
    explicit FileSource(const std::string& path);
    [[nodiscard]] std::uint64_t size() const override { return size_; }

protected:
    std::string readInside(std::uint64_t offset, std::uint64_t count) override;

private:
    std::ifstream file_;
    std::uint64_t size_ = 0;
};

/// Takes little-endian numbers off the front of bytes that were read.
class Fields {
public:
    /// `offset` is where the bytes lie in the file, for the messages.
    Fields(std::string bytes, std::uint64_t offset)
        : bytes_(std::move(bytes))
        , offset_(offset) {}

    [[nodiscard]] std::uint8_t byte();
    [[nodiscard]] std::uint16_t word();
    [[nodiscard]] std::uint32_t dword();
    [[nodiscard]] float real();
    [[nodiscard]] std::string text(std::size_t count);
    [[nodiscard]] std::size_t left() const { return bytes_.size() - at_; }
    /// Where the next byte lies in the file.
    [[nodiscard]] std::uint64_t place() const { return offset_ + at_; }

private:
    std::string bytes_;
    std::uint64_t offset_;
    std::size_t at_ = 0;
};

} // namespace bgl_list
