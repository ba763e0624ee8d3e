#pragma once

#include "base/atomic_file.h"
#include "base/text_encoding.h"

#include <pugixml.hpp>

#include <string>
#include <string_view>

namespace quillset {

/// What came of reading an XML file. On failure the document is empty (no root element), never half a
/// document, and `problem` says why in words for the user, with line and column where there is a place.
struct XmlRead {
    bool ok = false;
    TextEncoding encoding = TextEncoding::utf8;
    std::string problem;
};

/// Reads bytes that may be damaged. Refuses what a conforming, namespace-aware parser refuses, and references
/// to entities that the document declares itself; keeps prolog, comments, processing instructions, CDATA,
/// DOCTYPE and attribute order; drops white space between elements. Line breaks are LF in the document.
[[nodiscard]] XmlRead readXml(std::string_view bytes, pugi::xml_document& document);
/// The same for a file. A folder, a device or a missing file is a failure like any other.
[[nodiscard]] XmlRead readXmlFile(const std::string& path, pugi::xml_document& document);

/// The document's own serialisation: everything on one line, no declaration added, in the given encoding;
/// characters that do not fit into it become numeric references. Where none may stand (names, comments, ...),
/// and where a document without declaration would be misread, it is UTF-8 instead; the declaration always
/// names the encoding that was written. Line breaks in the document's texts are CR LF in the bytes.
[[nodiscard]] std::string writeXml(const pugi::xml_node& document,
                                   TextEncoding encoding = TextEncoding::utf8);

/// The same bytes piece by piece; UTF-8 is never held in memory as a whole.
void writeXml(const pugi::xml_node& document, TextEncoding encoding, const PieceSink& sink);

/// The same with every tag on a line of its own, as files for the user are saved: the bytes of
/// splitTagsOnLines(writeXml(...)), without the detour.
[[nodiscard]] std::string writeXmlLines(const pugi::xml_node& document,
                                        TextEncoding encoding = TextEncoding::utf8);

/// Saves the bytes of writeXmlLines as a file, atomically; UTF-8 goes to the disk while it is written,
/// without being held in memory. Throws RuntimeError, with the old file untouched.
void saveXmlLines(FileOperations& files, const std::string& path, const pugi::xml_node& document,
                  TextEncoding wanted);

/// The text of a node: of an element all text and CDATA below it, of any other node its own value.
[[nodiscard]] std::string nodeText(const pugi::xml_node& node);
/// Sets the text: of an element by replacing all its children, of any other node as its value. Line breaks of
/// any kind become LF, as they are in a document that was read.
void setNodeText(pugi::xml_node node, const std::string& text);

/// `text` as it may stand in a comment: "--" is broken as "- -", a final "-" gets a blank behind it, control
/// characters that XML cannot hold are dropped.
[[nodiscard]] std::string commentText(std::string_view text);

} // namespace quillset
