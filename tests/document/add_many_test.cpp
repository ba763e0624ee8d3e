#include "base/text_encoding.h"
#include "document/document_fixture.h"
#include "document/new_placement.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillset {
namespace {

const std::vector<NewPlacement> objects{
    {"A", 52.25, 5.125, 0},   {"caf\xC3\xA9 <\"&\xE6\xA9\x8B.fx", -1, 1, 0},
    {"rectangular", 0, 0, 0}, {"", 1e-7, 179.5, 0},
    {"B", 2, 3, 0},
};

bool goOn(std::size_t) {
    return true;
}

/// Every snapshot on the disk, then the document, as bytes.
std::vector<std::string> states(test::DocumentFixture& fixture) {
    std::vector<std::string> all;
    for (std::size_t i = 0; i < fixture.journal.count(); ++i)
        all.push_back(fixture.folder.read("undo000" + std::to_string(i) + ".xml"));
    all.push_back(fixture.document.serialise());
    return all;
}

} // namespace

TEST(AddMany, EveryStateIsWhatSingleAddsGive) {
    struct Row {
        const char* what;
        std::string file;
    };
    const auto encoded = [](const char* text, TextEncoding encoding) { return encodeText(text, encoding); };
    const Row rows[] = {
        {"an empty root element", "<FSData/>"},
        {"a placement", "<FSData><!--1--><SceneryObject/></FSData>"},
        {"text that is empty alone", "<FSData> </FSData>"},
        {"nodes around the root element",
         "<?xml version=\"1.0\"?><!DOCTYPE FSData><!--a--><FSData a=\"&lt;\xC3\xA9\">x<![CDATA[]]></FSData>"
         "<?p <!--Object 1--><SceneryObject ?><!--</FSData>-->"},
        {"a root element that is a placement", "<SceneryObject/>"},
        {"UTF-8 with its mark", "\xEF\xBB\xBF<FSData/>"},
        {"UTF-16", encoded("<?xml version=\"1.0\" encoding=\"UTF-16\"?><FSData><!--\xC3\xA9--></FSData>",
                           TextEncoding::utf16LittleEndian)},
        {"windows-1252, which lacks a character of a key",
         "<?xml version=\"1.0\" encoding=\"windows-1252\"?><FSData><!--\xE9--></FSData><!--\x80-->"},
        {"an encoding without a declaration it was read in", "<?xml version=\"1.0\"?><FSData/>"},
    };
    for (const Row& row : rows) {
        test::DocumentFixture many;
        test::DocumentFixture single;
        many.open(row.file);
        single.open(row.file);
        many.heading = single.heading = 12.5;
        EXPECT_EQ(many.list.addNewObjects(objects, goOn), objects.size());
        for (const NewPlacement& object : objects)
            single.list.addNewObject(object.key, object.latitude, object.longitude, false);
        ASSERT_EQ(many.journal.count(), objects.size()) << row.what;
        EXPECT_EQ(states(many), states(single)) << row.what;
        EXPECT_EQ(many.rows(), single.rows()) << row.what;
        EXPECT_EQ(many.list.selectedRow(), single.list.selectedRow()) << row.what;
        EXPECT_EQ(many.sheet.rows, single.sheet.rows) << row.what;
        EXPECT_EQ(many.dialogs.messages, single.dialogs.messages) << row.what;
    }
}

// A comment that came in as a character reference cannot be written in the file's encoding.
TEST(AddMany, ADocumentThatItsEncodingCannotHoldIsWrittenInUtf8) {
    test::DocumentFixture many;
    test::DocumentFixture single;
    for (test::DocumentFixture* const fixture : {&many, &single}) {
        fixture->open(
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><FSData><!--1--><SceneryObject/></FSData>");
        fixture->list.setProperty(0, 0, "\xE6\xA9\x8B");
    }
    many.list.addNewObjects(objects, goOn);
    for (const NewPlacement& object : objects)
        single.list.addNewObject(object.key, object.latitude, object.longitude, false);
    EXPECT_EQ(states(many), states(single));
}

TEST(AddMany, CanBeEndedAndUndoneStepByStep) {
    test::DocumentFixture fixture;
    fixture.open("<FSData/>");
    std::vector<std::size_t> asked;
    const auto untilThree = [&](std::size_t added) {
        asked.push_back(added);
        return added < 3;
    };
    EXPECT_EQ(fixture.list.addNewObjects(objects, untilThree), 3U);
    EXPECT_EQ(asked, (std::vector<std::size_t>{0, 1, 2, 3}));
    EXPECT_EQ(fixture.list.rowCount(), 3);
    EXPECT_EQ(fixture.list.selectedRow(), 3);
    for (std::size_t left = 3; left > 0; --left) {
        EXPECT_EQ(fixture.journal.undo(), "Undo add object");
        EXPECT_EQ(fixture.document.placementCount(), left - 1);
    }
    EXPECT_EQ(fixture.journal.undo(), std::nullopt);
}

TEST(AddMany, AFailedSnapshotEndsItWithOneReport) {
    test::DocumentFixture fixture;
    fixture.open("<FSData/>");
    fixture.folder.write("undo0002.xml/file", "a folder that is not empty cannot be replaced");
    EXPECT_EQ(fixture.list.addNewObjects(objects, goOn), 2U);
    EXPECT_EQ(fixture.document.placementCount(), 2U);
    EXPECT_EQ(fixture.journal.count(), 2U);
    ASSERT_EQ(fixture.dialogs.messages.size(), 1U);
    EXPECT_NE(fixture.dialogs.messages[0].text.find("in procedure addNewObject of Form frmXMLList"),
              std::string::npos);
    fixture.document.close();
    EXPECT_EQ(fixture.list.addNewObjects(objects, goOn), 0U);
}

} // namespace quillset
