#include "base/xml_writer.h"

#include "base/xml_characters.h"
#include "base/xml_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace quillset {

namespace {

// Where a run of bytes that are written as they stand ends. The zero byte ends all of them.
constexpr std::uint8_t textStop = 1;  // & < > CR LF, and all that needs a closer look
constexpr std::uint8_t valueStop = 2; // & < > " CR LF tab, and all that needs a closer look
constexpr std::uint8_t plainStop = 4; // CR LF, and all that needs a closer look
constexpr std::uint8_t nameStop = 8;  // non-ASCII
constexpr std::uint8_t endStop = 16;  // nothing else

constexpr std::array<std::uint8_t, 256> stops = [] {
    std::array<std::uint8_t, 256> classes{};
    for (unsigned c = 0; c < 256; ++c) {
        if (c < 0x20 && c != '\t')
            classes[c] = textStop | valueStop | plainStop;
        else if (c >= 0x80)
            classes[c] = textStop | valueStop | plainStop | nameStop;
    }
    classes[0] |= nameStop | endStop;
    classes['\t'] = valueStop;
    classes['"'] = valueStop;
    for (const char c : {'&', '<', '>'})
        classes[static_cast<unsigned char>(c)] = textStop | valueStop;
    return classes;
}();

bool stopsAt(char c, std::uint8_t kind) {
    return (stops[static_cast<unsigned char>(c)] & kind) != 0;
}

// Copies up to the first stop.
const char* copyRun(TextSink& out, const char* at, std::uint8_t kind) {
    return out.putUntil(at, [kind](char c) { return stopsAt(c, kind); });
}

std::string_view entityOf(char c) {
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\r':
        return "&#13;";
    default:
        return {};
    }
}

void putReference(TextSink& out, char32_t code) {
    out.put("&#");
    out.put(std::to_string(static_cast<std::uint32_t>(code)));
    out.put(';');
}

bool isBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return hasClass(c, xml_byte::space); });
}

// `text` with every `what` broken by `instead`.
std::string broken(std::string_view text, std::string_view what, std::string_view instead) {
    std::string out;
    for (std::size_t found = text.find(what); found != std::string_view::npos; found = text.find(what)) {
        out.append(text.substr(0, found)).append(instead);
        text.remove_prefix(found + what.size());
    }
    return out.append(text);
}

bool isEmptyText(const pugi::xml_node& node) {
    return node.type() == pugi::node_pcdata && *node.value() == '\0' && !node.next_sibling();
}

} // namespace

TextEncoding encodingToWrite(const pugi::xml_node& document, TextEncoding wanted) {
    const bool mustBeDeclared = !fits(0xFFFD, wanted);
    const bool misread = mustBeDeclared && document.first_child().type() != pugi::node_declaration;
    return misread ? TextEncoding::utf8 : wanted;
}

void XmlWriter::writeNode(const pugi::xml_node& node) {
    switch (node.type()) {
    case pugi::node_document:
        for (const pugi::xml_node& child : node.children())
            writeNode(child);
        break;
    case pugi::node_element:
        writeElement(node);
        break;
    case pugi::node_pcdata:
        writeText(node.value());
        break;
    case pugi::node_cdata:
        writeCharacterData(node.value());
        break;
    case pugi::node_comment:
        writeComment(node.value());
        break;
    case pugi::node_pi:
        writeInstruction(node);
        break;
    case pugi::node_declaration:
        writeDeclaration(node);
        break;
    case pugi::node_doctype:
        openTag("<!DOCTYPE ");
        writePlain(node.value());
        out_.put('>');
        break;
    case pugi::node_null:
        break;
    }
}

void XmlWriter::writeElement(const pugi::xml_node& node) {
    const pugi::xml_node first = node.first_child();
    if (!first || isEmptyText(first)) {
        writeOpenTag(node);
        out_.put("/>");
        return;
    }
    writeStartTag(node);
    for (pugi::xml_node child = first; child; child = child.next_sibling())
        writeNode(child);
    if (note_ && node == noted_) {
        out_.flush();
        note_();
    }
    writeEndTag(node);
}

// A start tag but for its ">".
void XmlWriter::writeOpenTag(const pugi::xml_node& element) {
    openTag("<");
    writeName(element.name());
    // Not as a range: its iterators are calls into the library, and there are millions of attributes.
    for (pugi::xml_attribute attribute = element.first_attribute(); attribute;
         attribute = attribute.next_attribute())
        writeAttribute(attribute.name(), attribute.value());
}

void XmlWriter::writeStartTag(const pugi::xml_node& element) {
    writeOpenTag(element);
    out_.put('>');
}

void XmlWriter::writeEndTag(const pugi::xml_node& element) {
    openTag("</");
    writeName(element.name());
    out_.put('>');
}

void XmlWriter::writeAfterTag(const pugi::xml_node& first, const pugi::xml_node& end) {
    out_.continueAfter('>');
    for (pugi::xml_node node = first; node != end; node = node.next_sibling())
        writeNode(node);
    out_.flush();
}

// The "<" of a tag, with what follows it.
void XmlWriter::openTag(std::string_view start) {
    if (layout_ == Layout::tagsOnLines && out_.last() == '>')
        out_.put("\r\n");
    out_.put(start);
}

