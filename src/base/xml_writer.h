#pragma once

#include "base/text_encoding.h"
#include "base/text_sink.h"

#include <pugixml.hpp>

#include <string_view>
#include <utility>

namespace quillset {

/// The encoding to write a document in: UTF-8 in the place of one that readers could not tell, because the
/// document has no declaration to name it.
[[nodiscard]] TextEncoding encodingToWrite(const pugi::xml_node& document, TextEncoding wanted);

/// Writes XML nodes as text in UTF-8, in pieces, that can be encoded as asked: a character that does not fit
/// is written as a numeric reference where one may stand. What is written can be read again, whatever the
/// nodes hold: characters that XML cannot hold are left out, bytes that are no UTF-8 become U+FFFD.
class XmlWriter {
public:
    enum class Layout { oneLine, tagsOnLines };

    XmlWriter(std::function<void(std::string_view piece)> out, TextEncoding encoding, Layout layout)
        : out_(std::move(out))
        , encoding_(encoding)
        , layout_(layout)
        , holdsAll_(fits(0xFFFD, encoding)) {}

    /// `note` is called when everything before the end tag of that element has been passed on.
    void noteBeforeEndOf(const pugi::xml_node& element, std::function<void()> note) {
        noted_ = element;
        note_ = std::move(note);
    }
    /// A node with all below it; of a document all its nodes. Once for each writer.
    void write(const pugi::xml_node& node) {
        writeNode(node);
        finish();
    }

    // What write() is made of, for a document that several writers share.
    /// A node with all below it, without the end that finish() makes.
    void writeNode(const pugi::xml_node& node);
    /// The tags around an element's content.
    void writeStartTag(const pugi::xml_node& element);
    void writeEndTag(const pugi::xml_node& element);
    /// Nodes from `first` up to `end`, siblings that follow a tag written by somebody else.
    void writeAfterTag(const pugi::xml_node& first, const pugi::xml_node& end);
    /// What another writer made of the next nodes.
    void append(std::string_view written) { out_.put(written); }
    /// The end of the document. What was written is passed on.
    void finish() {
        if (layout_ == Layout::tagsOnLines && out_.last() != '\0')
            out_.put("\r\n");
        out_.flush();
    }

    /// A name, a comment, an instruction, a CDATA section or a DOCTYPE held a character that does not fit:
    /// the result is of no use in this encoding.
    [[nodiscard]] bool failed() const { return failed_; }

private:
    void writeElement(const pugi::xml_node& node);
    void writeOpenTag(const pugi::xml_node& element);
    void writeAttribute(const pugi::char_t* name, const pugi::char_t* value);
    void writeDeclaration(const pugi::xml_node& node);
    void writeComment(const pugi::char_t* text);
    void writeInstruction(const pugi::xml_node& node);
    void writeCharacterData(const pugi::char_t* text);
    void writeText(const pugi::char_t* text);
    void writeValue(const pugi::char_t* text);
    void writePlain(const char* text);
    void writePlainRun(const char* text);
    void writeName(const pugi::char_t* name);
    const char* writeCharacter(const char* at, bool referenceAllowed);

    void openTag(std::string_view start);

    TextSink out_;
    TextEncoding encoding_;
    Layout layout_;
    bool holdsAll_;
    bool failed_ = false;
    pugi::xml_node noted_;
    std::function<void()> note_;
};

} // namespace quillset
