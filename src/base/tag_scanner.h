#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// One attribute of a start tag.
struct TagAttribute {
    std::string_view name;
    std::string_view value; ///< references resolved, white space as blanks
    std::size_t offset = 0; ///< of the name in the text
};

/// Goes through the tags of a text that is known to be well-formed, or of such a text's beginning: a text
/// that breaks off ends there, without the token that is cut. Comments, instructions and blank text are
/// passed over.
class TagScanner {
public:
    enum class Event { startTag, endTag, text, end };

    /// `text` is UTF-8 and outlives the scanner.
    explicit TagScanner(std::string_view text)
        : text_(text) {}

    /// The next event. An empty element gives a start tag and an end tag.
    Event next();

    /// Of the last event: where it begins.
    [[nodiscard]] std::size_t offset() const { return offset_; }
    /// Of the last tag: behind its last character. The end of an empty element is that of its tag.
    [[nodiscard]] std::size_t endOffset() const { return at_; }
    /// Of the last start tag. Views are good until the next call of next().
    [[nodiscard]] std::string_view name() const { return name_; }
    [[nodiscard]] std::span<const TagAttribute> attributes() const { return attributes_; }

private:
    Event textEvent(std::size_t end);
    Event startTag();
    bool attribute();
    std::string_view resolved(std::string_view raw);
    Event finished();
    bool skipPast(std::string_view ending);
    void skipDoctype();
    void skipSpace();
    std::string_view takeName();

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t offset_ = 0;
    bool emptyElement_ = false;
    std::string_view name_;
    std::vector<TagAttribute> attributes_;
    std::vector<std::unique_ptr<std::string>> resolvedValues_; // of this tag, where they differ from the text
};

} // namespace quillset
