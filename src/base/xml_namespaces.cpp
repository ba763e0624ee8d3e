#include "base/xml_namespaces.h"

#include <algorithm>
#include <utility>

namespace quillset {

namespace {

// Identifiers that the recommendation "Namespaces in XML 1.0" reserves.
constexpr std::string_view xmlNamespace = "http://www.w3.org/XML/1998/namespace";
constexpr std::string_view xmlnsNamespace = "http://www.w3.org/2000/xmlns/";

std::string quoted(std::string_view prefix, std::string_view local) {
    std::string name = "\"";
    if (!prefix.empty())
        name.append(prefix).append(":");
    return name.append(local).append("\"");
}

// The value as a parser reports it: references replaced, white space as blanks. The text has been checked.
std::string normalised(std::string_view value) {
    constexpr std::pair<std::string_view, char> entities[] = {
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}};
    std::string out;
    for (std::size_t i = 0; i < value.size();) {
        const std::string_view rest = value.substr(i);
        const auto entity = std::find_if(std::begin(entities), std::end(entities),
                                         [&](const auto& row) { return rest.starts_with(row.first); });
        if (entity != std::end(entities)) {
            out.push_back(entity->second);
            i += entity->first.size();
        } else if (rest.starts_with("&#")) {
            const std::size_t end = rest.find(';');
            const bool hexadecimal = rest[2] == 'x';
            const std::string digits(rest.substr(hexadecimal ? 3 : 2, end));
            char bytes[4];
            const unsigned long code = std::stoul(digits, nullptr, hexadecimal ? 16 : 10);
            out.append(bytes, putUtf8(static_cast<char32_t>(code), bytes));
            i += end + 1;
        } else {
            const bool lineBreak = rest.starts_with("\r\n");
            out.push_back(hasClass(rest.front(), xml_byte::space) ? ' ' : rest.front());
            i += lineBreak ? 2 : 1;
        }
    }
    return out;
}

} // namespace

XmlNamespaces::XmlNamespaces() {
    bound_["xml"].emplace_back(xmlNamespace);
}

bool XmlNamespaces::finishTag(std::string_view elementPrefix, XmlCursor& cursor) {
    if (mayRepeat_ && !checkRepeated(cursor))
        return false;
    counts_.push_back(0);
    if (!plainTag_ && (!declare(cursor) || !resolvePrefixed(cursor)))
        return false;
    return elementPrefix.empty() || isDeclared(elementPrefix) ||
           cursor.fail(elementPrefix.data(),
                       "the prefix \"" + std::string(elementPrefix) + "\" is not declared");
}

void XmlNamespaces::endElement() {
    for (std::size_t count = counts_.back(); count > 0; --count) {
        bound_[declared_.back()].pop_back();
        declared_.pop_back();
    }
    counts_.pop_back();
}

bool XmlNamespaces::checkRepeated(XmlCursor& cursor) const {
    using Name = std::pair<std::string_view, std::string_view>;
    const auto repeated = [&cursor](const Name& name) {
        return cursor.fail(name.second.data(),
                           "the attribute " + quoted(name.first, name.second) + " stands twice in one tag");
    };
    constexpr std::size_t few = 40; // beyond that, comparing all pairs costs more than sorting
    if (attributes_.size() <= few) {
        for (std::size_t i = 1; i < attributes_.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                if (attributes_[i].local == attributes_[j].local &&
                    attributes_[i].prefix == attributes_[j].prefix)
                    return repeated({attributes_[i].prefix, attributes_[i].local});
        return true;
    }
    std::vector<Name> names;
    names.reserve(attributes_.size());
    for (const XmlAttribute& attribute : attributes_)
        names.emplace_back(attribute.prefix, attribute.local);
    std::sort(names.begin(), names.end());
    const auto twice = std::adjacent_find(names.begin(), names.end());
    return twice == names.end() || repeated(*twice);
}

bool XmlNamespaces::declare(XmlCursor& cursor) {
    for (const XmlAttribute& attribute : attributes_) {
        if (attribute.prefix == "xmlns" && !declareOne(attribute.local, attribute, cursor))
            return false;
        if (attribute.prefix.empty() && attribute.local == "xmlns" && !declareOne({}, attribute, cursor))
            return false;
    }
    return true;
}

bool XmlNamespaces::declareOne(std::string_view prefix, const XmlAttribute& attribute, XmlCursor& cursor) {
    const char* const where = attribute.local.data();
    std::string name = normalised(attribute.value);
    if (prefix == "xmlns")
        return cursor.fail(where, "the prefix \"xmlns\" may not be declared");
    if (name.empty() && !prefix.empty())
        return cursor.fail(where,
                           "the prefix \"" + std::string(prefix) + "\" is declared with an empty name");
    if ((prefix == "xml") != (name == xmlNamespace) || name == xmlnsNamespace)
        return cursor.fail(where, "the namespace \"" + name + "\" and the prefix \"" + std::string(prefix) +
                                      "\" do not belong together");
    bound_[prefix].push_back(std::move(name));
    declared_.push_back(prefix);
    ++counts_.back();
    return true;
}

bool XmlNamespaces::resolvePrefixed(XmlCursor& cursor) const {
    using Name = std::pair<std::string_view, std::string_view>;
    std::vector<Name> names;
    for (const XmlAttribute& attribute : attributes_) {
        if (attribute.prefix.empty() || attribute.prefix == "xmlns")
            continue;
        if (!isDeclared(attribute.prefix))
            return cursor.fail(attribute.prefix.data(),
                               "the prefix \"" + std::string(attribute.prefix) + "\" is not declared");
        names.emplace_back(bound_.at(attribute.prefix).back(), attribute.local);
    }
    std::sort(names.begin(), names.end());
    const auto twice = std::adjacent_find(names.begin(), names.end());
    return twice == names.end() ||
           cursor.fail(twice->second.data(),
                       "the attribute \"" + std::string(twice->second) +
                           "\" stands twice in one tag, under two prefixes of one namespace");
}

bool XmlNamespaces::isDeclared(std::string_view prefix) const {
    const auto found = bound_.find(prefix);
    return found != bound_.end() && !found->second.empty();
}

} // namespace quillset
