// Edits of the tree: what stands in the file before and after. S is a placement, M a model, P any element.
#include "base/runtime_error.h"
#include "document/local_models.h"
#include "document/new_placement.h"
#include "document/placement_move.h"
#include "document/placement_removal.h"
#include "document/property_table.h"
#include "document/roof_types.h"
#include "document/scenery_document.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>

namespace quillset {
namespace {

/// The short notation of the tables below as a file: [S1] is an empty placement with latitude 1, {S1} and
/// {/S} enclose one that holds something.
std::string expanded(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool open = text.substr(i, 2) == "{S";
        if (open || text.substr(i, 2) == "[S") {
            out.append("<SceneryObject lat=\"").append(text.substr(i + 2, 1)).append(open ? "\">" : "\"/>");
            i += 3;
        } else if (text.substr(i, 4) == "{/S}") {
            out += "</SceneryObject>";
            i += 3;
        } else {
            out += text[i];
        }
    }
    return out;
}

class Edits : public ::testing::Test {
protected:
    void load(const std::string& body) {
        const std::string file = "<FSData>" + expanded(body) + "</FSData>";
        ASSERT_TRUE(document.load(folder.write("in.xml", file)).ok) << file;
    }
    [[nodiscard]] std::string body() const {
        const std::string all = document.serialise();
        return all.substr(8, all.size() - 17);
    }
    /// The latitudes in the order of the index; they must be those of the file.
    [[nodiscard]] std::string order() const {
        std::string out;
        for (std::size_t i = 0; i < document.placementCount(); ++i)
            out += document.placement(i).attribute("lat").value();
        return out;
    }

