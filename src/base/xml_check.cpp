#include "base/xml_check.h"

#include "base/xml_namespaces.h"

#include <vector>

namespace quillset {

namespace {

std::string inQuotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

bool isVersion(std::string_view value) {
    return value.size() > 2 && value.starts_with("1.") &&
           value.substr(2).find_first_not_of("0123456789") == std::string_view::npos;
}

bool isEncodingName(std::string_view value) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    return !value.empty() && letters.find(value.front()) != std::string_view::npos &&
           value.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-") ==
               std::string_view::npos;
}

const char* endOf(const char* at, std::uint8_t kind) {
    while (hasClass(*at, kind))
        ++at;
    return at;
}

const char* firstOf(const char* at, std::uint8_t kind) {
    while (!hasClass(*at, kind))
        ++at;
    return at;
}

std::string_view textBetween(const char* begin, const char* end) {
    return {begin, static_cast<std::size_t>(end - begin)};
}

class XmlChecker {
public:
    explicit XmlChecker(std::string_view text)
        : cursor_(text) {}

    bool checkDocument() { return checkDeclaration() && checkProlog() && checkElements() && checkEpilog(); }
    [[nodiscard]] const XmlFault& fault() const { return cursor_.fault(); }

private:
    bool checkDeclaration();
    bool takeDeclared(std::string_view name, std::string_view& value, bool& found);
    bool checkProlog();
    bool checkElements();
    bool checkEpilog();
    bool checkMarkup();
    bool checkCharacterData();
    bool checkStartTag();
    void skipPlainAttributes();
    bool checkAttributes();
    bool checkValue(std::string_view& value);
    bool checkEndTag();

