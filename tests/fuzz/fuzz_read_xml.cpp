// Any bytes given to the XML reader: no crash, and what is accepted says the same after it was written and
// read again, on one line and with the tags on lines of their own.

#include "base/tag_lines.h"
#include "base/xml_file.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace quillset;

// Processing instructions and the DOCTYPE keep the line breaks of their file, which are written as CR LF.
std::string withoutLineBreaks(const char* text) {
    std::string out = text;
    std::erase_if(out, [](char c) { return c == '\r' || c == '\n'; });
    return out;
}

void require(bool holds) {
    if (!holds)
        std::abort();
}

void requireSameAttributes(const pugi::xml_node& a, const pugi::xml_node& b) {
    pugi::xml_attribute other = b.first_attribute();
    for (const pugi::xml_attribute& attribute : a.attributes()) {
        require(std::string_view(attribute.name()) == other.name());
        // The declaration follows the encoding when a name does not fit into the one that was declared.
        const bool encoding =
            a.type() == pugi::node_declaration && std::string_view(attribute.name()) == "encoding";
        require(encoding || std::string_view(attribute.value()) == other.value());
        other = other.next_attribute();
    }
    require(!other);
}

void requireSame(const pugi::xml_node& a, const pugi::xml_node& b) {
    require(a.type() == b.type() && std::string_view(a.name()) == b.name());
    require(withoutLineBreaks(a.value()) == withoutLineBreaks(b.value()));
    requireSameAttributes(a, b);
    pugi::xml_node other = b.first_child();
    for (const pugi::xml_node& child : a.children()) {
        requireSame(child, other);
        other = other.next_sibling();
    }
    require(!other);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    pugi::xml_document document;
    const XmlRead read = readXml(bytes, document);
    require(read.ok == read.problem.empty() && read.ok == !document.first_child().empty());
    (void)splitTagsOnLines(bytes);
    if (!read.ok)
        return 0;
    const std::string written = writeXml(document, read.encoding);
    pugi::xml_document again;
    require(readXml(written, again).ok);
    requireSame(document, again);
    const std::string lines = writeXmlLines(document, read.encoding);
    require(lines == splitTagsOnLines(written) && splitTagsOnLines(lines) == lines);
    require(readXml(lines, again).ok);
    return 0;
}
