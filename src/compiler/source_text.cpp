#include "compiler/source_text.h"

#include "base/xml_check.h"

namespace quillset::compiler {

SourceText::SourceText(std::string bytes)
    : bytes_(std::move(bytes)) {
    const EncodingChoice choice = detectEncoding(bytes_);
    if (!choice.problem.empty()) {
        fault_ = XmlFault{0, choice.problem};
        return;
    }
    text_ = std::string_view(bytes_).substr(choice.markLength);
    if (choice.encoding != TextEncoding::utf8 && choice.encoding != TextEncoding::utf8WithMark)
        decode(text_, choice.encoding);
    if (!fault_)
        fault_ = findXmlFault(text_);
}

void SourceText::decode(std::string_view encoded, TextEncoding encoding) {
    Decoding decoding = decodeToUtf8(encoded, encoding, nullptr);
    while (!decoding.problem.empty()) { // again: what ends a text is found before what lies further up
        const std::string problem = std::move(decoding.problem);
        encoded = encoded.substr(0, decoding.badAt);
        decoding = decodeToUtf8(encoded, encoding, nullptr);
        fault_ = XmlFault{decoding.size, problem};
    }
    std::string decoded(decoding.size, '\0');
    (void)decodeToUtf8(encoded, encoding, decoded.data());
    bytes_ = std::move(decoded);
    text_ = bytes_;
}

std::string_view SourceText::soundPart() const {
    return fault_ ? text_.substr(0, fault_->offset) : text_;
}

} // namespace quillset::compiler
