// What a user reads: every error of a file with its place, and nothing made of a file with an error.

#include "compiled.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quillset::compiler;
using namespace quillset::compiler::test;

namespace {

using Lines = std::vector<std::string>;

struct Row {
    const char* name;
    std::string xml;
    Lines messages;
};

const std::string notAllowed = ": this value is not allowed; allowed: ";
const std::string latitudes = "a number from -90 to 90, or a text such as N43 04.6550 or S12 30.5";
const std::string longitudes = "a number from -180 to 180, or a text such as W070 49.4533 or E5 12.0";
const std::string degrees = "a number of degrees";

std::string error(const std::string& place, const std::string& words) {
    return "s.xml(" + place + "): error: " + words;
}
std::string refused(const std::string& place, const std::string& attribute, const std::string& allowed) {
    return error(place, attribute + notAllowed + allowed);
}

void expectMessages(const Row& row, const CompileOptions& options = {}) {
    const Compiled made = compiled(row.xml, options);
    EXPECT_EQ(made.messages, row.messages) << row.name;
    const bool hasError = std::any_of(row.messages.begin(), row.messages.end(), [](const std::string& line) {
        return line.find(": error: ") != std::string::npos;
    });
    EXPECT_EQ(made.bytes.empty(), hasError) << row.name;
    EXPECT_EQ(made.result.errors + made.result.warnings, row.messages.size()) << row.name;
    if (!made.bytes.empty()) {
        EXPECT_EQ(listed(made.bytes).find("REMARK"), std::string::npos) << row.name;
    }
}

} // namespace

TEST(Messages, AllErrorsOfAFile) {
    expectMessages(
        {"every attribute wrong",
         "<?xml version=\"1.0\"?>\n"
         "<FSData version=\"9.0\">\r\n"
         "<!--\u20AC--><SceneryObject lat=\"152.1\" lon=\"5,2\" alt=\"0m\"\r"
         "\tpitch=\"\" bank=\"1e400\" heading=\"x\" altitudeIsAgl=\"true\" imageComplexity=\"normal\" "
         "Lat='1'>\n"
         "<LibraryObject name=\"4808A0B04D43FC5620867D91FC8C6EB\" scale=\"NaN\"/></SceneryObject>\n"
         "<SceneryObject lon=\"E181\"/>\n"
         "</FSData>\n",
         {refused("3,24", "<SceneryObject> lat=\"152.1\"", latitudes),
          refused("3,36", "<SceneryObject> lon=\"5,2\"", longitudes),
          refused("3,46", "<SceneryObject> alt=\"0m\"",
                  "a number that may end in M (metres) or F (feet), up to 2147483 metres up or down"),
          refused("4,2", "<SceneryObject> pitch=\"\"", degrees),
          refused("4,11", "<SceneryObject> bank=\"1e400\"", degrees),
          refused("4,24", "<SceneryObject> heading=\"x\"", degrees),
          refused("4,36", "<SceneryObject> altitudeIsAgl=\"true\"", "TRUE, YES, FALSE, NO"),
          refused("4,57", "<SceneryObject> imageComplexity=\"normal\"",
                  "VERY_SPARSE, SPARSE, NORMAL, DENSE, VERY_DENSE, EXTREMELY_DENSE"),
          error("4,82", "<SceneryObject> Lat=\"1\": unknown attribute; allowed are: lat, lon, alt, pitch, "
                        "bank, heading, altitudeIsAgl, imageComplexity"),
          refused("5,16", "<LibraryObject> name=\"4808A0B04D43FC5620867D91FC8C6EB\"",
                  "32 hexadecimal digits, or {8-4-4-4-12} hexadecimal digits"),
          refused("5,55", "<LibraryObject> scale=\"NaN\"", "a number above 0, at most 3.4e38"),
          error("6,1", "<SceneryObject>: the attribute lat is missing; allowed: " + latitudes),
          refused("6,16", "<SceneryObject> lon=\"E181\"", longitudes),
          "s.xml(6,1): warning: <SceneryObject>: places nothing; it should hold one of: LibraryObject, "
          "Effect, "
          "GenericBuilding"}});
}

