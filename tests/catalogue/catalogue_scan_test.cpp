#include "catalogue/catalogue_scan.h"
#include "catalogue_fixture.h"

#include <gtest/gtest.h>

namespace quillset::test {
namespace {

using Lines = std::vector<std::string>;

std::string duplicate(const std::string& where, const char* procedure = "rescanObjTree") {
    return "Error 35602 (Key is not unique in collection: " + where + ") in procedure " + procedure +
           " of Form frmObjTree";
}

const Lines buildings{"rectangular=Rectangular building", "pyramidal=Pyramidal building",
                      "multisided=MultiSided building"};

class CatalogueScanTest : public ::testing::Test, protected CatalogueFixture {};

TEST_F(CatalogueScanTest, BuildsAllGroupsInTheirOrder) {
    sources.userLibraries = {folder.write(
        "libs/user.xml", R"(<FSData><x><ModelData name="U1" sourceFile="c:\mdl\shed.mdl"/></x></FSData>)")};
    sources.rwy12Libraries = {folder.write(
        "libs/rwy.xml", R"(<objectsLibrary><category name="c"><obj name="All\Towers\Mast 10/20" guid="R1"/>)"
                        R"(<obj guid="R2" name="Mast"/></category></objectsLibrary>)")};
    sources.documentModels = {{"M1", R"(d:\models\house.mdl)"}};
    rescan();
    EXPECT_EQ(below("root"),
              (Lines{"generic=Default library objects", "  AA01=Barn", "  AA02=Crane", "effects=Effects",
                     "  fx_smoke.fx=fx_smoke.fx", "user=User library objects", "  user.xml=user.xml",
                     "    U1=shed.mdl", "  rwy.xml=rwy.xml", "    R1=Mast 10/20", "    R2=Mast",
                     "local=MDL objects", "  M1=house.mdl", "genbuild=Generic building",
                     "  rectangular=Rectangular building", "  pyramidal=Pyramidal building",
                     "  multisided=MultiSided building"}));
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(CatalogueScanTest, DefaultLibraryGoesByPositionNotByName) {
    folder.write("generic.xml",
                 "<l><LibraryObject><guid>AA01</guid><name>Barn</name></LibraryObject>"
                 "<LibraryObject>text<!-- n --><a>\n  Crane\n</a><!-- m --><b> AA02 </b><c>no</c>"
                 "</LibraryObject><group><LibraryObject><n>Mill</n></LibraryObject></group>"
                 "<libraryobject><n>x</n><g>y</g></libraryobject></l>");
    rescan();
    EXPECT_EQ(below("generic"), (Lines{"Barn=AA01", "AA02=Crane", "=Mill"}));
}

TEST_F(CatalogueScanTest, ReportsADuplicateKeyOncePerSourceAndGoesOn) {
    folder.write("generic.xml", "<l>" + defaultObject("Barn", "AA01") + defaultObject("Again", "AA01") +
                                    defaultObject("Again", "AA01") + defaultObject("Lost", "AA03") + "</l>");
    const std::string user = folder.write("user.xml", R"(<a><ModelData name="U1" sourceFile="1.mdl"/>)"
                                                      R"(<ModelData name="AA01" sourceFile="2.mdl"/>)"
                                                      R"(<ModelData name="U3" sourceFile="3.mdl"/></a>)");
    sources.userLibraries = {user, user};
    sources.rwy12Libraries = {folder.write("rwy.xml", R"(<a><obj guid="R1" name="r"/></a>)")};
    sources.documentModels = {{"generic", "g.mdl"}, {"M2", "m.mdl"}};
    rescan();
    EXPECT_EQ(messageTexts(),
              (Lines{duplicate("AA01 in generic.xml"), duplicate("AA01 in user.xml", "addNewUserLibrary"),
                     duplicate("user.xml in user.xml", "addNewUserLibrary"),
                     duplicate("generic in the scenery file")}));
    EXPECT_EQ(below("generic"), (Lines{"AA01=Barn"}));
    EXPECT_EQ(below("user"), (Lines{"user.xml=user.xml", "  U1=1.mdl", "rwy.xml=rwy.xml", "  R1=r"}));
    EXPECT_EQ(below("local"), Lines{});
    EXPECT_EQ(below("genbuild"), buildings);
    EXPECT_EQ(ended, 0);
}

TEST_F(CatalogueScanTest, AnObjectNeverTakesTheKeyOfAGroupOrBuilding) {
    folder.write("generic.xml", "<l>" + defaultObject("Barn", "user") + "</l>");
    sources.documentModels = {{"M1", "a.mdl"}, {"rectangular", "b.mdl"}};
    rescan();
    EXPECT_EQ(messageTexts(),
              (Lines{duplicate("user in generic.xml"), duplicate("rectangular in the scenery file")}));
    EXPECT_EQ(tree.getObjectName("user"), "User library objects");
    EXPECT_EQ(below("local"), (Lines{"M1=a.mdl"}));
    EXPECT_EQ(below("genbuild"), buildings);
}

TEST_F(CatalogueScanTest, AMissingDefaultLibraryOrSimulatorFolderCostsItsGroupOnly) {
    sources.genericFile = folder.file("none.xml");
    sources.simulatorFolder = folder.file("nowhere");
    rescan();
    EXPECT_EQ(
        dialogs.messages,
        (std::vector<Message>{{"Failed to load generic.xml file", "Quillset XML error", MessageButtons::ok,
                               MessageIcon::critical, "File not found: " + folder.file("none.xml")},
                              {"FS path not found, please check your config.xml file", "Quillset XML error",
                               MessageButtons::ok, MessageIcon::critical,
                               "There is no folder \"effects\" in " + folder.file("nowhere")}}));
    EXPECT_EQ(below("root"),
              (Lines{"generic=Default library objects", "user=User library objects", "local=MDL objects",
                     "genbuild=Generic building", "  rectangular=Rectangular building",
                     "  pyramidal=Pyramidal building", "  multisided=MultiSided building"}));
}

TEST_F(CatalogueScanTest, ABadLibraryIsToldAndTheRestIsBuilt) {
    const struct {
        const char* name;
        std::string bytes;
        bool valid;
    } rows[] = {
        {"empty", "", false},
        {"unclosed", R"(<a><ModelData name="X" sourceFile="1"/>)", false},
        {"binary", std::string("\0\x01\xFF\xFE<a/>", 8), false},
        {"nothing to show", R"(<a><obj guid="1"/><modeldata name="2"/></a>)", true},
    };
    const std::string good = folder.write("good.xml", R"(<a><ModelData name="U1" sourceFile="1"/></a>)");
    for (const auto& row : rows) {
        dialogs.messages.clear();
        sources.userLibraries = {folder.write("bad.xml", row.bytes), good};
        rescan();
        EXPECT_EQ(below("user"), (Lines{"good.xml=good.xml", "  U1=1"})) << row.name;
        const Lines told = row.valid ? Lines{} : Lines{"Please select a valid user library file"};
        EXPECT_EQ(messageTexts(), told) << row.name;
    }
}

TEST_F(CatalogueScanTest, AMissingFileIsNoLibrary) {
    sources.userLibraries = {folder.file("missing.xml"), ""};
    rescan();
    EXPECT_EQ(messageTexts(), Lines(2, "Please select a valid user library file"));
    EXPECT_EQ(below("genbuild"), buildings);
}

} // namespace
} // namespace quillset::test
