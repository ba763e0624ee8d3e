#include "base/xml_file.h"

#include "base/input_file.h"
#include "base/runtime_error.h"
#include "base/xml_check.h"
#include "base/xml_pieces.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace quillset {

namespace {

constexpr unsigned parseFlags = pugi::parse_default | pugi::parse_declaration | pugi::parse_pi |
                                pugi::parse_comments | pugi::parse_doctype;

// Memory that a document can take over, so that a large file is parsed where it was read to. One zero byte
// follows the text.
class TextBuffer {
public:
    explicit TextBuffer(std::size_t size)
        : bytes_(static_cast<char*>(pugi::get_memory_allocation_function()(size + 1)))
        , size_(size) {
        if (!bytes_)
            throw RuntimeError(ErrorNumber::outOfMemory);
        bytes_.get()[size] = '\0';
    }

    [[nodiscard]] char* data() { return bytes_.get(); }
    [[nodiscard]] std::string_view text() const { return {bytes_.get(), size_}; }
    void cutTo(std::size_t size) {
        size_ = size;
        bytes_.get()[size] = '\0';
    }
    [[nodiscard]] char* release() { return bytes_.release(); }

private:
    struct Free {
        void operator()(char* bytes) const { pugi::get_memory_deallocation_function()(bytes); }
    };
    std::unique_ptr<char, Free> bytes_;
    std::size_t size_;
};

XmlRead failed(std::string problem) {
    return {false, TextEncoding::utf8, std::move(problem)};
}

std::string withPlace(std::string_view text, const XmlFault& fault) {
    const std::string_view before = text.substr(0, fault.offset);
    std::size_t line = 1;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const bool lineEnds = before[i] == '\n' || (before[i] == '\r' && text.substr(i + 1, 1) != "\n");
        line += lineEnds ? 1 : 0;
        lineStart = lineEnds ? i + 1 : lineStart;
    }
    const auto characters =
        std::count_if(before.begin() + static_cast<std::ptrdiff_t>(lineStart), before.end(),
                      [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; });
    return "Line " + std::to_string(line) + ", column " + std::to_string(characters + 1) + ": " +
           fault.problem;
}

bool isAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) >= 0x80U; });
}

XmlRead readBuffer(TextBuffer buffer, pugi::xml_document& document) {
    document.reset();
    if (buffer.text().empty())
        return failed("The file is empty");
    const EncodingChoice choice = detectEncoding(buffer.text());
    if (!choice.problem.empty())
        return failed("Line 1, column 1: " + choice.problem);
    std::string_view text = buffer.text().substr(choice.markLength);
    const bool inUtf8 =
        choice.encoding == TextEncoding::utf8 || choice.encoding == TextEncoding::utf8WithMark;
    const bool wide =
        choice.encoding == TextEncoding::utf16LittleEndian || choice.encoding == TextEncoding::utf16BigEndian;
    if (!inUtf8 && (wide || !isAscii(text))) {
        const Decoding decoding = decodeToUtf8(text, choice.encoding, nullptr);
        if (!decoding.problem.empty())
            return failed("Byte " + std::to_string(choice.markLength + decoding.badAt + 1) + ": " +
                          decoding.problem);
        TextBuffer decoded(decoding.size);
        (void)decodeToUtf8(text, choice.encoding, decoded.data());
        buffer = std::move(decoded);
        text = buffer.text();
    }
    if (const auto fault = findXmlFault(text))
        return failed(withPlace(text, *fault));
    const std::size_t size = buffer.text().size();
    const pugi::xml_parse_result parsed =
        document.load_buffer_inplace_own(buffer.release(), size, parseFlags, pugi::encoding_utf8);
    if (!parsed) {
        document.reset();
        return failed(parsed.description());
    }
    return {true, choice.encoding, {}};
}

