#pragma once

#include "base/xml_characters.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quillset {

/// Where a text stops being well-formed XML, and why in words for the user.
struct XmlFault {
    std::size_t offset = 0;
    std::string problem;
};

/// A place in a UTF-8 text that ends in a zero byte, and the small pieces that every part of XML is made of.
/// The functions that return false have noted a fault; the caller gives up. Only the first fault is kept.
class XmlCursor {
public:
    /// `text.data()[text.size()]` must be 0.
    explicit XmlCursor(std::string_view text)
        : at(text.data())
        , begin_(text.data())
        , end_(text.data() + text.size()) {}

    /// The next byte to look at; never beyond the zero byte.
    const char* at;

    [[nodiscard]] bool atEnd() const { return at == end_; }
    [[nodiscard]] bool isNext(char c) const { return *at == c; }
    /// True when the text goes on with `what`.
    [[nodiscard]] bool isNext(std::string_view what) const;
    /// Steps over `what` when it comes next.
    [[nodiscard]] bool take(std::string_view what);
    [[nodiscard]] bool take(char c);

    /// Steps over white space; true when there was some.
    bool skipSpace() {
        const char* const start = at;
        while (hasClass(*at, xml_byte::space))
            ++at;
        return at != start;
    }
    /// White space that must be there; `where` names the place, as in "before the name".
    [[nodiscard]] bool requireSpace(const char* where);
    [[nodiscard]] bool require(char c, const char* where);

    /// A name without a colon; `what` names it in a fault, as in "an entity".
    [[nodiscard]] bool scanName(std::string_view& name, const char* what);
    /// A name of name characters in any order, colons included.
    [[nodiscard]] bool scanNameToken(const char* what);
    /// "name" or "prefix:name"; `prefix` is empty when there is none.
    [[nodiscard]] bool scanQualifiedName(std::string_view& prefix, std::string_view& local, const char* what);

    /// "&...;" where only the predefined entities and character references may stand.
    [[nodiscard]] bool scanReference();
    /// "&...;" as it may stand in the value of an entity: any name will do.
    [[nodiscard]] bool scanAnyReference();
    /// The rest of a comment, after "<!--".
    [[nodiscard]] bool scanComment();
    /// The rest of a processing instruction, after "<?".
    [[nodiscard]] bool scanInstruction();
    /// A character that is no ASCII or no legal one: steps over it or notes the fault.
    [[nodiscard]] bool scanCharacter();

    /// Notes a fault at `where` and gives false.
    bool fail(const char* where, std::string problem);
    bool fail(std::string problem) { return fail(at, std::move(problem)); }
    [[nodiscard]] const XmlFault& fault() const { return fault_; }

private:
    bool scanCharacterReference();
    bool scanNameRest();

    const char* begin_;
    const char* end_;
    XmlFault fault_;
};

} // namespace quillset
