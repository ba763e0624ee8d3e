#pragma once

#include "base/text_encoding.h"

#include <pugixml.hpp>

#include <string>
#include <string_view>

namespace quillset {

/// The bytes of writeXml() for a document that grows at the end of its root element, kept up to date at the
/// price of the new nodes alone.
class GrowingXml {
public:
    /// The root element must have a child. The document must outlive this and not change otherwise.
    GrowingXml(const pugi::xml_document& document, TextEncoding wanted);

    /// `first` and the siblings behind it have been appended to the root element.
    void append(const pugi::xml_node& first);

    /// The bytes, in two parts: `tail` is the end tag of the root element and what follows it.
    [[nodiscard]] std::string_view head() const { return head_; }
    [[nodiscard]] std::string_view tail() const { return tail_; }

private:
    bool writeAll();
    void writeAllSomehow();
    [[nodiscard]] std::string encoded(std::string utf8) const;

    const pugi::xml_document& document_;
    TextEncoding encoding_;
    std::string head_;
    std::string tail_;
};

} // namespace quillset
