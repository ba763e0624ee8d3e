#include "base/growing_xml.h"

#include "base/xml_writer.h"

#include <utility>

namespace quillset {

GrowingXml::GrowingXml(const pugi::xml_document& document, TextEncoding wanted)
    : document_(document)
    , encoding_(encodingToWrite(document, wanted)) {
    writeAllSomehow();
}

void GrowingXml::append(const pugi::xml_node& first) {
    std::string text;
    for (pugi::xml_node node = first; node; node = node.next_sibling()) {
        XmlWriter writer([&text](std::string_view piece) { text.append(piece); }, encoding_,
                         XmlWriter::Layout::oneLine);
        writer.write(node);
        if (writer.failed()) {
            writeAllSomehow();
            return;
        }
    }
    head_ += encoded(std::move(text));
}

// A document that its encoding cannot hold is written in UTF-8 as a whole.
void GrowingXml::writeAllSomehow() {
    if (writeAll())
        return;
    encoding_ = TextEncoding::utf8;
    writeAll();
}

bool GrowingXml::writeAll() {
    std::string text;
    std::size_t end = 0;
    XmlWriter writer([&text](std::string_view piece) { text.append(piece); }, encoding_,
                     XmlWriter::Layout::oneLine);
    writer.noteBeforeEndOf(document_.document_element(), [&] { end = text.size(); });
    writer.write(document_);
    if (writer.failed())
        return false;
    tail_ = encoded(text.substr(end));
    text.resize(end);
    head_ = encodeText(std::move(text), encoding_);
    return true;
}

// Without the byte order mark, which stands at the very beginning only.
std::string GrowingXml::encoded(std::string utf8) const {
    std::string bytes = encodeText(std::move(utf8), encoding_);
    bytes.erase(0, encodeText({}, encoding_).size());
    return bytes;
}

} // namespace quillset