// The text in UTF-8; nothing when a character does not fit into the encoding where no reference may stand.
std::optional<std::string> writtenFor(TextEncoding encoding, const pugi::xml_node& document,
                                      XmlWriter::Layout layout) {
    std::string text;
    const auto append = [&text](std::string_view piece) {
        // In large steps, since each copies all and touches new memory; room that stays unused costs nothing.
        constexpr std::size_t growth = 8;
        if (text.capacity() - text.size() < piece.size())
            text.reserve((text.size() + piece.size()) * growth);
        text.append(piece);
    };
    if (!writeXmlPieces(document, encoding, layout, append))
        return std::nullopt;
    return text;
}

std::string written(const pugi::xml_node& document, TextEncoding wanted, XmlWriter::Layout layout) {
    const TextEncoding encoding = encodingToWrite(document, wanted);
    if (auto text = writtenFor(encoding, document, layout))
        return encodeText(std::move(*text), encoding);
    return writtenFor(TextEncoding::utf8, document, layout).value_or(std::string());
}

// Line breaks as a document holds them after reading.
std::string withLineFeeds(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r')
            out.push_back(text[i]);
        else if (text.substr(i + 1, 1) != "\n")
            out.push_back('\n');
    }
    return out;
}

void appendText(const pugi::xml_node& node, std::string& out) {
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            out += child.value();
        else if (child.type() == pugi::node_element)
            appendText(child, out);
    }
}

} // namespace

XmlRead readXml(std::string_view bytes, pugi::xml_document& document) {
    TextBuffer buffer(bytes.size());
    bytes.copy(buffer.data(), bytes.size());
    return readBuffer(std::move(buffer), document);
}

XmlRead readXmlFile(const std::string& path, pugi::xml_document& document) {
    document.reset(); // first, so that the old document's memory is free for the new one
    try {
        InputFile file(path);
        TextBuffer buffer(file.size());
        buffer.cutTo(file.read(buffer.data(), file.size()));
        return readBuffer(std::move(buffer), document);
    } catch (const RuntimeError& error) {
        return failed(error.what());
    }
}

std::string writeXml(const pugi::xml_node& document, TextEncoding encoding) {
    return written(document, encoding, XmlWriter::Layout::oneLine);
}

void writeXml(const pugi::xml_node& document, TextEncoding encoding, const PieceSink& sink) {
    if (encodingToWrite(document, encoding) == TextEncoding::utf8)
        (void)writeXmlPieces(document, TextEncoding::utf8, XmlWriter::Layout::oneLine, sink);
    else
        sink(writeXml(document, encoding));
}

std::string writeXmlLines(const pugi::xml_node& document, TextEncoding encoding) {
    return written(document, encoding, XmlWriter::Layout::tagsOnLines);
}

void saveXmlLines(FileOperations& files, const std::string& path, const pugi::xml_node& document,
                  TextEncoding wanted) {
    if (encodingToWrite(document, wanted) != TextEncoding::utf8) {
        writeFileAtomically(files, path, writeXmlLines(document, wanted));
        return;
    }
    writeFileAtomically(files, path, [&document](const PieceSink& sink) {
        (void)writeXmlPieces(document, TextEncoding::utf8, XmlWriter::Layout::tagsOnLines, sink);
    });
}

std::string nodeText(const pugi::xml_node& node) {
    if (node.type() != pugi::node_element && node.type() != pugi::node_document)
        return node.value();
    std::string text;
    appendText(node, text);
    return text;
}

void setNodeText(pugi::xml_node node, const std::string& text) {
    const std::string value = withLineFeeds(text);
    if (node.type() != pugi::node_element) {
        node.set_value(value.c_str());
        return;
    }
    node.remove_children();
    if (!value.empty())
        node.append_child(pugi::node_pcdata).set_value(value.c_str());
}

std::string commentText(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 2);
    for (const char c : text) {
        if (static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\r' && c != '\n')
            continue;
        if (c == '-' && !out.empty() && out.back() == '-')
            out.push_back(' ');
        out.push_back(c);
    }
    if (!out.empty() && out.back() == '-')
        out.push_back(' ');
    return out;
}

} // namespace quillset
