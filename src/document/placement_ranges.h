#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace quillset {

/// Where the placements and the models stand in a written file: a place named by a compiler's message leads
/// to the placement it is about, and what is found about a placement can be told with its line.
class PlacementRanges {
public:
    PlacementRanges() = default;
    /// `xml` holds the bytes of the file, in whatever encoding it declares; they are not kept. A file that
    /// cannot be decoded has no ranges. One walk over the text, 40 bytes for each placement.
    explicit PlacementRanges(std::string_view xml);

    /// The placement (counted from 0 in document order, as the document counts them) whose element, from its
    /// "<" to its last ">", holds this character; the innermost one where they are nested. Lines and columns
    /// count from 1, columns in characters. Without a column: the placement that this line is about, if the
    /// line holds parts of one only.
    [[nodiscard]] std::optional<std::size_t> placementAt(std::size_t line,
                                                         std::optional<std::size_t> column) const;

    /// The line on which a placement begins; 0 when there is no such placement.
    [[nodiscard]] std::size_t lineOf(std::size_t placement) const;
    /// The same for a model (ModelData), counted from 0 in document order.
    [[nodiscard]] std::size_t lineOfModel(std::size_t model) const;

private:
    struct Place {
        std::size_t line = 1;
        std::size_t column = 1;

        [[nodiscard]] bool operator<(const Place& other) const {
            return line != other.line ? line < other.line : column < other.column;
        }
    };
    struct Range {
        Place first;
        Place end;          // behind the last character
        std::size_t parent; // the placement around it, or none
    };
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    class Walk;
    [[nodiscard]] std::optional<std::size_t> innermostAt(const Place& place) const;
    [[nodiscard]] std::optional<std::size_t> onlyOneIn(std::size_t line) const;

    std::vector<Range> ranges_; // in document order
    std::vector<std::size_t> modelLines_;
};

} // namespace quillset
