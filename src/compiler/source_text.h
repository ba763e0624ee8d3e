#pragma once

#include "base/text_encoding.h"
#include "base/xml_cursor.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillset::compiler {

/// The text of a source in UTF-8, checked.
class SourceText {
public:
    /// Takes the bytes of a file. What cannot be decoded is a fault at the end of the text that could be.
    explicit SourceText(std::string bytes);
    ~SourceText() = default;
    SourceText(const SourceText&) = delete; // the views point into it
    SourceText& operator=(const SourceText&) = delete;

    [[nodiscard]] std::string_view text() const { return text_; }
    /// The part that is well-formed as far as it goes: all of it, or what precedes the fault.
    [[nodiscard]] std::string_view soundPart() const;
    /// What is wrong with the encoding or with the text as XML; the offset is one of text().
    [[nodiscard]] const std::optional<XmlFault>& fault() const { return fault_; }

private:
    void decode(std::string_view encoded, TextEncoding encoding);

    std::string bytes_;
    std::string_view text_;
    std::optional<XmlFault> fault_;
};

} // namespace quillset::compiler
