#include "base/xml_check.h"

#include <string>
#include <vector>

namespace quillset {

namespace {

// Checks the grammar of a DOCTYPE declaration and of the declarations in it, without acting on any of them.
class DoctypeChecker {
public:
    explicit DoctypeChecker(XmlCursor& cursor)
        : cursor_(cursor) {}

    bool check();

private:
    enum class Literal { entityValue, attributeDefault };
    enum class Members { tokens, notations };
    enum class SystemPart { required, optional };

    bool checkSubset();
    bool checkDeclaration();
    bool checkElement();
    bool checkContent();
    bool checkMixed();
    bool checkChildren();
    void closeGroups(std::vector<char>& separators);
    bool checkSeparator(char& ofGroup);
    void skipCount();
    bool checkAttributeList();
    bool checkAttributeType();
    bool checkEnumeration(Members members);
    bool checkDefault();
    bool checkEntity();
    bool checkNotation();
    bool checkExternalId(SystemPart system);
    bool checkSystemLiteral();
    bool checkPublicLiteral();
    bool checkLiteral(Literal kind);
    bool scanQualified(const char* what);
    bool scanSimple(const char* what);
    bool finish(const char* what);

    XmlCursor& cursor_;
};

bool DoctypeChecker::scanQualified(const char* what) {
    std::string_view prefix;
    std::string_view local;
    return cursor_.scanQualifiedName(prefix, local, what);
}

bool DoctypeChecker::scanSimple(const char* what) {
    std::string_view name;
    return cursor_.scanName(name, what);
}

bool DoctypeChecker::finish(const char* what) {
    cursor_.skipSpace();
    return cursor_.take('>') || cursor_.fail(std::string("the declaration of ") + what + " is malformed");
}

bool DoctypeChecker::check() {
    if (!cursor_.requireSpace("after DOCTYPE") || !scanQualified("the document type"))
        return false;
    const bool spaced = cursor_.skipSpace();
    if (spaced && (cursor_.isNext("SYSTEM") || cursor_.isNext("PUBLIC")) &&
        !checkExternalId(SystemPart::required))
        return false;
    cursor_.skipSpace();
    if (cursor_.take('[') && !checkSubset())
        return false;
    return finish("the document type");
}

bool DoctypeChecker::checkSubset() {
    for (;;) {
        cursor_.skipSpace();
        bool good = false;
        if (cursor_.take(']'))
            return true;
        if (cursor_.take('%'))
            good = scanSimple("an entity") && cursor_.require(';', "after the name of an entity");
        else if (cursor_.take("<!--"))
            good = cursor_.scanComment();
        else if (cursor_.take("<?"))
            good = cursor_.scanInstruction();
        else
            good = checkDeclaration();
        if (!good)
            return false;
    }
}

bool DoctypeChecker::checkDeclaration() {
    if (cursor_.take("<!ELEMENT"))
        return checkElement();
    if (cursor_.take("<!ATTLIST"))
        return checkAttributeList();
    if (cursor_.take("<!ENTITY"))
        return checkEntity();
    if (cursor_.take("<!NOTATION"))
        return checkNotation();
    return cursor_.fail(cursor_.atEnd() ? "the DOCTYPE declaration is not closed"
                                        : "the DOCTYPE declaration holds something unknown");
}

bool DoctypeChecker::checkElement() {
    return cursor_.requireSpace("before the name of an element") && scanQualified("an element") &&
           cursor_.requireSpace("after the name of an element") && checkContent() && finish("an element");
}

bool DoctypeChecker::checkContent() {
    if (cursor_.take("EMPTY") || cursor_.take("ANY"))
        return true;
    if (!cursor_.require('(', "in the declaration of an element"))
        return false;
    cursor_.skipSpace();
    return cursor_.take("#PCDATA") ? checkMixed() : checkChildren();
}

bool DoctypeChecker::checkMixed() {
    bool names = false;
    for (;;) {
        cursor_.skipSpace();
        if (cursor_.take(")*"))
            return true;
        if (!names && cursor_.take(')'))
            return true;
        if (!cursor_.require('|', "between the names of a declaration"))
            return false;
        cursor_.skipSpace();
        if (!scanQualified("an element"))
            return false;
        names = true;
    }
}

void DoctypeChecker::skipCount() {
    if (cursor_.isNext('?') || cursor_.isNext('*') || cursor_.isNext('+'))
        ++cursor_.at;
}

// Groups within groups, without recursion: for each open group its separator, 0 before the first.
bool DoctypeChecker::checkChildren() {
    std::vector<char> separators{'\0'};
    for (;;) {
        cursor_.skipSpace();
        if (cursor_.take('(')) {
            separators.push_back('\0');
            continue;
        }
        if (!scanQualified("an element"))
            return false;
        skipCount();
        closeGroups(separators);
        if (separators.empty())
            return true;
        if (!checkSeparator(separators.back()))
            return false;
    }
}

void DoctypeChecker::closeGroups(std::vector<char>& separators) {
    cursor_.skipSpace();
    while (!separators.empty() && cursor_.take(')')) {
        separators.pop_back();
        skipCount();
        cursor_.skipSpace();
    }
}

bool DoctypeChecker::checkSeparator(char& ofGroup) {
    const char separator = *cursor_.at;
    const bool fitting = ofGroup == '\0' || ofGroup == separator;
    if ((separator != '|' && separator != ',') || !fitting)
        return cursor_.fail("the content of an element is declared wrongly");
    ofGroup = separator;
    ++cursor_.at;
    return true;
}

bool DoctypeChecker::checkAttributeList() {
    if (!cursor_.requireSpace("before the name of an element") || !scanQualified("an element"))
        return false;
    for (;;) {
        const bool spaced = cursor_.skipSpace();
        if (cursor_.take('>'))
            return true;
        if (!spaced)
            return cursor_.fail("white space is missing before the name of an attribute");
        if (!scanQualified("an attribute") || !cursor_.requireSpace("after the name of an attribute") ||
            !checkAttributeType() || !cursor_.requireSpace("after the type of an attribute") ||
            !checkDefault())
            return false;
    }
}

bool DoctypeChecker::checkAttributeType() {
    if (cursor_.isNext('('))
        return checkEnumeration(Members::tokens);
    std::string_view type;
    const char* const start = cursor_.at;
    if (!cursor_.scanName(type, "the type of an attribute"))
        return false;
    if (type == "NOTATION")
        return cursor_.requireSpace("after NOTATION") && checkEnumeration(Members::notations);
    for (const std::string_view known :
         {"CDATA", "ID", "IDREF", "IDREFS", "ENTITY", "ENTITIES", "NMTOKEN", "NMTOKENS"})
        if (type == known)
            return true;
    return cursor_.fail(start, "the type of an attribute is unknown");
}

bool DoctypeChecker::checkEnumeration(Members members) {
    if (!cursor_.require('(', "in the type of an attribute"))
        return false;
    do {
        cursor_.skipSpace();
        if (members == Members::notations ? !scanSimple("a notation") : !cursor_.scanNameToken("a value"))
            return false;
        cursor_.skipSpace();
    } while (cursor_.take('|'));
    return cursor_.require(')', "in the type of an attribute");
}

bool DoctypeChecker::checkDefault() {
    if (cursor_.take("#REQUIRED") || cursor_.take("#IMPLIED"))
        return true;
    if (cursor_.take("#FIXED") && !cursor_.requireSpace("after #FIXED"))
        return false;
    return checkLiteral(Literal::attributeDefault);
}

bool DoctypeChecker::checkEntity() {
    if (!cursor_.requireSpace("before the name of an entity"))
        return false;
    const bool parameter = cursor_.take('%');
    if (parameter && !cursor_.requireSpace("before the name of an entity"))
        return false;
    if (!scanSimple("an entity") || !cursor_.requireSpace("after the name of an entity"))
        return false;
    if (cursor_.isNext('"') || cursor_.isNext('\''))
        return checkLiteral(Literal::entityValue) && finish("an entity");
    if (!checkExternalId(SystemPart::required))
        return false;
    const bool spaced = cursor_.skipSpace();
    if (!parameter && spaced && cursor_.take("NDATA") &&
        (!cursor_.requireSpace("after NDATA") || !scanSimple("a notation")))
        return false;
    return finish("an entity");
}

bool DoctypeChecker::checkNotation() {
    return cursor_.requireSpace("before the name of a notation") && scanSimple("a notation") &&
           cursor_.requireSpace("after the name of a notation") && checkExternalId(SystemPart::optional) &&
           finish("a notation");
}

bool DoctypeChecker::checkExternalId(SystemPart system) {
    if (cursor_.take("SYSTEM"))
        return cursor_.requireSpace("after SYSTEM") && checkSystemLiteral();
    if (!cursor_.take("PUBLIC"))
        return cursor_.fail("SYSTEM or PUBLIC is missing in a declaration");
    if (!cursor_.requireSpace("after PUBLIC") || !checkPublicLiteral())
        return false;
    const bool spaced = cursor_.skipSpace();
    if (cursor_.isNext('"') || cursor_.isNext('\''))
        return spaced ? checkSystemLiteral() : cursor_.requireSpace("between two identifiers");
    return system == SystemPart::optional || cursor_.fail("the system identifier is missing");
}

bool DoctypeChecker::checkSystemLiteral() {
    const char quote = *cursor_.at;
    if (quote != '"' && quote != '\'')
        return cursor_.fail("an identifier is not quoted");
    ++cursor_.at;
    while (!cursor_.take(quote)) {
        if (!hasClass(*cursor_.at, xml_byte::plainStop))
            ++cursor_.at;
        else if (!cursor_.scanCharacter())
            return false;
    }
    return true;
}

bool DoctypeChecker::checkPublicLiteral() {
    const char quote = *cursor_.at;
    if (quote != '"' && quote != '\'')
        return cursor_.fail("an identifier is not quoted");
    ++cursor_.at;
    while (*cursor_.at != quote && hasClass(*cursor_.at, xml_byte::literal))
        ++cursor_.at;
    return cursor_.take(quote) || cursor_.fail("a character may not stand in a public identifier");
}

// The value of an entity, where any reference may stand but no "%", or the default of an attribute.
bool DoctypeChecker::checkLiteral(Literal kind) {
    const char quote = *cursor_.at;
    if (quote != '"' && quote != '\'')
        return cursor_.fail("a value is not quoted");
    ++cursor_.at;
    while (!cursor_.take(quote)) {
        bool good = true;
        if (cursor_.isNext('&'))
            good = kind == Literal::entityValue ? cursor_.scanAnyReference() : cursor_.scanReference();
        else if (cursor_.isNext(kind == Literal::entityValue ? '%' : '<'))
            good = cursor_.fail("a character may not stand in a value");
        else if (hasClass(*cursor_.at, xml_byte::plainStop))
            good = cursor_.scanCharacter();
        else
            ++cursor_.at;
        if (!good)
            return false;
    }
    return true;
}

} // namespace

bool checkDoctype(XmlCursor& cursor) {
    return DoctypeChecker(cursor).check();
}

} // namespace quillset