    test::TemporaryFolder folder;
    SceneryDocument document;
};

struct AddCase {
    const char* name;
    const char* before;
    std::size_t selected;
    const char* after; ///< + is the new pair
    std::size_t index;
};

TEST_F(Edits, AddingBeforeUsesThePreviousSiblingWhateverItIs) {
    const AddCase cases[] = {
        {"comment", "<!--a-->[S1]<!--b-->[S2]", 1, "<!--a-->[S1]+<!--b-->[S2]", 1},
        {"first without comment", "[S1][S2]", 0, "+[S1][S2]", 0},
        {"element", "<!--a-->[S1][S2]", 1, "<!--a-->+[S1][S2]", 0},
        {"element with placements", "<P>[S1]{S2}[S3]{/S}</P>[S4]", 3, "+<P>[S1]{S2}[S3]{/S}</P>[S4]", 0},
        {"text", "[S1]words[S2]", 1, "[S1]+words[S2]", 1},
        {"nested", "{S1}<P/><!--n-->[S2]{/S}", 1, "{S1}<P/>+<!--n-->[S2]{/S}", 1},
    };
    for (const AddCase& c : cases) {
        load(c.before);
        const std::size_t count = document.placementCount();
        EXPECT_EQ(addPlacement(document, {"K", 0, 0, 0}, c.selected), c.index) << c.name;
        EXPECT_STREQ(document.placement(c.index).attribute("lat").value(), "0") << c.name;
        std::string after = body();
        const std::size_t pair =
            after.find("<!--Object " + std::to_string(count + 1) + "--><SceneryObject lat=\"0\"");
        ASSERT_NE(pair, std::string::npos) << c.name;
        const std::string end = "</SceneryObject>";
        after.replace(pair, after.find(end, pair) + end.size() - pair, "+");
        EXPECT_EQ(after, expanded(c.after)) << c.name;
    }
}

struct RemoveCase {
    const char* name;
    const char* before;
    std::size_t index;
    const char* after;
    const char* order;
};

TEST_F(Edits, RemovingTakesTheNodeBeforeAlong) {
    const RemoveCase cases[] = {
        {"comment", "<!--a-->[S1]<!--b-->[S2]", 0, "<!--b-->[S2]", "2"},
        {"nothing before", "[S1][S2]", 0, "[S2]", "2"},
        {"a placement with one inside", "{S1}[S2]{/S}[S3][S4]", 2, "[S4]", "4"},
        {"nested ones go too", "<!--a-->{S1}[S2]<P>[S3]</P>{/S}[S4]", 0, "[S4]", "4"},
        {"only text before", "<P/>words[S1]", 0, "<P/>", ""},
        {"nested", "{S1}<P/>[S2][S3]{/S}", 1, "{S1}[S3]{/S}", "13"},
    };
    for (const RemoveCase& c : cases) {
        load(c.before);
        removePlacement(document, c.index);
        EXPECT_EQ(body(), expanded(c.after)) << c.name;
        EXPECT_EQ(order(), c.order) << c.name;
    }
}

struct MoveCase {
    const char* name;
    const char* before;
    const char* moved; ///< latitude of the placement
    bool up;
    const char* after; ///< the same as before where it cannot move
    const char* order;
};

TEST_F(Edits, MovingTakesTheCommentAndStaysWithinTheParent) {
    const char* const three = "<!--a-->[S1]<!--b-->[S2]<!--c-->[S3]<M/>";
    const MoveCase cases[] = {
        {"up", three, "2", true, "<!--b-->[S2]<!--a-->[S1]<!--c-->[S3]<M/>", "213"},
        {"down in the middle", three, "1", false, "<!--b-->[S2]<!--a-->[S1]<!--c-->[S3]<M/>", "213"},
        {"down to the end, behind the rest", three, "2", false, "<!--a-->[S1]<!--c-->[S3]<M/><!--b-->[S2]",
         "132"},
        {"up from the top", three, "1", true, three, "123"},
        {"down from the end", three, "3", false, three, "123"},
        {"up without comments", "[S1][S2]", "2", true, "[S2][S1]", "21"},
        {"down without comments", "[S1][S2][S3]", "1", false, "[S2][S1][S3]", "213"},
        {"text does not travel", "[S1]words[S2]", "2", true, "[S2][S1]words", "21"},
        {"over an element that holds some", "<!--p--><P>[S1][S2]</P>[S3]", "3", true,
         "[S3]<!--p--><P>[S1][S2]</P>", "312"},
        {"down over nested ones", "[S1]{S2}[S3]{/S}<P>[S4]</P>", "1", false, "{S2}[S3]{/S}[S1]<P>[S4]</P>",
         "2314"},
        {"with nested ones", "[S1]{S2}[S3]{/S}", "2", true, "{S2}[S3]{/S}[S1]", "231"},
        {"nested among its own", "[S1]{S2}[S3][S4]<P/>{/S}[S5]", "3", false, "[S1]{S2}[S4]<P/>[S3]{/S}[S5]",
         "12435"},
        {"nested, first of its own", "{S1}[S2]{/S}", "2", true, "{S1}[S2]{/S}", "12"},
        {"nested, last of its own", "{S1}[S2]{/S}[S3]", "2", false, "{S1}[S2]{/S}[S3]", "123"},
    };
    for (const MoveCase& c : cases) {
        load(c.before);
        const std::size_t from = order().find(c.moved);
        const auto to = c.up ? movePlacementUp(document, from) : movePlacementDown(document, from);
        EXPECT_EQ(body(), expanded(c.after)) << c.name;
        EXPECT_EQ(order(), c.order) << c.name;
        EXPECT_EQ(to.has_value(), std::string(c.before) != c.after) << c.name;
        if (to) {
            EXPECT_STREQ(document.placement(*to).attribute("lat").value(), c.moved) << c.name;
        }
    }
}

TEST_F(Edits, PropertiesStandInFileOrderAtTheirLevels) {
    load(
        "<!-- Hangar 7 --><SceneryObject lon=\"5\" lat=\"52\"><!--x--><BiasXYZ biasX=\"1\"/><GenericBuilding "
        "scale=\"1.0\"><?p?><MultiSidedBuilding buildingSides=\"8\"/></GenericBuilding></SceneryObject>");
    const std::vector<PropertyEntry> expected = {
        {"comment", " Hangar 7 ", PropertyLevel::comment, 0}, {"lon", "5", PropertyLevel::placement, 0},
        {"lat", "52", PropertyLevel::placement, 1},           {"scale", "1.0", PropertyLevel::child, 0},
        {"buildingSides", "8", PropertyLevel::building, 0},
    };
    EXPECT_EQ(propertyTable(document, 0), expected);

    for (const PropertyEntry& entry : expected)
        writeProperty(document, 0, entry, "a<\"\x01&b,5");
    EXPECT_EQ(body(), "<!--a<\"&b,5--><SceneryObject lon=\"a&lt;&quot;&amp;b,5\" lat=\"a&lt;&quot;&amp;b,5\">"
                      "<!--x--><BiasXYZ biasX=\"1\"/><GenericBuilding scale=\"a&lt;&quot;&amp;b,5\"><?p?>"
                      "<MultiSidedBuilding buildingSides=\"a&lt;&quot;&amp;b,5\"/></GenericBuilding>"
                      "</SceneryObject>");
    EXPECT_THROW(writeProperty(document, 0, {"gone", "", PropertyLevel::child, 1}, "x"), RuntimeError);
}

TEST_F(Edits, TheSixtyFifthPropertyIsOutOfRange) {
    for (const int count : {63, 64}) {
        std::string attributes;
        for (int i = 0; i < count; ++i)
            attributes += " a" + std::to_string(i) + "=\"\"";
        load("<SceneryObject" + attributes + "/>");
        if (count == 63) {
            EXPECT_EQ(propertyTable(document, 0).size(), maximumProperties);
        } else {
            EXPECT_THROW(static_cast<void>(propertyTable(document, 0)), RuntimeError);
        }
    }
}

struct CommentCase {
    const char* before;
    const char* text;
    const char* after;
};

TEST_F(Edits, CommentsAreChangedOrMadeAndElementsAreLeftAlone) {
    const CommentCase cases[] = {
        {"<!--a-->[S1]", "b", "<!--b-->[S1]"},
        {"<!--a-->[S1]", "", "<!---->[S1]"},
        {"<!--a-->[S1]", "1--2-", "<!--1- -2- -->[S1]"},
        {"[S1]", "", "[S1]"},
        {"[S1]", "new", "<!--new-->[S1]"},
        {"{S2}<P/>{/S}[S1]", "new", "{S2}<P/>{/S}<!--new-->[S1]"},
        {"<?p x?>[S1]", "new", "<?p x?><!--new-->[S1]"},
        {"words[S1]", "new", "new[S1]"},
        {"words[S1]", "", "[S1]"},
        {"<![CDATA[w]]>[S1]", "n", "<![CDATA[n]]>[S1]"},
    };
    for (const CommentCase& c : cases) {
        load(c.before);
        writeProperty(document, document.placementCount() - 1, {"comment", "", PropertyLevel::comment, 0},
                      c.text);
        EXPECT_EQ(body(), expanded(c.after)) << c.before << " " << c.text;
    }
}

TEST_F(Edits, ARoofTypeBringsItsAttributes) {
    const std::string head = "<SceneryObject><GenericBuilding><RectangularBuilding roofType=\"";
    const std::string tail = "/></GenericBuilding></SceneryObject>";
    const std::string slant = " sizeX=\"40\" sizeRoofY=\"20\" gableTexture=\"18\" textureIndexGableY=\"256\" "
                              "textureIndexGableZ=\"256\" faceTexture=\"18\" textureIndexFaceX=\"256\" "
                              "textureIndexFaceY=\"256\"";
    const std::array<std::array<std::string, 3>, 6> cases{{
        {"SLANT", " sizeX=\"40\" sizeRoofY=\"7\" textureIndexRoofY=\"9\"", slant},
        {"RIDGE", slant,
         " sizeX=\"40\" sizeRoofY=\"20\" gableTexture=\"18\" textureIndexGableY=\"256\" "
         "textureIndexGableZ=\"256\""},
        {"PEAKED", slant, " sizeX=\"40\" sizeRoofY=\"20\" textureIndexRoofY=\"256\""},
        {"FLAT", slant + " textureIndexRoofY=\"1\"", " sizeX=\"40\""},
        {"flat", slant, slant},
        {"", slant, slant},
    }};
    for (const auto& [roof, before, after] : cases) {
        load(head + roof + "\"" + before + tail);
        reshapeRoof(document, 0);
        EXPECT_EQ(body(), head + roof + "\"" + after + tail) << roof;
    }
}

TEST_F(Edits, AModelIsRemovedWithItsPlacements) {
    load("<!--m--><ModelData name=\"G\" sourceFile=\"x.mdl\"/><!--n--><ModelData name=\"g\"/>"
         "<!--a-->{S1}<BiasXYZ/><LibraryObject name=\"G\"/>{/S}<!--b-->{S2}<LibraryObject name=\"g\"/>{/S}"
         "<P>{S3}<LibraryObject name=\"G\"/>{S4}<LibraryObject name=\"G\"/>{/S}{/S}</P>"
         "{S5}<Effect name=\"G\"/>{/S}<Q/>{S6}<LibraryObject name=\"G\"/>{/S}");
    EXPECT_TRUE(hasModelSource(document, "x.mdl"));
    EXPECT_FALSE(hasModelSource(document, "X.mdl"));
    EXPECT_EQ(removeLocalModel(document, "G"), std::vector<std::string>{"Q"});
    EXPECT_EQ(body(), expanded("<!--n--><ModelData name=\"g\"/><!--b-->{S2}<LibraryObject name=\"g\"/>{/S}"
                               "<P/>{S5}<Effect name=\"G\"/>{/S}"));
    EXPECT_EQ(order(), "25");

    int changes = 0;
    const Connection watch = document.changed.connect([&](const DocumentChange&) { ++changes; });
    const std::vector<LocalModel> added{{"NEW", "C:\\a--b.mdl"}, {"NEW2", "b.mdl"}};
    addLocalModels(document, added);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(body().ends_with(
        "<!--Object definition of C:\\a- -b.mdl--><ModelData name=\"NEW\" sourceFile=\"C:\\a--b.mdl\"/>"
        "<!--Object definition of b.mdl--><ModelData name=\"NEW2\" sourceFile=\"b.mdl\"/>"));
    EXPECT_EQ(localModels(document), (std::vector<LocalModel>{{"g", ""}, added[0], added[1]}));
}

TEST_F(Edits, ADocumentWithoutRootOrAPlacementAsRootStaysInOnePiece) {
    ASSERT_FALSE(document.load(folder.write("bad.xml", "<FSData>")).ok);
    EXPECT_THROW(addPlacement(document, {"K", 0, 0, 0}, std::nullopt), RuntimeError);
    EXPECT_THROW(addLocalModels(document, {}), RuntimeError);
    EXPECT_TRUE(removeLocalModel(document, "G").empty());

    ASSERT_TRUE(document.load(folder.write("root.xml", "<?xml version=\"1.0\"?><SceneryObject/>")).ok);
    EXPECT_EQ(addPlacement(document, {"K", 0, 0, 0}, 0), 1U);
    EXPECT_FALSE(movePlacementUp(document, 0) || movePlacementDown(document, 0));
    removePlacement(document, 0);
    EXPECT_EQ(document.serialise(), "<?xml version=\"1.0\"?>");
    EXPECT_EQ(document.placementCount(), 0U);
}

} // namespace
} // namespace quillset