TEST(Messages, Structure) {
    const std::string effect = "<Effect effectName=\"a.fx\"/>";
    const std::string many(100, 'x');
    const Row rows[] = {
        {"nothing wrong", placed(effect), {}},
        {"white space, comments, other vocabularies and line ends",
         "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<!-- x -->\r\n<FSData version=\"9.0\"\r\n"
         "xmlns:xsi='http://www.w3.org/2001/"
         "XMLSchema-instance'\txsi:noNamespaceSchemaLocation='bglcomp.xsd'>\r\n"
         "\t<?note x?><SceneryObject lat=\"1\" lon=\"2\">\n<!-- Z\xFCrich --> <Effect\neffectName=\"a.fx\" >"
         "</Effect>\n</SceneryObject>\n</FSData>\n<!-- end -->",
         {}},
        {"another root", "<Data/>", {"s.xml(1,1): error: <Data>: unknown root element; allowed: FSData"}},
        {"letter case counts",
         placed("<effect effectName=\"a.fx\"/>"),
         {error("1,54", "<effect>: unknown element in <SceneryObject>; allowed are: LibraryObject, Effect, "
                        "GenericBuilding")}},
        {"two objects",
         placed(effect + effect),
         {"s.xml(1,81): error: <Effect>: the placement holds an object already; allowed: one"}},
        {"text and a child where none may be",
         placed("x" + effect + "<Effect effectName=\"a.fx\"> y <b/></Effect>"),
         {"s.xml(1,54): error: <SceneryObject>: text is not allowed in this element",
          "s.xml(1,82): error: <Effect>: the placement holds an object already; allowed: one",
          "s.xml(1,109): error: <Effect>: text is not allowed in this element",
          "s.xml(1,111): error: <b>: unknown element in <Effect>; allowed are: none"}},
        {"a long value is cut, control characters replaced",
         placed("<Effect effectName=\"a&#10;" + many + "\"/>"),
         {"s.xml(1,62): error: <Effect> effectName=\"a?" + many.substr(0, 58) +
          "...\": this value is not allowed; allowed: 1 to 79 characters of windows-1252"}},
        {"references are resolved before the value counts",
         placed("<Effect effectName=\"&#x61;&lt;&amp;.fx\"/>"),
         {}},
        {"nothing placed",
         document(""),
         {"s.xml: warning: the file places nothing and holds no model; the output is empty"}},
        {"version",
         "<FSData version=\"8.0\"><SceneryObject lat='1' lon='2'>" + effect + "</SceneryObject></FSData>",
         {"s.xml(1,9): warning: <FSData> version=\"8.0\": another version than the expected 9.0"}},
        {"a building without its element",
         placed("<GenericBuilding bottomTexture='1' windowTexture='1' topTexture='1' roofTexture='1'/>"),
         {"s.xml(1,54): error: <GenericBuilding>: the building is missing; allowed: RectangularBuilding, "
          "PyramidalBuilding, MultiSidedBuilding"}},
        {"empty", "", {"s.xml(1,1): error: the file holds no element"}},
        {"no text at all",
         std::string("\0\1\2\xFF", 4),
         {"s.xml(1,1): error: there is text before the first element"}},
        {"cut in the middle",
         "<FSData version='9.0'><SceneryObject lat='95' lon='2'>" + effect + "<Effect",
         {refused("1,38", "<SceneryObject> lat=\"95\"", latitudes),
          error("1,89", "the file ends within a tag")}},
    };
    for (const Row& row : rows)
        expectMessages(row);
}

