#pragma once

#include "base/xml_cursor.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillset {

/// One attribute of a start tag, as views into the text.
struct XmlAttribute {
    std::string_view prefix;
    std::string_view local;
    std::string_view value;
};

/// Checks the attributes of one start tag after the other: no name twice, every prefix declared. Keeps the
/// declared prefixes of the open elements.
class XmlNamespaces {
public:
    XmlNamespaces();

    /// Forgets the previous tag's attributes.
    void startTag() {
        attributes_.clear();
        seen_ = 0;
        plainTag_ = true;
        mayRepeat_ = false;
    }
    void add(const XmlAttribute& attribute) {
        const std::uint64_t bit = std::uint64_t{1} << mix(attribute.local);
        mayRepeat_ = mayRepeat_ || (seen_ & bit) != 0;
        seen_ |= bit;
        plainTag_ = plainTag_ && attribute.prefix.empty() && attribute.local != "xmlns";
        attributes_.push_back(attribute);
    }
    /// Checks the tag's attributes and its own prefix, and opens the element's scope. False with a fault
    /// noted in the cursor.
    [[nodiscard]] bool finishTag(std::string_view elementPrefix, XmlCursor& cursor);
    /// Closes the innermost element's scope.
    void endElement();

private:
    static unsigned mix(std::string_view name) {
        const auto byte = [&](std::size_t i) {
            return static_cast<unsigned>(static_cast<unsigned char>(name[i]));
        };
        return (byte(0) * 5 + byte(name.size() - 1) * 11 + byte(name.size() / 2) * 3 +
                static_cast<unsigned>(name.size())) %
               64;
    }
    bool checkRepeated(XmlCursor& cursor) const;
    bool declare(XmlCursor& cursor);
    bool declareOne(std::string_view prefix, const XmlAttribute& attribute, XmlCursor& cursor);
    bool resolvePrefixed(XmlCursor& cursor) const;
    [[nodiscard]] bool isDeclared(std::string_view prefix) const;

    std::vector<XmlAttribute> attributes_;
    std::uint64_t seen_ = 0; // a bit for each name's mix: most tags need no comparison at all
    bool mayRepeat_ = false;
    bool plainTag_ = true;

    /// For each prefix the names it stands for, the innermost element's last.
    std::unordered_map<std::string_view, std::vector<std::string>> bound_;
    /// Prefixes in the order of their declaration, and how many each open element declares.
    std::vector<std::string_view> declared_;
    std::vector<std::size_t> counts_;
};

} // namespace quillset
