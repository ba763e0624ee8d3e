#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillset {

/// The coordinate system that a .prj file states.
struct ReferenceSystem {
    bool isRd = false;
    std::string name; ///< as the file gives it; empty when the text is none of this kind
};

/// Reads the text of a .prj file. RD is told by its projection, since programs name it in many ways.
[[nodiscard]] ReferenceSystem referenceSystemIn(std::string_view text);

/// The system stated beside the shapefile of that path; nothing when no .prj is there or when it is empty.
/// Throws RuntimeError when it cannot be read.
[[nodiscard]] std::optional<ReferenceSystem> referenceSystemBeside(const std::string& shapefile);

} // namespace quillset
