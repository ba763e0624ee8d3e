#pragma once

#include "base/tag_scanner.h"
#include "compiler/message.h"
#include "compiler/value_parsing.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillset::compiler {

/// What to do with elements and attributes of the schema that this compiler does not write.
enum class Unsupported { isError, isLeftOut };

/// Reads the attributes of one start tag as typed values. Each reading function names an attribute that is
/// allowed; finish() reports all others. A wrong or missing value is reported and gives T{}: whoever reads on
/// finds the other errors too, and the error count keeps the output from being written.
class AttributeReader {
public:
    /// Looks at the scanner's last start tag; the scanner must not move on before finish().
    AttributeReader(const TagScanner& scanner, Report& report)
        : element_(scanner.name())
        , offset_(scanner.offset())
        , attributes_(scanner.attributes())
        , report_(report) {
        asked_.reserve(32);
    }

    template <class T>
    T required(std::string_view name, const ValueKind<T>& kind) {
        if (const TagAttribute* attribute = find(name))
            return read(*attribute, kind);
        missing(name, kind.allowed);
        return T{};
    }
    template <class T>
    T optional(std::string_view name, const ValueKind<T>& kind, T missingValue) {
        const TagAttribute* attribute = find(name);
        return attribute != nullptr ? read(*attribute, kind) : missingValue;
    }

    /// The attribute of that name, for values that need more than their own text.
    [[nodiscard]] const TagAttribute* find(std::string_view name) {
        asked_.push_back(name);
        return look(name);
    }
    /// An attribute of the schema that this compiler does not write.
    void unsupported(std::string_view name, Unsupported treatment);
    /// Reports what is left: names that the element does not have.
    void finish();

    /// "<Element> attribute="value": PROBLEM".
    void error(const TagAttribute& attribute, std::string_view problem);
    void warning(const TagAttribute& attribute, std::string_view problem);

    [[nodiscard]] std::size_t offset() const { return offset_; }

private:
    const TagAttribute* look(std::string_view name);
    [[nodiscard]] bool allFound() const;
    template <class T>
    T read(const TagAttribute& attribute, const ValueKind<T>& kind) {
        auto value = kind.parse(attribute.value);
        if (!value)
            notAllowed(attribute, kind.allowed);
        return value ? std::move(*value) : T{};
    }
    void notAllowed(const TagAttribute& attribute, std::string_view allowed);
    void missing(std::string_view name, std::string_view allowed);
    [[nodiscard]] std::string described(const TagAttribute& attribute) const;

    std::string_view element_;
    std::size_t offset_;
    std::span<const TagAttribute> attributes_;
    Report& report_;
    std::vector<std::string_view> asked_; // the names that are allowed
    std::vector<std::string_view> unsupported_;
    std::size_t likely_ = 0;  // attributes are mostly asked for in the order in which they stand
    std::uint64_t found_ = 0; // a bit for each of the first 64 attributes that was asked for
};

} // namespace quillset::compiler
