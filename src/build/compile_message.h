#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillset {

/// The place in compile.xml that a line of a compiler's output is about. Both count from 1.
struct CompilePlace {
    std::size_t line = 0;
    std::optional<std::size_t> column;

    bool operator==(const CompilePlace&) const = default;
};

/// Finds the place in one line of output. Known forms: "FILE(12): ...", "FILE(12,34): ...", "FILE:12: ...",
/// "FILE:12:34: ...", and "line 12, column 34" or "Line: 12 Col: 34" anywhere; of several the first.
[[nodiscard]] std::optional<CompilePlace> compilePlaceIn(std::string_view message);

} // namespace quillset
