#include "document/scenery_document.h"

#include "base/atomic_file.h"
#include "base/runtime_error.h"
#include "document/document_fixture.h"
#include "document/placement.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillset {
namespace {

class SceneryDocumentTest : public ::testing::Test, protected test::DocumentFixture {
protected:
    std::unique_ptr<FileOperations> files = systemFileOperations();
};

TEST_F(SceneryDocumentTest, KeepsAllThatAFileHolds) {
    const std::string file =
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<!--head \xE9-->\r\n<!DOCTYPE FSData>\r\n<?pi "
        "a?>\r\n"
        "<FSData xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' b=\"2\" a=\"'\">\n\t<Unknown z=\"1\" "
        "y=\"&lt;&#9;\"/>\n<SceneryObject lon=\"E5*\" lat=\"N52\"><![CDATA[<raw>]]></SceneryObject>t\xE9xt "
        "&amp; "
        "more</FSData><!--tail-->";
    open(file);
    list.setProperty(0, row("lon"), "W5");
    document.save(*files, folder.file("out.xml"));
    EXPECT_EQ(
        folder.read("out.xml"),
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<!--head \xE9-->\r\n<!DOCTYPE FSData>\r\n<?pi a?>"
        "\r\n<FSData xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" b=\"2\" a=\"'\">\r\n<Unknown "
        "z=\"1\" y=\"&lt;&#9;\"/>\r\n<SceneryObject lon=\"W5\" lat=\"N52\">\r\n<![CDATA[<raw>]]>\r\n"
        "</SceneryObject>t\xE9xt &amp; more</FSData>\r\n<!--tail-->\r\n");
    EXPECT_EQ(document.path(), folder.file("out.xml"));

    // Saved again, or undone and saved, it is the same file.
    const std::string saved = folder.read("out.xml");
    document.load(document.path());
    document.save(*files, document.path());
    EXPECT_EQ(folder.read("out.xml"), saved);
    journal.record(UndoKind::changeParameter);
    journal.undo();
    document.save(*files, document.path());
    EXPECT_EQ(folder.read("out.xml"), saved);
}

TEST_F(SceneryDocumentTest, UndoKeepsWhatTheFilesEncodingCannotHold) {
    open("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><FSData><!--a--><SceneryObject/></FSData>");
    list.setProperty(0, 0, "\xE2\x82\xAC 5");
    list.addNewObject("A", 0, 0, false);
    journal.undo();
    EXPECT_EQ(list.row(1).comment, "\xE2\x82\xAC 5");
    journal.undo();
    document.save(*files, document.path());
    EXPECT_TRUE(
        folder.read("scenery.xml").starts_with("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n"));
}

TEST_F(SceneryDocumentTest, AnUnreadableFileOpensEmptyAndCannotBeOverwritten) {
    const std::string truncated = folder.write("cut.xml", "<FSData><!--a--><SceneryObject/>");
    const std::string tworooted = folder.write("two.xml", "<FSData><SceneryObject/></FSData><FSData/>");
    for (const std::string& path : {truncated, tworooted, folder.write("empty.xml", ""), folder.path(),
                                    folder.file("missing.xml"), folder.write("bin.xml", "\x7F\x45LF\x02")}) {
        open("<FSData><SceneryObject/></FSData>");
        const XmlRead read = document.load(path);
        EXPECT_FALSE(read.ok || read.problem.empty()) << path;
        EXPECT_TRUE(document.isOpen()) << path;
        EXPECT_EQ(document.path(), path);
        EXPECT_EQ(list.rowCount(), 0) << path;
        EXPECT_THROW(document.save(*files, truncated), RuntimeError) << path;
    }
    EXPECT_EQ(folder.read("cut.xml"), "<FSData><!--a--><SceneryObject/>");
}

TEST_F(SceneryDocumentTest, AFailedSaveChangesNothing) {
    open("<FSData><SceneryObject/></FSData>");
    const std::string path = document.path();
    EXPECT_THROW(document.save(*files, folder.file("no such folder/out.xml")), RuntimeError);
    EXPECT_THROW(document.save(*files, folder.path()), RuntimeError);
    EXPECT_EQ(document.path(), path);
    EXPECT_EQ(folder.read("scenery.xml"), "<FSData><SceneryObject/></FSData>");
}

TEST_F(SceneryDocumentTest, ThePlacedThingIsFoundWhateverStandsBeforeIt) {
    open("<FSData><SceneryObject>x<!--c--><BiasXYZ/><GenericBuilding><!--c--><Odd/><PyramidalBuilding/>"
         "</GenericBuilding><Effect/></SceneryObject></FSData>");
    const pugi::xml_node placement = document.placement(0);
    EXPECT_EQ(placementKind(placement), PlacementKind::genericBuilding);
    EXPECT_STREQ(buildingElement(placement).name(), "PyramidalBuilding");
    EXPECT_EQ(placementKey(placement), "pyramidal");
    EXPECT_THROW(static_cast<void>(document.placement(1)), RuntimeError);
}

} // namespace
} // namespace quillset