TEST(Messages, NumbersOfBuildings) {
    const auto building = [](const std::string& attributes) {
        return placed(
            "<GenericBuilding scale=\"1\" bottomTexture=\"1\" windowTexture=\"1\" topTexture=\"1\" "
            "roofTexture=\"1\"><RectangularBuilding sizeZ=\"1\" sizeBottomY=\"1\" textureIndexBottomX=\"1\" "
            "textureIndexBottomZ=\"1\" sizeWindowY=\"1\" textureIndexWindowX=\"1\" "
            "textureIndexWindowY=\"1\" textureIndexWindowZ=\"1\" sizeTopY=\"1\" textureIndexTopX=\"1\" "
            "textureIndexTopZ=\"1\" textureIndexRoofX=\"1\" textureIndexRoofZ=\"1\" " +
            attributes + "/></GenericBuilding>");
    };
    const auto at = [&](const std::string& attributes, const std::string& attribute) {
        return "s.xml(1," + std::to_string(building(attributes).find(attribute) + 1) + "): ";
    };
    struct Case {
        std::string attributes;
        std::string wrong; // the attribute in the message; none when all is well
        std::string problem;
    };
    const std::string whole = "error: <RectangularBuilding> ";
    const Case cases[] = {
        {"roofType=\"FLAT\" sizeX=\"40\"", "", ""},
        {"roofType=\"FLAT\" sizeX=\"40\" sizeRoofY=\"20\" gableTexture=\"18\"", "", ""}, // of another roof
        {"roofType=\"flat\" sizeX=\"40\"", "roofType=\"flat\"", notAllowed + "FLAT, PEAKED, RIDGE, SLANT"},
        {"roofType=\"FLAT\" sizeX=\"65536\"", "sizeX=\"65536\"", notAllowed + "a number from 0 to 65535"},
        {"roofType=\"FLAT\" sizeX=\"1\" sizeRoofY=\"1.5\"", "sizeRoofY=\"1.5\"",
         notAllowed + "a whole number from 0 to 65535"},
    };
    for (const Case& one : cases) {
        Lines expected;
        if (!one.wrong.empty())
            expected = {at(one.attributes, one.wrong) + whole + one.wrong + one.problem};
        expectMessages({one.attributes.c_str(), building(one.attributes), expected});
    }
    const std::string fraction = "roofType=\"FLAT\" sizeX=\"40.5\"";
    expectMessages(
        {"fraction",
         building(fraction),
         {at(fraction, "sizeX=") + "warning: <RectangularBuilding> sizeX=\"40.5\": only whole numbers can "
                                   "be stored; rounded to 41"}});
    EXPECT_EQ(compiled(building("roofType=\"SLANT\" sizeX=\"1\"")).result.errors,
              7U); // all that a slant needs
}

TEST(Messages, UnsupportedElements) {
    const std::string effect = "<Effect effectName=\"a.fx\"/>";
    const std::string xml =
        document("<Airport><SceneryObject lat=\"1\"/></Airport><SceneryObject lat=\"1\" lon=\"2\">"
                 "<Windsock poleHeight=\"1\"><PoleColor/></Windsock></SceneryObject>"
                 "<SceneryObject lat=\"1\" lon=\"2\" displayName=\"x\"><NoShadow/>" +
                 effect +
                 "<AttachedObject><BiasXYZ/></AttachedObject></SceneryObject>"
                 "<SceneryObject lat=\"1\" lon=\"2\"><BiasXYZ/>" +
                 effect + "</SceneryObject><Windsocks/>");
    expectMessages(
        {"errors",
         xml,
         {"s.xml(1,23): error: <Airport>: this element is not supported",
          "s.xml(1,97): error: <Windsock>: this element is not supported",
          "s.xml(1,192): error: <SceneryObject> displayName=\"x\": this attribute is not supported",
          "s.xml(1,208): error: <NoShadow>: this element is not supported",
          "s.xml(1,246): error: <AttachedObject>: this element is not supported",
          "s.xml(1,336): error: <BiasXYZ>: this element is not supported",
          "s.xml(1,389): error: <Windsocks>: unknown element in <FSData>; allowed are: SceneryObject, "
          "ModelData"}});
    CompileOptions skipping;
    skipping.skipUnsupported = true;
    const std::string known = xml.substr(0, xml.find("<Windsocks/>")) + "</FSData>";
    expectMessages(
        {"left out",
         known,
         {"s.xml(1,23): warning: <Airport>: this element is not supported; it is left out with all that it "
          "holds",
          "s.xml(1,97): warning: <Windsock>: this element is not supported; the whole placement is left out",
          "s.xml(1,192): warning: <SceneryObject> displayName=\"x\": this attribute is not supported and is "
          "left out",
          "s.xml(1,208): warning: <NoShadow>: this element is not supported; FS2004 does not know it",
          "s.xml(1,246): warning: <AttachedObject>: this element is not supported; it is left out of the "
          "placement",
          "s.xml(1,336): warning: <BiasXYZ>: this element is not supported; the whole placement is left "
          "out"}},
        skipping);
    const Compiled made = compiled(known, skipping);
    EXPECT_EQ(made.result.placements, 1U);
    EXPECT_EQ(made.result.leftOut.size(), 5U);
    EXPECT_EQ(made.result.leftOut.find("BiasXYZ")->second, 1U);
}

