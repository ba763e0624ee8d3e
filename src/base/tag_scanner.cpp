#include "base/tag_scanner.h"

#include "base/xml_characters.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quillset {

namespace {

bool isBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return hasClass(c, xml_byte::space); });
}

// A table: half of a document's bytes are names.
constexpr std::array<bool, 256> nameEnds = [] {
    std::array<bool, 256> ends{};
    for (const char c : {' ', '\t', '\r', '\n', '=', '/', '>'})
        ends[static_cast<unsigned char>(c)] = true;
    return ends;
}();

bool endsName(char c) {
    return nameEnds[static_cast<unsigned char>(c)];
}

// The character of "#65" or "#x41", or of a predefined entity's name.
char32_t referenced(std::string_view reference) {
    if (reference.starts_with('#')) {
        reference.remove_prefix(1);
        const bool hexadecimal = reference.starts_with('x');
        reference.remove_prefix(hexadecimal ? 1 : 0);
        std::uint32_t code = 0;
        std::from_chars(reference.data(), reference.data() + reference.size(), code, hexadecimal ? 16 : 10);
        return code;
    }
    if (reference == "lt")
        return U'<';
    if (reference == "gt")
        return U'>';
    if (reference == "quot")
        return U'"';
    return reference == "apos" ? U'\'' : U'&';
}

} // namespace

TagScanner::Event TagScanner::next() {
    attributes_.clear();
    resolvedValues_.clear();
    if (emptyElement_) {
        emptyElement_ = false;
        return Event::endTag;
    }
    for (;;) {
        const std::size_t tag = std::min(text_.find('<', at_), text_.size());
        if (!isBlank(text_.substr(at_, tag - at_)))
            return textEvent(tag);
        at_ = offset_ = tag;
        const std::string_view rest = text_.substr(at_);
        if (rest.starts_with("<!--"))
            skipPast("-->");
        else if (rest.starts_with("<?"))
            skipPast("?>");
        else if (rest.starts_with("<![CDATA["))
            return skipPast("]]>") ? Event::text : Event::end;
        else if (rest.starts_with("<!"))
            skipDoctype();
        else if (rest.starts_with("</"))
            return skipPast(">") ? Event::endTag : Event::end;
        else if (rest.size() < 2)
            return finished();
        else
            return startTag();
    }
}

TagScanner::Event TagScanner::textEvent(std::size_t end) {
    offset_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size());
    at_ = end;
    return Event::text;
}

TagScanner::Event TagScanner::startTag() {
    ++at_;
    name_ = takeName();
    for (;;) {
        skipSpace();
        const std::string_view rest = text_.substr(at_);
        if (rest.starts_with('>')) {
            ++at_;
            return Event::startTag;
        }
        if (rest.starts_with("/>")) {
            at_ += 2;
            emptyElement_ = true;
            return Event::startTag;
        }
        if (!attribute())
            return finished();
    }
}

bool TagScanner::attribute() {
    TagAttribute attribute;
    attribute.offset = at_;
    attribute.name = takeName();
    skipSpace();
    if (attribute.name.empty() || at_ >= text_.size() || text_[at_] != '=')
        return false;
    ++at_;
    skipSpace();
    if (at_ >= text_.size() || (text_[at_] != '"' && text_[at_] != '\''))
        return false;
    const std::size_t start = at_ + 1;
    const std::size_t end = text_.find(text_[at_], start);
    if (end == std::string_view::npos)
        return false;
    attribute.value = resolved(text_.substr(start, end - start));
    attributes_.push_back(attribute);
    at_ = end + 1;
    return true;
}

std::string_view TagScanner::resolved(std::string_view raw) {
    const auto differs = [](char c) { return c == '&' || c == '\t' || c == '\n' || c == '\r'; };
    const auto first = std::find_if(raw.begin(), raw.end(), differs);
    if (first == raw.end())
        return raw;
    std::string& out = *resolvedValues_.emplace_back(std::make_unique<std::string>(raw.begin(), first));
    for (std::size_t i = out.size(); i < raw.size(); ++i) {
        if (raw[i] == '&') {
            const std::size_t end = std::min(raw.find(';', i), raw.size());
            char character[4];
            out.append(character, putUtf8(referenced(raw.substr(i + 1, end - i - 1)), character));
            i = end;
        } else if (raw[i] != '\r' || raw.substr(i + 1, 1) != "\n") { // the two of a line end are one
            out.push_back(differs(raw[i]) ? ' ' : raw[i]);
        }
    }
    return out;
}

TagScanner::Event TagScanner::finished() {
    at_ = offset_ = text_.size();
    return Event::end;
}

bool TagScanner::skipPast(std::string_view ending) {
    const std::size_t found = text_.find(ending, at_);
    at_ = found == std::string_view::npos ? text_.size() : found + ending.size();
    return found != std::string_view::npos;
}

// To its closing bracket: quoted texts, comments and instructions of the internal subset may hold others.
void TagScanner::skipDoctype() {
    std::size_t depth = 0;
    while (at_ < text_.size()) {
        const std::string_view rest = text_.substr(at_);
        if (rest.starts_with("<!--")) {
            skipPast("-->");
        } else if (rest.starts_with("<?")) {
            skipPast("?>");
        } else if (rest.front() == '"' || rest.front() == '\'') {
            ++at_;
            skipPast(rest.substr(0, 1));
        } else {
            ++at_;
            depth += rest.front() == '<' ? 1U : 0U;
            depth -= rest.front() == '>' ? 1U : 0U;
            if (depth == 0)
                return;
        }
    }
}

void TagScanner::skipSpace() {
    while (at_ < text_.size() && hasClass(text_[at_], xml_byte::space))
        ++at_;
}

std::string_view TagScanner::takeName() {
    const std::size_t start = at_;
    while (at_ < text_.size() && !endsName(text_[at_]))
        ++at_;
    return text_.substr(start, at_ - start);
}

} // namespace quillset
