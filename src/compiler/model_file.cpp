#include "compiler/model_file.h"

#include "base/paths.h"
#include "base/runtime_error.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <limits>
#include <vector>

namespace quillset::compiler {

namespace {

constexpr std::size_t chunkHeader = 8;
constexpr std::size_t riffHeader = 12;

std::uint32_t littleEndian(const char* bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
        value = value << 8U | static_cast<unsigned char>(bytes[i]);
    return value;
}

// Looks through the chunks of the form for the one that holds the model's GUID. It stands near the start; a
// file of zeros would be millions of empty chunks.
std::optional<GuidBytes> findGuid(std::ifstream& file, std::uint32_t fileSize) {
    constexpr int mostChunks = 1000;
    std::uint64_t at = riffHeader;
    std::array<char, chunkHeader> header{};
    for (int chunk = 0; chunk < mostChunks && at + chunkHeader <= fileSize; ++chunk) {
        file.seekg(static_cast<std::streamoff>(at));
        if (!file.read(header.data(), header.size()))
            return std::nullopt;
        const std::uint32_t size = littleEndian(header.data() + 4);
        GuidBytes guid{};
        if (std::string_view(header.data(), 4) == "MDLG" && size >= guid.size()) {
            std::array<char, 16> bytes{};
            if (!file.read(bytes.data(), bytes.size()))
                return std::nullopt;
            std::transform(bytes.begin(), bytes.end(), guid.begin(),
                           [](char c) { return static_cast<std::uint8_t>(c); });
            return guid;
        }
        at += chunkHeader + std::uint64_t{size} + size % 2;
    }
    return std::nullopt;
}

[[noreturn]] void cannotRead(const std::string& path) {
    throw RuntimeError(ErrorNumber::permissionDenied, "the model file cannot be read: " + path);
}

[[noreturn]] void hasChanged(const std::string& path) {
    throw RuntimeError(ErrorNumber::deviceError, "the model file changed while it was read: " + path);
}

bool isSame(const ModelFile& model) {
    std::error_code failed;
    const auto size = std::filesystem::file_size(toPath(model.path), failed);
    return !failed && size == model.size &&
           std::filesystem::last_write_time(toPath(model.path), failed) == model.changed && !failed;
}

} // namespace

std::string modelPath(const std::string& documentFolder, const std::string& sourceFile) {
    if (toPath(sourceFile).is_absolute())
        return sourceFile;
    const std::string beside = documentFolder.empty() ? sourceFile : joinPath(documentFolder, sourceFile);
    if (fileExists(beside))
        return beside;
    return findIgnoringCase(documentFolder.empty() ? "." : documentFolder, sourceFile).value_or(beside);
}

ModelFile inspectModel(const std::string& path) {
    std::error_code failed;
    const auto status = std::filesystem::status(toPath(path), failed);
    if (status.type() == std::filesystem::file_type::not_found)
        throw RuntimeError(ErrorNumber::fileNotFound, "the model file does not exist: " + path);
    if (std::filesystem::is_directory(status))
        throw RuntimeError(ErrorNumber::pathAccess, "the model is not a file but a folder: " + path);
    if (!std::filesystem::is_regular_file(status))
        throw RuntimeError(ErrorNumber::pathAccess, "the model is not a regular file: " + path);
    const std::uintmax_t size = std::filesystem::file_size(toPath(path), failed);
    if (failed)
        cannotRead(path);
    if (size == 0)
        throw RuntimeError(ErrorNumber::invalidCall, "the model file is empty: " + path);
    if (size > std::numeric_limits<std::uint32_t>::max())
        throw RuntimeError(ErrorNumber::overflow, "the model file is larger than 4 GB: " + path);
    ModelFile model;
    model.path = path;
    model.size = static_cast<std::uint32_t>(size);
    model.changed = std::filesystem::last_write_time(toPath(path), failed);
    std::ifstream file(toPath(path), std::ios::binary);
    std::array<char, riffHeader> header{};
    if (!file)
        cannotRead(path);
    if (file.read(header.data(), header.size()) && std::string_view(header.data(), 4) == "RIFF") {
        model.form.assign(header.data() + chunkHeader, 4);
        model.guid = findGuid(file, model.size);
    }
    return model;
}

void readModel(const ModelFile& model, const std::function<void(std::string_view)>& take) {
    constexpr std::size_t piece = std::size_t{1} << 20;
    if (!isSame(model))
        hasChanged(model.path);
    std::ifstream file(toPath(model.path), std::ios::binary);
    if (!file)
        cannotRead(model.path);
    std::vector<char> buffer(std::min<std::size_t>(piece, model.size));
    for (std::size_t left = model.size; left > 0;) {
        const std::size_t wanted = std::min(left, buffer.size());
        if (!file.read(buffer.data(), static_cast<std::streamsize>(wanted)))
            hasChanged(model.path);
        take({buffer.data(), wanted});
        left -= wanted;
    }
    if (!isSame(model))
        hasChanged(model.path);
}

} // namespace quillset::compiler
