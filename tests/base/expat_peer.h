#pragma once

#include <string>
#include <string_view>

namespace quillset::test {

/// What Expat, a parser independent of ours, says about a document.
struct ExpatVerdict {
    bool accepted = false;
    std::string error;
    /// Every element, attribute, text, comment and instruction in order, as text. Texts of nothing but white
    /// space are left out, as in our documents.
    std::string events;
};

/// Namespace-aware, in the document's own encoding; single-byte encodings that Expat does not know are
/// supplied from the tables of the C library (iconv).
[[nodiscard]] ExpatVerdict askExpat(std::string_view bytes);

} // namespace quillset::test
