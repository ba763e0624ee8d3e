// Long runs of edits on documents of odd shapes. After each edit the index must be what an XPath query finds,
// a view fed with notifications alone must hold what a fresh look gives, and undo must bring back every byte.
#include "document/document_fixture.h"
#include "document/local_models.h"

#include <gtest/gtest.h>

#include <random>

namespace quillset {
namespace {

constexpr const char* shapes[] = {
    "<FSData><!--1--><SceneryObject lat=\"1\"><LibraryObject name=\"A\"/></SceneryObject><!--2-->"
    "<SceneryObject lat=\"2\"><Effect effectName=\"smoke.fx\"/></SceneryObject></FSData>",
    "<?xml version=\"1.0\"?><!--head--><?pi data?><FSData a=\"1\"><SceneryObject/><SceneryObject>"
    "<LibraryObject/></SceneryObject><SceneryObject/><ModelData "
    "name=\"M\"/><SceneryObject/></FSData><!--tail-->",
    "<FSData>words<SceneryObject><SceneryObject/><!--n--><SceneryObject><SceneryObject/>x</SceneryObject>"
    "</SceneryObject>more "
    "words<Airport><Tower><SceneryObject/></Tower><SceneryObject/></Airport><![CDATA[c]]>"
    "<SceneryObject><GenericBuilding><RectangularBuilding "
    "roofType=\"FLAT\"/></GenericBuilding></SceneryObject>"
    "<Q/></FSData>",
    "<SceneryObject lat=\"root\"><SceneryObject/><P><!--c--><SceneryObject/></P></SceneryObject>",
    "<FSData/>",
};

/// The rows as a view holds them that hears of changes only.
class MirroredRows {
public:
    explicit MirroredRows(ObjectList& list)
        : list_(list)
        , connection_(list.rowsChanged.connect([this](const RowChange& change) { apply(change); })) {
        apply({RowChange::Kind::reset, 1, 0});
    }
    std::vector<RowTexts> rows;

private:
    void apply(const RowChange& change) {
        const auto begin = rows.begin() + change.first - 1;
        if (change.kind == RowChange::Kind::inserted) {
            rows.insert(begin, static_cast<std::size_t>(change.count), RowTexts());
            refresh(change.first, change.count);
        } else if (change.kind == RowChange::Kind::removed) {
            rows.erase(begin, begin + change.count);
        } else if (change.kind == RowChange::Kind::changed) {
            refresh(change.first, change.count);
        } else {
            rows.assign(static_cast<std::size_t>(list_.rowCount()), RowTexts());
            refresh(1, list_.rowCount());
        }
    }
    void refresh(int first, int count) {
        for (int row = first; row < first + count; ++row)
            rows.at(static_cast<std::size_t>(row - 1)) = list_.row(row);
    }
    ObjectList& list_;
    Connection connection_;
};

class RandomEdits : public ::testing::TestWithParam<std::size_t>, protected test::DocumentFixture {
protected:
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
    std::string anyOf(const std::vector<std::string>& texts) {
        return texts[static_cast<std::size_t>(below(static_cast<int>(texts.size())))];
    }

    /// One edit at a random place; returns whether it recorded a snapshot.
    void edit() {
        list.click(1 + below(std::max(1, list.rowCount())));
        switch (below(9)) {
        case 0:
        case 1:
        case 2:
            list.addNewObject(anyOf({"A", "M", "smoke.fx", "rectangular", "multisided"}), below(90),
                              below(180), below(3) > 0);
            return;
        case 3:
            list.removeObject();
            return;
        case 4:
            list.moveUp();
            return;
        case 5:
            list.moveDown();
            return;
        case 6:
            list.UpdateObject(anyOf({"B", "new.fx"}));
            return;
        case 7:
            list.switchRoofType();
            return;
        default:
            if (!sheet.rows.empty())
                list.setProperty(sheet.index, below(static_cast<int>(sheet.rows.size())),
                                 anyOf({"", "RIDGE", "a--b-", "<&>\"'", " ", "caf\xC3\xA9", "]]>\n"}));
        }
    }
    void expectIndexIsFresh() {
        const pugi::xpath_node_set found = [&] {
            auto nodes = document.root().select_nodes("//SceneryObject");
            nodes.sort();
            return nodes;
        }();
        ASSERT_EQ(found.size(), document.placementCount());
        for (std::size_t i = 0; i < found.size(); ++i)
            ASSERT_EQ(found[i].node(), document.placement(i)) << i;
    }

    std::mt19937 random_{20041};
};

TEST_P(RandomEdits, KeepIndexRowsAndUndoRight) {
    open(shapes[GetParam()]);
    MirroredRows view(list);
    std::vector<std::string> states;
    for (int step = 0; step < 400; ++step) {
        const std::string before = document.serialise();
        edit();
        ASSERT_NO_FATAL_FAILURE(expectIndexIsFresh()) << step;
        ASSERT_TRUE(view.rows == rows()) << step;
        if (journal.count() > states.size())
            states.push_back(before);
        if (below(4) == 0 && journal.canUndo()) {
            journal.undo();
            list.fillXMLList();
            list.XMLListClick();
            ASSERT_EQ(document.serialise(), states.back()) << step;
            states.pop_back();
        }
        if (below(100) == 0) {
            removeLocalModel(document, anyOf({"A", "M"}));
            journal.reset();
            states.clear();
        }
        if (!document.hasRoot() || list.rowCount() > 30) {
            open(shapes[GetParam()]);
            journal.reset();
            states.clear();
        }
    }
    EXPECT_TRUE(dialogs.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(Shapes, RandomEdits, ::testing::Range(std::size_t{0}, std::size(shapes)));

} // namespace
} // namespace quillset
