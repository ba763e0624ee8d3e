#include "base/text_encoding.h"
#include "document/placement_ranges.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

using Index = std::optional<std::size_t>;

// One letter for each character of a one-line text: the placement it belongs to, "." for none.
std::string ownersOf(const std::string& xml) {
    const PlacementRanges ranges(xml);
    std::string owners;
    for (std::size_t column = 1; column <= xml.size(); ++column) {
        const auto index = ranges.placementAt(1, column);
        owners.push_back(index ? static_cast<char>('a' + *index) : '.');
    }
    return owners;
}

} // namespace

TEST(PlacementRanges, EveryCharacterOfALine) {
    EXPECT_EQ(
        ownersOf("<r><!--<SceneryObject>--><SceneryObject x='>'/><SceneryObject><a/></SceneryObject></r>"),
        "........................."
        "aaaaaaaaaaaaaaaaaaaaaa"
        "bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb....");
    EXPECT_EQ(ownersOf("<r><t><SceneryObject><SceneryObject/> </SceneryObject></t><SceneryObjects/></r>"),
              "......aaaaaaaaaaaaaaabbbbbbbbbbbbbbbbaaaaaaaaaaaaaaaaa.........................");
    EXPECT_EQ(ownersOf(""), "");
    EXPECT_EQ(ownersOf("<SceneryObject"), "..............");
}

TEST(PlacementRanges, ColumnsCountCharactersInEveryEncoding) {
    const std::string utf8 = "<r><!--Zürich €--><SceneryObject/></r>";
    for (const auto encoding :
         {TextEncoding::utf8, TextEncoding::utf8WithMark, TextEncoding::utf16BigEndian}) {
        const PlacementRanges ranges(encodeText(utf8, encoding));
        EXPECT_EQ(ranges.placementAt(1, 18), Index{}) << static_cast<int>(encoding);
        EXPECT_EQ(ranges.placementAt(1, 19), Index{0}) << static_cast<int>(encoding);
        EXPECT_EQ(ranges.placementAt(1, 34), Index{0}) << static_cast<int>(encoding);
        EXPECT_EQ(ranges.placementAt(1, 35), Index{}) << static_cast<int>(encoding);
    }
}

TEST(PlacementRanges, LinesWithoutAColumn) {
    const PlacementRanges ranges("<r>\r\n<SceneryObject>\r\n<a/>\r\n</SceneryObject>\r\n"
                                 "<SceneryObject/>\r\n<SceneryObject/><SceneryObject/>\r\n</r>");
    const Index expected[] = {{}, 0, 0, 0, 1, {}, {}, {}};
    for (std::size_t line = 1; line <= std::size(expected); ++line)
        EXPECT_EQ(ranges.placementAt(line, std::nullopt), expected[line - 1]) << line;
    EXPECT_EQ(ranges.placementAt(3, 2), Index{0});
    EXPECT_EQ(ranges.placementAt(6, 17), Index{3});
    EXPECT_EQ(ranges.placementAt(4, 17), Index{}); // behind the end tag
}