TEST(Messages, Encodings) {
    const std::string effect =
        "<?xml version='1.0' encoding='ENC'?>" + placed("<Effect effectName=\"\xFC.fx\"/>");
    const auto declared = [&](const std::string& encoding) {
        std::string xml = effect;
        return xml.replace(xml.find("ENC"), 3, encoding);
    };
    for (const char* encoding : {"ISO-8859-1", "windows-1252"}) {
        const Compiled made = compiled(declared(encoding));
        EXPECT_EQ(made.messages, Lines{}) << encoding;
        EXPECT_NE(made.bytes.find("\xFC.fx"), std::string::npos) << encoding;
    }
    EXPECT_EQ(compiled(declared("UTF-8")).messages,
              (Lines{"s.xml(1,112): error: the bytes are not valid in the file's encoding"}));
    EXPECT_EQ(compiled(declared("EBCDIC")).messages,
              (Lines{"s.xml(1,1): error: the encoding \"EBCDIC\" is not supported"}));
    // What could be decoded is read: two errors, the second at the byte that stands for nothing.
    EXPECT_EQ(compiled("<?xml version='1.0' encoding='US-ASCII'?>\n" +
                       document("<SceneryObject lat='91' lon='1'></SceneryObject>\n \xFC"))
                  .messages.back(),
              "s.xml(3,2): error: a byte stands for no character of the encoding US-ASCII");
    std::string wide = "\xFF\xFE";
    for (const char c : placed("<Effect effectName=\"a.fx\"/><x/>")) {
        wide += c;
        wide += '\0';
    }
    EXPECT_EQ(compiled(wide).messages.size(), 1U);
    EXPECT_EQ(compiled(wide).messages.front().substr(0, 32), "s.xml(1,81): error: <x>: unknown");
    const std::string half("\x00\xD8", 2); // and the text ends in the middle of a character as well
    EXPECT_EQ(compiled(wide.insert(2 + 2 * 4, half) + "\n").messages.back(),
              "s.xml(1,5): error: half of a character pair (a surrogate) stands alone");
}

// Every one is reported, and places that lie back are right too.
TEST(Messages, ManyErrorsAndPlacesThatLieBack) {
    std::string content;
    for (int i = 0; i < 3'000; ++i)
        content += "<ModelData name=\"00000000000000000000000000000001\" sourceFile=\"none.mdl\"/><x/>\n";
    const Compiled made = compiled(document(content));
    ASSERT_EQ(made.messages.size(), 6'000U);
    EXPECT_EQ(made.messages[2'999].substr(0, 20), "s.xml(3000,75): erro");
    EXPECT_EQ(made.messages[3'000].substr(0, 17), "s.xml(1,74): erro");
    EXPECT_EQ(made.messages[5'999].substr(0, 20), "s.xml(3000,52): erro");
}