    XmlCursor cursor_;
    XmlNamespaces namespaces_;
    std::vector<std::string_view> open_; // the names of the open elements, prefixes included
};

// One ` name = "value"` of the XML declaration; the white space before it must be there.
bool XmlChecker::takeDeclared(std::string_view name, std::string_view& value, bool& found) {
    const char* const before = cursor_.at;
    const bool spaced = cursor_.skipSpace();
    found = cursor_.take(name);
    if (!found) {
        cursor_.at = before;
        return true;
    }
    if (!spaced)
        return cursor_.fail(before, "white space is missing before " + inQuotes(name));
    cursor_.skipSpace();
    if (!cursor_.require('=', "in the XML declaration"))
        return false;
    cursor_.skipSpace();
    const char quote = *cursor_.at;
    if (quote != '"' && quote != '\'')
        return cursor_.fail("a value in the XML declaration is not quoted");
    const char* const start = ++cursor_.at;
    while (*cursor_.at != quote && *cursor_.at != '<' && *cursor_.at != '\0')
        ++cursor_.at;
    value = textBetween(start, cursor_.at);
    return cursor_.require(quote, "in the XML declaration");
}

bool XmlChecker::checkDeclaration() {
    if (!cursor_.isNext("<?xml") || (cursor_.at[5] != '?' && !hasClass(cursor_.at[5], xml_byte::space)))
        return true; // none, or an instruction such as "xml-stylesheet"
    cursor_.at += 5;
    std::string_view value;
    bool found = false;
    if (!takeDeclared("version", value, found))
        return false;
    if (!found)
        return cursor_.fail("the XML declaration must begin with the version");
    if (!isVersion(value))
        return cursor_.fail(value.data(), "the XML version " + inQuotes(value) + " is unknown");
    if (!takeDeclared("encoding", value, found))
        return false;
    if (found && !isEncodingName(value))
        return cursor_.fail(value.data(), inQuotes(value) + " is no name of an encoding");
    if (!takeDeclared("standalone", value, found))
        return false;
    if (found && value != "yes" && value != "no")
        return cursor_.fail(value.data(), "\"standalone\" must be \"yes\" or \"no\"");
    cursor_.skipSpace();
    return cursor_.take("?>") || cursor_.fail("the XML declaration is not closed properly");
}

bool XmlChecker::checkProlog() {
    bool doctypeSeen = false;
    for (;;) {
        cursor_.skipSpace();
        bool good = true;
        if (cursor_.take("<!--"))
            good = cursor_.scanComment();
        else if (cursor_.take("<?"))
            good = cursor_.scanInstruction();
        else if (!doctypeSeen && cursor_.take("<!DOCTYPE"))
            good = doctypeSeen = checkDoctype(cursor_);
        else
            break;
        if (!good)
            return false;
    }
    return cursor_.isNext('<') || cursor_.fail(cursor_.atEnd() ? "the file holds no element"
                                                               : "there is text before the first element");
}

bool XmlChecker::checkEpilog() {
    for (;;) {
        cursor_.skipSpace();
        if (cursor_.atEnd())
            return true;
        bool good = false;
        if (cursor_.take("<!--"))
            good = cursor_.scanComment();
        else if (cursor_.take("<?"))
            good = cursor_.scanInstruction();
        else
            cursor_.fail("only comments may follow the end of the root element");
        if (!good)
            return false;
    }
}

// From the root's start tag to its end tag.
bool XmlChecker::checkElements() {
    if (!checkStartTag())
        return false;
    while (!open_.empty()) {
        while (!hasClass(*cursor_.at, xml_byte::textStop))
            ++cursor_.at;
        bool good = true;
        if (cursor_.isNext('<'))
            good = checkMarkup();
        else if (cursor_.isNext('&'))
            good = cursor_.scanReference();
        else if (cursor_.isNext("]]>"))
            good = cursor_.fail("\"]]>\" may not stand in text");
        else if (cursor_.isNext(']'))
            ++cursor_.at;
        else if (cursor_.atEnd())
            good =
                cursor_.fail("the file ends, but the element " + inQuotes(open_.back()) + " is still open");
        else
            good = cursor_.scanCharacter();
        if (!good)
            return false;
    }
    return true;
}

bool XmlChecker::checkMarkup() {
    switch (cursor_.at[1]) {
    case '/':
        return checkEndTag();
    case '?':
        cursor_.at += 2;
        return cursor_.scanInstruction();
    case '!':
        if (cursor_.take("<!--"))
            return cursor_.scanComment();
        if (cursor_.take("<![CDATA["))
            return checkCharacterData();
        return cursor_.fail("\"<!\" begins neither a comment nor a CDATA section");
    default:
        return checkStartTag();
    }
}

// The rest of a CDATA section.
bool XmlChecker::checkCharacterData() {
    const char* const start = cursor_.at;
    while (!cursor_.take("]]>")) {
        if (cursor_.atEnd())
            return cursor_.fail(start, "a CDATA section is not closed");
        if (!hasClass(*cursor_.at, xml_byte::plainStop))
            ++cursor_.at;
        else if (!cursor_.scanCharacter())
            return false;
    }
    return true;
}

bool XmlChecker::checkStartTag() {
    const char* const start = ++cursor_.at;
    std::string_view prefix;
    std::string_view local;
    if (!cursor_.scanQualifiedName(prefix, local, "an element"))
        return false;
    const std::string_view name = textBetween(start, cursor_.at);
    namespaces_.startTag();
    if (!checkAttributes() || !namespaces_.finishTag(prefix, cursor_))
        return false;
    if (cursor_.take('>')) {
        open_.push_back(name);
        return open_.size() <= deepestElement ||
               cursor_.fail(start,
                            "elements are nested more than " + std::to_string(deepestElement) + " deep");
    }
    namespaces_.endElement();
    cursor_.at += 2;
    return true;
}

// Attributes as nearly all files write them, ` name="value"` in ASCII and without references: the checker's
// hot path. Stops before whatever else comes, right or wrong.
void XmlChecker::skipPlainAttributes() {
    for (const char* at = cursor_.at; *at == ' ' && hasClass(at[1], xml_byte::nameStart);) {
        const char* const name = at + 1;
        const char* const nameEnd = endOf(name, xml_byte::name);
        if (nameEnd[0] != '=' || nameEnd[1] != '"')
            return;
        const char* const value = nameEnd + 2;
        const char* const valueEnd = firstOf(value, xml_byte::valueStop);
        if (*valueEnd != '"')
            return;
        namespaces_.add({{}, textBetween(name, nameEnd), textBetween(value, valueEnd)});
        at = valueEnd + 1;
        cursor_.at = at;
    }
}

// Up to the ">" or "/>".
bool XmlChecker::checkAttributes() {
    for (;;) {
        skipPlainAttributes();
        const bool spaced = cursor_.skipSpace();
        if (cursor_.isNext('>') || cursor_.isNext("/>"))
            return true;
        if (cursor_.atEnd())
            return cursor_.fail("the file ends within a tag");
        if (cursor_.isNext('/') || cursor_.isNext('<'))
            return cursor_.fail("a tag is not closed properly");
        if (!spaced)
            return cursor_.fail(
                "white space is missing before the name of an attribute, or a character may not "
                "stand in a name");
        XmlAttribute attribute;
        if (!cursor_.scanQualifiedName(attribute.prefix, attribute.local, "an attribute"))
            return false;
        cursor_.skipSpace();
        if (!cursor_.require('=', "after the name of an attribute"))
            return false;
        cursor_.skipSpace();
        if (!checkValue(attribute.value))
            return false;
        namespaces_.add(attribute);
    }
}

bool XmlChecker::checkValue(std::string_view& value) {
    const char quote = *cursor_.at;
    if (quote != '"' && quote != '\'')
        return cursor_.fail("the value of an attribute is not quoted");
    const char* const start = ++cursor_.at;
    for (;;) {
        while (!hasClass(*cursor_.at, xml_byte::valueStop))
            ++cursor_.at;
        const char stop = *cursor_.at;
        if (stop == quote)
            break;
        bool good = true;
        if (stop == '"' || stop == '\'')
            ++cursor_.at;
        else if (stop == '&')
            good = cursor_.scanReference();
        else if (stop == '<')
            good = cursor_.fail("\"<\" in the value of an attribute must be written as \"&lt;\"");
        else if (cursor_.atEnd())
            good = cursor_.fail(start, "the value of an attribute is not closed");
        else
            good = cursor_.scanCharacter();
        if (!good)
            return false;
    }
    value = textBetween(start, cursor_.at);
    ++cursor_.at;
    return true;
}

bool XmlChecker::checkEndTag() {
    const char* const start = cursor_.at;
    cursor_.at += 2;
    if (cursor_.take(open_.back())) {
        cursor_.skipSpace();
        if (cursor_.take('>')) {
            open_.pop_back();
            namespaces_.endElement();
            return true;
        }
    }
    return cursor_.fail(start, "the end tag does not match the start tag of " + inQuotes(open_.back()));
}

} // namespace

std::optional<XmlFault> findXmlFault(std::string_view text) {
    XmlChecker checker(text);
    if (checker.checkDocument())
        return std::nullopt;
    return checker.fault();
}

} // namespace quillset
