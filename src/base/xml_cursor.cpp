#include "base/xml_cursor.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace quillset {

namespace {

bool isPredefined(std::string_view name) {
    constexpr std::string_view names[] = {"amp", "lt", "gt", "quot", "apos"};
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

bool isXmlInAnyCase(std::string_view target) {
    return target.size() == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' &&
           (target[2] | 0x20) == 'l';
}

int digitOf(char c, bool hexadecimal) {
    if (c >= '0' && c <= '9')
        return c - '0';
    const int lower = c | 0x20;
    return hexadecimal && lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string codeText(char32_t code) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "U+%04X", static_cast<unsigned>(code));
    return text.data();
}

std::string quoted(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

} // namespace

bool XmlCursor::isNext(std::string_view what) const {
    return static_cast<std::size_t>(end_ - at) >= what.size() && std::equal(what.begin(), what.end(), at);
}

bool XmlCursor::take(std::string_view what) {
    const bool found = isNext(what);
    if (found)
        at += what.size();
    return found;
}

bool XmlCursor::take(char c) {
    const bool found = *at == c && at != end_;
    if (found)
        ++at;
    return found;
}

bool XmlCursor::requireSpace(const char* where) {
    return skipSpace() || fail(std::string("white space is missing ") + where);
}

bool XmlCursor::require(char c, const char* where) {
    return take(c) || fail(std::string("\"") + c + "\" is missing " + where);
}

bool XmlCursor::scanNameRest() {
    for (;;) {
        while (hasClass(*at, xml_byte::name))
            ++at;
        if (static_cast<unsigned char>(*at) < 0x80)
            return true;
        const Utf8Character character = utf8At(at);
        if (character.length == 0)
            return scanCharacter();
        if (!isNameCharacter(character.code))
            return fail("the character " + codeText(character.code) + " may not stand in a name");
        at += character.length;
    }
}

bool XmlCursor::scanName(std::string_view& name, const char* what) {
    const char* const start = at;
    if (!hasClass(*at, xml_byte::nameStart)) {
        const Utf8Character character = utf8At(at);
        if (character.code < 0x80 || !isNameStart(character.code))
            return fail(std::string("the name of ") + what + " is missing or begins with a wrong character");
    }
    if (!scanNameRest())
        return false;
    name = {start, static_cast<std::size_t>(at - start)};
    return true;
}

bool XmlCursor::scanNameToken(const char* what) {
    const char* const start = at;
    do {
        if (!scanNameRest())
            return false;
    } while (take(':'));
    return at != start || fail(std::string("the name of ") + what + " is missing");
}

bool XmlCursor::scanQualifiedName(std::string_view& prefix, std::string_view& local, const char* what) {
    prefix = {};
    if (!scanName(local, what))
        return false;
    if (*at != ':')
        return true;
    ++at;
    prefix = local;
    if (!scanName(local, what))
        return false;
    return *at != ':' || fail(std::string("the name of ") + what + " holds more than one colon");
}

bool XmlCursor::scanCharacterReference() {
    const char* const start = at - 2;
    const bool hexadecimal = take('x');
    char32_t code = 0;
    const char* const digits = at;
    for (int digit = digitOf(*at, hexadecimal); digit >= 0; digit = digitOf(*at, hexadecimal)) {
        const char32_t base = hexadecimal ? 16 : 10;
        code = std::min<char32_t>(code * base + static_cast<char32_t>(digit), 0x110000);
        ++at;
    }
    if (at == digits || *at != ';')
        return fail(start, "a character reference is incomplete");
    if (!isXmlCharacter(code))
        return fail(start, "the character reference stands for a character that XML does not allow");
    ++at;
    return true;
}

bool XmlCursor::scanReference() {
    const char* const start = at++;
    if (take('#'))
        return scanCharacterReference();
    std::string_view name;
    if (!hasClass(*at, xml_byte::nameStart) && static_cast<unsigned char>(*at) < 0x80)
        return fail(start, "\"&\" must be written as \"&amp;\"");
    if (!scanName(name, "an entity"))
        return false;
    if (!take(';'))
        return fail(start, "\"&\" must be written as \"&amp;\", or \";\" is missing after the entity's name");
    return isPredefined(name) ||
           fail(start, "the entity " + quoted(name) + " is not one of those that every XML file may use");
}

bool XmlCursor::scanAnyReference() {
    const char* const start = at++;
    if (take('#'))
        return scanCharacterReference();
    std::string_view name;
    return scanName(name, "an entity") &&
           (take(';') || fail(start, "\";\" is missing after the entity's name"));
}

bool XmlCursor::scanComment() {
    const char* const start = at - 4;
    for (;;) {
        while (*at != '-' && !hasClass(*at, xml_byte::plainStop))
            ++at;
        if (atEnd())
            return fail(start, "a comment is not closed");
        if (*at != '-') {
            if (!scanCharacter())
                return false;
        } else if (at[1] != '-') {
            ++at;
        } else if (at[2] != '>') {
            return fail("\"--\" may not stand in a comment");
        } else {
            at += 3;
            return true;
        }
    }
}

bool XmlCursor::scanInstruction() {
    const char* const start = at - 2;
    std::string_view target;
    if (!scanName(target, "a processing instruction"))
        return false;
    if (isXmlInAnyCase(target))
        return fail(start, target == "xml" ? "the XML declaration may stand at the very start only"
                                           : "the name " + quoted(target) + " is reserved");
    if (take("?>"))
        return true;
    if (!requireSpace("after the name of a processing instruction"))
        return false;
    for (;;) {
        while (*at != '?' && !hasClass(*at, xml_byte::plainStop))
            ++at;
        if (atEnd())
            return fail(start, "a processing instruction is not closed");
        if (take("?>"))
            return true;
        if (*at == '?')
            ++at;
        else if (!scanCharacter())
            return false;
    }
}

bool XmlCursor::scanCharacter() {
    if (atEnd())
        return fail("the file ends too early");
    const Utf8Character character = utf8At(at);
    if (character.length == 0)
        return fail("the bytes are not valid in the file's encoding");
    if (!isXmlCharacter(character.code))
        return fail("the character " + codeText(character.code) + " is not allowed in XML");
    at += character.length;
    return true;
}

bool XmlCursor::fail(const char* where, std::string problem) {
    if (fault_.problem.empty())
        fault_ = {static_cast<std::size_t>(where - begin_), std::move(problem)};
    return false;
}

} // namespace quillset
