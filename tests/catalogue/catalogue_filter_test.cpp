#include "catalogue/catalogue_filter.h"

#include <gtest/gtest.h>

#include <string>

namespace quillset::test {
namespace {

class CatalogueFilterTest : public ::testing::Test {
protected:
    CatalogueFilterTest() {
        const NodeId generic = nodes.add(0, NodeKind::defaultGroup, "generic", "Default library objects");
        nodes.add(generic, NodeKind::defaultObject, "AA01", "Runway Light red");
        const NodeId local = nodes.add(0, NodeKind::localGroup, "local", "MDL objects");
        nodes.add(local, NodeKind::localModel, "BB01", "Größe.mdl");
        // Children that were added late, as models are.
        nodes.add(generic, NodeKind::defaultObject, "AA02", "Light house");
        nodes.add(local, NodeKind::localModel, "BB02", "light.mdl");
    }

    // Keys of what is shown, by walking down.
    [[nodiscard]] std::string shown(NodeId id = 0) const {
        std::string text(nodes.at(id).key);
        std::uint32_t row = 0;
        for (const NodeId child : filter.children(id)) {
            EXPECT_TRUE(filter.shows(child));
            EXPECT_EQ(filter.row(child), row++);
            text += " " + shown(child);
        }
        return text;
    }

    CatalogueNodes nodes;
    CatalogueFilter filter;
};

TEST_F(CatalogueFilterTest, ShowsMatchesWithTheirGroups) {
    struct Row {
        const char* search;
        const char* expected;
        const char* firstMatch;
    };
    const std::vector<Row> rows{
        {"", "root generic AA01 AA02 local BB01 BB02", nullptr},
        {"  \t", "root generic AA01 AA02 local BB01 BB02", nullptr},
        {"light", "root generic AA01 AA02 local BB02", "AA01"},
        {"RED  light", "root generic AA01", "AA01"},
        {"GRÖSSE", "root", nullptr},
        {"GRÖß", "root local BB01", "BB01"},
        {"bb02", "root local BB02", "BB02"},
        {"BB0", "root", nullptr},
        {"objects", "root", nullptr},
    };
    for (const Row& row : rows) {
        filter.apply(nodes, row.search, std::nullopt);
        EXPECT_EQ(shown(), row.expected) << row.search;
        const auto first = filter.firstMatch();
        EXPECT_EQ(first ? nodes.at(*first).key : "", row.firstMatch ? row.firstMatch : "") << row.search;
    }
}

TEST_F(CatalogueFilterTest, KeepsOneNodeShownInItsPlace) {
    filter.apply(nodes, "house", nodes.find("AA01"));
    EXPECT_EQ(shown(), "root generic AA01 AA02");
    EXPECT_EQ(nodes.at(*filter.firstMatch()).key, "AA02");
    filter.apply(nodes, "nothing", nodes.find("local"));
    EXPECT_EQ(shown(), "root local");
}

} // namespace
} // namespace quillset::test
