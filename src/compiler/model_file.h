#pragma once

#include "compiler/records.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillset::compiler {

/// A model file as it was when it was looked at. Its content is read later, piece by piece.
struct ModelFile {
    std::string path;
    std::uint32_t size = 0;
    std::filesystem::file_time_type changed{};
    /// RIFF form of the model, four characters ("MDL9", "MDLX"); empty when the file is no RIFF file.
    std::string form;
    /// GUID that a model of the later simulator holds.
    std::optional<GuidBytes> guid;
};

/// The file that a sourceFile attribute means: relative ones lie beside the document, in any letter case and
/// with either separator.
[[nodiscard]] std::string modelPath(const std::string& documentFolder, const std::string& sourceFile);

/// Throws RuntimeError for a missing or unreadable file, a folder, an empty file and one of 4 GB or more.
[[nodiscard]] ModelFile inspectModel(const std::string& path);

/// Gives the content in pieces to `take`. Throws RuntimeError when the file is not the one that was inspected
/// any more, or cannot be read.
void readModel(const ModelFile& model, const std::function<void(std::string_view)>& take);

} // namespace quillset::compiler
