// Whole files and records with their bytes written out.

#include "compiled.h"

#include <gtest/gtest.h>

using namespace quillset::compiler;
using namespace quillset::compiler::test;

namespace {

const std::string common = "sizeX=\"40\" sizeZ=\"41\" sizeBottomY=\"10\" textureIndexBottomX=\"256\" "
                           "sizeWindowY=\"80\" textureIndexWindowX=\"512\" textureIndexWindowY=\"1024\" "
                           "sizeTopY=\"11\" textureIndexTopX=\"513\" textureIndexRoofX=\"1025\" "
                           "textureIndexRoofZ=\"1281\" ";
const std::string walls = common + "textureIndexBottomZ=\"257\" textureIndexWindowZ=\"258\" "
                                   "textureIndexTopZ=\"769\" ";

std::string building(const std::string& element) {
    return placed(
        "<GenericBuilding scale=\"1.0\" bottomTexture=\"18\" windowTexture=\"32\" topTexture=\"19\" "
        "roofTexture=\"25\">" +
        element + "</GenericBuilding>");
}

constexpr std::size_t dataOffset = 0x38 + 20 + 16; // one section with one cell

} // namespace

TEST(FileBytes, OneLibraryObject) {
    const std::string placement =
        "<!--Object 1--><SceneryObject lat=\"52.1\" lon=\"5.2\" alt=\"0M\" pitch=\"0.0\" bank=\"0.0\" "
        "heading=\"90\" altitudeIsAgl=\"TRUE\" imageComplexity=\"NORMAL\">"
        "<LibraryObject name=\"4808A0B04D43FC5620867D91FC8C6EB3\" scale=\"1.0\"/></SceneryObject>";
    const Compiled made = compiled(document(placement));
    EXPECT_EQ(made.messages, std::vector<std::string>{});
    EXPECT_EQ(digitsOf(made.bytes),
              digitsOf(bytesOf("01029219 38000000 50bc4e70 c0fec301 03180508 01000000"
                               "335a0800 00000000 00000000 00000000"
                               "00000000 00000000 00000000 00000000"
                               "25000000 01000000 01000000 4c000000 10000000"
                               "3ea38500 01000000 5c000000 30000000"
                               "0200 3000 4b7eb118 01dfbc06 00000000 0100 0000 0000 0040"
                               "0200 0000"
                               "b0a00848 56fc434d 917d8620 b36e8cfc 0000803f")));
    // The later simulator: another record number, an instance id of zeros, 16 bytes more.
    const Compiled later = compiled(document(placement), forFsx());
    EXPECT_EQ(digitsOf(later.bytes.substr(dataOffset)),
              digitsOf(bytesOf("0b00 4000 4b7eb118 01dfbc06 00000000 0100 0000 0000 0040 0200 0000"
                               "00000000 00000000 00000000 00000000"
                               "b0a00848 56fc434d 917d8620 b36e8cfc 0000803f")));
}

TEST(FileBytes, EffectsKeepAnOddLength) {
    const std::string two = document(
        "<SceneryObject lat=\"52.1\" lon=\"5.2\"><Effect effectName=\"fx_beaconwhi.fx\" effectParams=\"\"/>"
        "</SceneryObject><SceneryObject lat=\"52.1\" lon=\"5.2\">"
        "<Effect effectName=\"fx.fx\" effectParams=\"DAY=1;\u20AC\"/></SceneryObject>");
    const std::string name = "66785f626561636f6e7768692e6678";
    const std::string zeros(2 * 75, '0');
    const Compiled made = compiled(two);
    EXPECT_EQ(digitsOf(made.bytes.substr(dataOffset)),
              digitsOf(bytesOf("0400 6d00 4b7eb118 01dfbc06 00000000 0000 0000 0000 0000 0000 0000" + name +
                               std::string(2 * 65, '0') + "00" +
                               "0400 7400 4b7eb118 01dfbc06 00000000 0000 0000 0000 0000 0000 0000" +
                               "66782e6678" + zeros + "4441593d313b80 00")));
    const Compiled later = compiled(two, forFsx()); // 125 bytes, and the two change places
    EXPECT_EQ(digitsOf(later.bytes.substr(dataOffset, 4)), "0d008400");
    EXPECT_EQ(digitsOf(later.bytes.substr(dataOffset + 0x84, 4)), "0d007d00");
    EXPECT_EQ(later.bytes.size(), dataOffset + 0x84 + 125);
}

