// The order of records and cells, read back by the independent reader; and what that reader makes of damage.

#include "compiled.h"

#include <gtest/gtest.h>

using namespace quillset::compiler;
using namespace quillset::compiler::test;

namespace {

std::string effectAt(const std::string& latitude, const std::string& longitude, const std::string& name) {
    return "<SceneryObject lat=\"" + latitude + "\" lon=\"" + longitude + "\"><Effect effectName=\"" + name +
           "\"/></SceneryObject>";
}

// The names of the effects in the order of the file, "|" between cells.
std::string orderOf(const Compiled& made) {
    std::istringstream lines(listed(made.bytes));
    std::string order;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(" cell"))
            order += order.empty() ? "" : "|";
        const std::size_t name = line.find("name=\"");
        if (name != std::string::npos)
            order += line.substr(name + 6, line.find('"', name + 6) - name - 6);
        if (line.starts_with("REMARK") || line.starts_with("damaged"))
            return line;
    }
    return order;
}

} // namespace

TEST(Sections, RecordsLieCellByCell) {
    const std::string xml = document(effectAt("52.1", "5.2", "A") + effectAt("38.94811", "-1.87493", "B") +
                                     effectAt("52.1", "5.2001", "C") + effectAt("52.1001", "5.2", "D") +
                                     effectAt("-33.25", "151.5", "E") + effectAt("52.1", "5.2", "F"));
    const Compiled made = compiled(xml);
    EXPECT_EQ(orderOf(made), "ACDF|B|E"); // as in the document
    EXPECT_EQ(made.result.cells, 3U);
    EXPECT_EQ(orderOf(compiled(xml, forFsx())), "FCDA|B|E"); // as the later compiler's sort leaves them
}

TEST(Sections, EveryCornerOfTheWorld) {
    std::string content;
    int count = 0;
    for (const char* latitude : {"90", "45", "0", "-45", "-90", "N0 0.0001", "S89 59.9999"})
        for (const char* longitude :
             {"-180", "-179.99999999", "-90", "0", "90", "179.99999999", "180", "W000 00.0001"}) {
            content += effectAt(latitude, longitude, "x");
            ++count;
        }
    const Compiled made = compiled(document(content));
    EXPECT_EQ(made.messages, std::vector<std::string>{});
    EXPECT_EQ(made.result.placements, static_cast<std::size_t>(count));
    const std::string listing = listed(made.bytes);
    EXPECT_EQ(listing.find("REMARK"), std::string::npos)
        << listing; // each in its cell, each cell in the header's
    EXPECT_TRUE(
        listing.starts_with("header cells 0x20 (level 2) 0x21 (level 2) 0x22 (level 2) 0x23 (level 2) "
                            "0x24 (level 2) 0x26 (level 2)\n"))
        << listing;
}

TEST(Sections, NothingToPlaceGivesAFileWithoutSections) {
    EXPECT_EQ(compiled(document("")).bytes.size(), 0x38U);
    EXPECT_EQ(listed(compiled(document("")).bytes), "header cells\n");
}

TEST(Listing, DamagedFilesAreToldApart) {
    const std::string good = compiled(document(effectAt("52.1", "5.2", "A") + effectAt("1", "1", "B"))).bytes;
    for (std::size_t length = 0; length < good.size(); ++length)
        EXPECT_TRUE(listed(good.substr(0, length)).starts_with("damaged")) << length;
    EXPECT_NE(listed(good + "x").find("REMARK"), std::string::npos);
    struct Row {
        std::size_t offset;
        char value;
        const char* problem;
    };
    const Row rows[] = {
        {0x00, 2, "no BGL file"},
        {0x14, 2, "the table should have"},       // a section more than there is
        {0x18, 0x12, "no cell of the header"},    // another header cell
        {0x40, 9, "the table should have"},       // parts of the section
        {0x4C, 0x71, "outside its cell"},         // number of the first cell
        {0x50, 2, "does not fit"},                // number of its records
        {0x6C + 2, 27, "does not fit"},           // size of the first record
        {0x6C + 2, 108, "without an end"},        // the same, one byte less
        {0x6C + 4 + 3, 0x01, "outside its cell"}, // its longitude
    };
    for (const Row& row : rows) {
        std::string bad = good;
        bad[row.offset] = row.value;
        EXPECT_NE(listed(bad).find(row.problem), std::string::npos) << row.problem << '\n' << listed(bad);
    }
}