// Nearly all of a large document is this: most attributes go into the sink's room in one go, byte by byte
// with nothing in between. What is long, or needs a reference, goes on the ordinary way from where that
// stopped.
void XmlWriter::writeAttribute(const pugi::char_t* name, const pugi::char_t* value) {
    constexpr std::ptrdiff_t usualLength = 256;
    char* to = out_.room(usualLength);
    const char* const end = to + usualLength - std::strlen("=\"\"");
    const std::uint8_t stop = holdsAll_ ? endStop : nameStop;
    *to++ = ' ';
    while (to != end && !stopsAt(*name, stop))
        *to++ = *name++;
    if (*name != '\0') {
        out_.take(to);
        writeName(name);
        out_.put("=\"");
    } else {
        *to++ = '=';
        *to++ = '"';
        while (to < end && !stopsAt(*value, valueStop))
            *to++ = *value++;
        out_.take(to);
    }
    if (*value != '\0')
        writeValue(value);
    out_.put('"');
}

// The declaration must name the encoding that is really written: one that does not is corrected, and a
// missing name is added where readers would take the bytes for UTF-8.
void XmlWriter::writeDeclaration(const pugi::xml_node& node) {
    const std::string name(declaredName(encoding_));
    const bool mustAdd = !holdsAll_ && !node.attribute("encoding");
    openTag("<?xml");
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        const std::string_view key = attribute.name();
        const bool wrong = key == "encoding" && !declares(attribute.value(), encoding_);
        writeAttribute(attribute.name(), wrong ? name.c_str() : attribute.value());
        if (mustAdd && key == "version")
            writeAttribute("encoding", name.c_str());
    }
    out_.put("?>");
}

void XmlWriter::writeComment(const pugi::char_t* text) {
    const std::string_view view = text;
    openTag("<!--");
    if (view.ends_with('-') || view.find("--") != std::string_view::npos)
        writePlain(commentText(view).c_str());
    else
        writePlain(text);
    out_.put("-->");
}

void XmlWriter::writeInstruction(const pugi::xml_node& node) {
    openTag("<?");
    writeName(node.name());
    if (*node.value() != '\0') {
        out_.put(' ');
        writePlain(broken(node.value(), "?>", "? >").c_str());
    }
    out_.put("?>");
}

void XmlWriter::writeCharacterData(const pugi::char_t* text) {
    openTag("<![CDATA[");
    writePlain(broken(text, "]]>", "]]]]><![CDATA[>").c_str());
    out_.put("]]>");
}

void XmlWriter::writeText(const pugi::char_t* text) {
    const char* at = text;
    if (*at != '\0' && isBlank(text)) {
        // Blanks alone between tags would be dropped when the file is read; as a reference they stay.
        putReference(out_, static_cast<unsigned char>(*at));
        ++at;
    }
    for (at = copyRun(out_, at, textStop); *at != '\0'; at = copyRun(out_, at, textStop)) {
        const std::string_view entity = entityOf(*at);
        if (!entity.empty()) {
            out_.put(entity);
            ++at;
        } else if (*at == '\n') {
            out_.put("\r\n");
            ++at;
        } else {
            at = writeCharacter(at, true);
        }
    }
}

void XmlWriter::writeValue(const pugi::char_t* text) {
    const char* at = copyRun(out_, text, valueStop);
    for (; *at != '\0'; at = copyRun(out_, at, valueStop)) {
        const std::string_view entity = entityOf(*at);
        if (!entity.empty()) {
            out_.put(entity);
            ++at;
        } else if (*at == '\n' || *at == '\t') {
            putReference(out_, static_cast<unsigned char>(*at));
            ++at;
        } else {
            at = writeCharacter(at, true);
        }
    }
}

// Text where no reference may stand. On lines of their own, the tags in it are tags like others.
void XmlWriter::writePlain(const char* text) {
    if (layout_ == Layout::tagsOnLines && std::strstr(text, "><") != nullptr) {
        writePlainRun(broken(text, "><", ">\n<").c_str());
    } else {
        writePlainRun(text);
    }
}

void XmlWriter::writePlainRun(const char* text) {
    const char* at = copyRun(out_, text, plainStop);
    for (; *at != '\0'; at = copyRun(out_, at, plainStop)) {
        if (*at == '\n' || *at == '\r') {
            at += at[0] == '\r' && at[1] == '\n' ? 2 : 1;
            out_.put("\r\n");
        } else {
            at = writeCharacter(at, false);
        }
    }
}

void XmlWriter::writeName(const pugi::char_t* name) {
    const std::uint8_t stop = holdsAll_ ? endStop : nameStop;
    const char* at = copyRun(out_, name, stop);
    for (; *at != '\0'; at = copyRun(out_, at, stop))
        at = writeCharacter(at, false);
}

// A control character or one beyond ASCII; gives the place behind it.
const char* XmlWriter::writeCharacter(const char* at, bool referenceAllowed) {
    const Utf8Character character = utf8At(at);
    const bool valid = character.length > 0;
    if (valid && character.code < 0x20)
        return at + 1;
    const char32_t code = valid && isXmlCharacter(character.code) ? character.code : 0xFFFD;
    if (holdsAll_ || fits(code, encoding_)) {
        char bytes[4];
        const unsigned length = putUtf8(code, bytes);
        std::for_each(bytes, bytes + length, [this](char c) { out_.put(c); });
    } else if (referenceAllowed) {
        putReference(out_, code);
    } else {
        failed_ = true;
    }
    return at + std::max(character.length, 1U);
}

} // namespace quillset