TEST(FileBytes, GenericBuildings) {
    struct Row {
        const char* name;
        std::string element;
        std::string record; // from the scale on
    };
    const std::string words =
        "2800 2900 1200 0a00 0001 0101 2000 5000 0002 0004 0201 1300 0b00 0102 0103 1900 "
        "0104 0105";
    const Row rows[] = {
        {"flat", "<RectangularBuilding roofType=\"FLAT\" " + walls + "/>",
         "0000803f a000 2a00 0400" + words + "2200"},
        {"peaked",
         "<RectangularBuilding roofType=\"PEAKED\" " + walls + "sizeRoofY=\"20\" textureIndexRoofY=\"262\"/>",
         "0000803f a000 2e00 0700" + words + "1400 0601 2200"},
        {"ridge",
         "<RectangularBuilding roofType=\"RIDGE\" " + walls +
             "sizeRoofY=\"20\" gableTexture=\"17\" textureIndexGableY=\"263\" textureIndexGableZ=\"264\"/>",
         "0000803f a000 3200 0600" + words + "1400 0701 1100 0801 2200"},
        {"slant",
         "<RectangularBuilding roofType=\"SLANT\" " + walls +
             "sizeRoofY=\"20\" gableTexture=\"17\" textureIndexGableY=\"263\" textureIndexGableZ=\"264\" "
             "faceTexture=\"16\" textureIndexFaceX=\"265\" textureIndexFaceY=\"266\"/>",
         "0000803f a000 3800 0800" + words + "1400 0701 1100 0801 1000 0901 0a01 2200"},
        {"pyramidal", "<PyramidalBuilding " + walls + "sizeTopX=\"30\" sizeTopZ=\"31\"/>",
         "0000803f a000 2e00 0900 2800 2900 1e00 1f00 1200 0a00 0001 0101 2000 5000 0002 0004 0201 1300 0b00 "
         "0102 0103 1900 0104 0105 2200"},
        {"multi-sided",
         "<MultiSidedBuilding buildingSides=\"12\" smoothing=\"TRUE\" " + common +
             "sizeRoofY=\"5\" textureIndexRoofY=\"259\"/>",
         "0000803f a000 2800 0a00 0c00 2800 2900 1200 0a00 0001 2000 5000 0002 0004 1300 0b00 0102 1900 0500 "
         "0104 0105 2200"},
    };
    for (const Row& row : rows) {
        const Compiled made = compiled(building(row.element));
        EXPECT_EQ(made.messages, std::vector<std::string>{}) << row.name;
        ASSERT_GT(made.bytes.size(), dataOffset) << row.name;
        EXPECT_EQ(digitsOf(made.bytes.substr(dataOffset + 28)), digitsOf(bytesOf(row.record))) << row.name;
        const Compiled later = compiled(building(row.element), forFsx());
        EXPECT_EQ(digitsOf(later.bytes.substr(dataOffset + 44)), digitsOf(bytesOf(row.record))) << row.name;
        EXPECT_EQ(digitsOf(later.bytes.substr(dataOffset, 2)), "0a00") << row.name;
    }
}

TEST(FileBytes, SeveralBuildingsShareThePlaceAndTheTextures) {
    const Compiled made =
        compiled(building("<RectangularBuilding roofType=\"FLAT\" " + walls + "/><PyramidalBuilding " +
                          walls + "sizeTopX=\"30\" sizeTopZ=\"31\"/>"));
    ASSERT_EQ(made.bytes.size(), dataOffset + 76 + 80);
    EXPECT_EQ(digitsOf(made.bytes.substr(dataOffset, 4)), "01004c00");
    EXPECT_EQ(digitsOf(made.bytes.substr(dataOffset + 76, 4)), "01005000");
    EXPECT_EQ(made.bytes.substr(dataOffset + 4, 24), made.bytes.substr(dataOffset + 76 + 4, 24));
    EXPECT_EQ(digitsOf(made.bytes.substr(dataOffset - 12, 4)), "02000000"); // two records in the cell
}

TEST(FileBytes, ElementsOnlyTheLaterSimulatorKnows) {
    const std::string xml =
        document("<SceneryObject instanceId=\"{4808a0b0-fc56-4d43-917d-8620b36e8cfc}\" lat=\"1\" lon=\"2\">"
                 "<NoAutogenSuppression/><NoFog/><Effect effectName=\"a.fx\"/></SceneryObject>");
    const Compiled later = compiled(xml, forFsx());
    EXPECT_EQ(digitsOf(later.bytes.substr(dataOffset + 16, 2)), "0a00"); // bits 1 and 3
    EXPECT_EQ(digitsOf(later.bytes.substr(dataOffset + 28, 16)), "b0a0084856fc434d917d8620b36e8cfc");
    EXPECT_EQ(compiled(xml).messages,
              (std::vector<std::string>{
                  "s.xml(1,38): error: <SceneryObject> "
                  "instanceId=\"{4808a0b0-fc56-4d43-917d-8620b36e8cfc}\": this attribute is not supported",
                  "s.xml(1,106): error: <NoAutogenSuppression>: this element is not supported",
                  "s.xml(1,129): error: <NoFog>: this element is not supported"}));
}
