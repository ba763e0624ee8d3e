#include "document/placement_ranges.h"

#include "base/tag_scanner.h"
#include "base/text_encoding.h"

#include <algorithm>
#include <string>

namespace quillset {

/// Turns ascending offsets into lines and columns.
class PlacementRanges::Walk {
public:
    explicit Walk(std::string_view text)
        : text_(text) {}

    Place to(std::size_t offset) {
        for (; offset_ < offset; ++offset_) {
            const char c = text_[offset_];
            const bool returnAlone = c == '\r' && text_.substr(offset_ + 1, 1) != "\n";
            if (c == '\n' || returnAlone)
                at_ = {at_.line + 1, 1};
            else if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80U)
                ++at_.column;
        }
        return at_;
    }

private:
    std::string_view text_;
    std::size_t offset_ = 0;
    Place at_;
};

PlacementRanges::PlacementRanges(std::string_view xml) {
    const EncodingChoice choice = detectEncoding(xml);
    std::string_view text = xml.substr(choice.markLength);
    std::string decoded;
    if (choice.encoding != TextEncoding::utf8 && choice.encoding != TextEncoding::utf8WithMark) {
        const Decoding size = decodeToUtf8(text, choice.encoding, nullptr);
        decoded.resize(size.size);
        if (size.problem.empty())
            (void)decodeToUtf8(text, choice.encoding, decoded.data());
        text = decoded;
    }
    TagScanner scanner(text);
    Walk walk(text);
    std::vector<std::size_t> open; // for each open element its placement, or none
    std::size_t inside = none;     // the innermost open placement
    for (auto event = scanner.next(); event != TagScanner::Event::end; event = scanner.next()) {
        if (event == TagScanner::Event::startTag) {
            const bool isPlacement = scanner.name() == "SceneryObject";
            open.push_back(isPlacement ? ranges_.size() : none);
            if (isPlacement) {
                const Place first = walk.to(scanner.offset());
                ranges_.push_back({first, first, inside});
                inside = open.back();
            } else if (scanner.name() == "ModelData") {
                modelLines_.push_back(walk.to(scanner.offset()).line);
            }
        } else if (event == TagScanner::Event::endTag && !open.empty()) {
            if (open.back() != none) {
                ranges_[inside].end = walk.to(scanner.endOffset());
                inside = ranges_[inside].parent;
            }
            open.pop_back();
        }
    }
}

std::optional<std::size_t> PlacementRanges::placementAt(std::size_t line,
                                                        std::optional<std::size_t> column) const {
    return column ? innermostAt({line, *column}) : onlyOneIn(line);
}

std::size_t PlacementRanges::lineOf(std::size_t placement) const {
    return placement < ranges_.size() ? ranges_[placement].first.line : 0;
}

std::size_t PlacementRanges::lineOfModel(std::size_t model) const {
    return model < modelLines_.size() ? modelLines_[model] : 0;
}

std::optional<std::size_t> PlacementRanges::innermostAt(const Place& place) const {
    const auto behind =
        std::upper_bound(ranges_.begin(), ranges_.end(), place,
                         [](const Place& at, const Range& range) { return at < range.first; });
    if (behind == ranges_.begin())
        return std::nullopt;
    std::size_t index = static_cast<std::size_t>(behind - ranges_.begin()) - 1;
    while (index != none && !(place < ranges_[index].end))
        index = ranges_[index].parent;
    return index == none ? std::nullopt : std::optional(index);
}

std::optional<std::size_t> PlacementRanges::onlyOneIn(std::size_t line) const {
    const auto around = innermostAt({line, 1});
    const auto first = std::lower_bound(ranges_.begin(), ranges_.end(), Place{line, 1},
                                        [](const Range& range, const Place& at) { return range.first < at; });
    const bool begins = first != ranges_.end() && first->first.line == line;
    if (!begins)
        return around;
    const auto second = first + 1;
    const bool another = second != ranges_.end() && second->first.line == line;
    const auto index = static_cast<std::size_t>(first - ranges_.begin());
    if (another || (around && *around != index))
        return std::nullopt;
    return index;
}

} // namespace quillset
