#include "geodata/shapefile_export.h"

#include "document/scenery_document.h"
#include "geodata/memory_files.h"
#include "support/failing_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

std::string nameOf(const std::string& key) {
    return key == "AA01" ? "hangar.mdl" : "!unknown!";
}

struct ShapefileExport : testing::Test {
    /// The document whose root element holds that.
    void open(const std::string& content) {
        ASSERT_TRUE(document.load(folder.write("s.xml", "<FSData>" + content + "</FSData>")).ok);
    }
    ExportCount exported(const std::string& path) {
        return exportShapefile(document, nameOf, *files, folder.file(path));
    }
    /// Coordinates and record of a point, read with the library.
    [[nodiscard]] std::string point(const std::string& stem, int index) const {
        MemoryFiles read;
        for (const char* const extension : {"shp", "shx", "dbf"})
            read.file(extension) = folder.read(stem + "." + extension);
        SAHooks hooks = MemoryFiles::hooks();
        const ShapesHandle shapes(SHPOpenLL(read.name().c_str(), "rb", &hooks));
        const TableHandle table(DBFOpenLL(read.name().c_str(), "rb", &hooks));
        const ShapeHandle shape(SHPReadObject(shapes.get(), index));
        std::string text = std::to_string(shape->padfX[0]) + " " + std::to_string(shape->padfY[0]);
        for (int field = 0; field < DBFGetFieldCount(table.get()); ++field)
            text += std::string("|") + DBFReadStringAttribute(table.get(), index, field);
        return text;
    }

    test::TemporaryFolder folder;
    std::unique_ptr<FileOperations> files = systemFileOperations();
    SceneryDocument document;
};

} // namespace

TEST_F(ShapefileExport, EachKindOfPlacementHasItsLabel) {
    open(
        R"(<SceneryObject lat="52.1" lon="5.2" heading="90.5"><LibraryObject name="AA01"/></SceneryObject>)"
        R"(<!--my caf)"
        "\xC3\xA9"
        R"(--><SceneryObject lat="1" lon="2" heading="359.1234567890123"><LibraryObject name="ZZ"/></SceneryObject>)"
        R"(<!--3--><SceneryObject lat="-1" lon="-2" heading="-3"><Effect effectName="a.fx.fx"/></SceneryObject>)"
        R"(<!--4--><SceneryObject lat="0" lon="0" heading="0"><GenericBuilding/></SceneryObject>)"
        R"(<!--5--><SceneryObject lat="0" lon="0" heading="0"><Beacon/></SceneryObject>)");
    EXPECT_EQ(exported("\xC3\xA9\xE6\xA9\x8B.shp"), (ExportCount{5, 0}));
    const std::string stem = "\xC3\xA9\xE6\xA9\x8B";
    EXPECT_EQ(point(stem, 0), "5.200000 52.100000|hangar|AA01||90.500000000000");
    EXPECT_EQ(point(stem, 1), "2.000000 1.000000|!unknown!|ZZ|my caf\xC3\xA9|359.123456789012");
    EXPECT_EQ(point(stem, 2), "-2.000000 -1.000000|a|a.fx.fx|3|-3.000000000000");
    EXPECT_EQ(point(stem, 3), "0.000000 0.000000|unknown|unknown|4|0.000000000000");
    EXPECT_EQ(point(stem, 4), "0.000000 0.000000|unknown|unknown|5|0.000000000000");
    EXPECT_EQ(folder.read(stem + ".cpg"), "UTF-8");
    EXPECT_TRUE(folder.read(stem + ".prj").starts_with("GEOGCS[\"GCS_WGS_1984\""));
}

TEST_F(ShapefileExport, TextsThatMeanANumberCountAsThatNumber) {
    struct Row {
        const char* lat;
        const char* lon;
        const char* heading;
        const char* point;
        std::size_t unclear;
    };
    const Row rows[] = {
        {"N43 04.6550", "W070 49.4533", "12", "-70.824222 43.077583|12.000000000000", 0},
        {" +52.5 ", "1e1", "1e1", "10.000000 52.500000|10.000000000000", 0},
        {"95", "-181", "720", "-181.000000 95.000000|720.000000000000", 0},
        {"52.5 north", "5", "0", "5.000000 52.500000|0.000000000000", 1},
        {"52,5", "abc", "left", "0.000000 52.000000|0.000000000000", 1},
        {"", "5", "0", "5.000000 0.000000|0.000000000000", 1},
        {"1", "2", "", "2.000000 1.000000|0.000000000000", 1},
        {"1", "2", "123456789.123456789", "2.000000 1.000000|123456789.123456", 0},
        {"1", "2", "1e20", "2.000000 1.000000|0.000000000000", 1},
    };
    for (const Row& row : rows) {
        open(std::string("<SceneryObject lat=\"") + row.lat + "\" lon=\"" + row.lon + "\" heading=\"" +
             row.heading + "\"><GenericBuilding/></SceneryObject>");
        EXPECT_EQ(exported("n.shp"), (ExportCount{1, row.unclear})) << row.point;
        std::string found = point("n", 0);
        const std::string texts = "|unknown|unknown|";
        found.erase(found.find(texts), texts.size());
        EXPECT_EQ(found, row.point);
    }
}

TEST_F(ShapefileExport, LongTextsAreCutAfterAWholeCharacter) {
    const std::string sixtyFour(64, 'x');
    open("<!--" + sixtyFour + "\xC3\xA9--><SceneryObject><LibraryObject name=\"" + std::string(40, 'G') +
         "\"/></SceneryObject>");
    exported("cut.shp");
    EXPECT_EQ(point("cut", 0),
              "0.000000 0.000000|!unknown!|" + std::string(33, 'G') + "|" + sixtyFour + "|0.000000000000");
}

TEST_F(ShapefileExport, AnEmptyDocumentGivesTheFieldsAlone) {
    document.create("x.xml");
    EXPECT_EQ(exported("empty.SHP"), (ExportCount{0, 0}));
    EXPECT_EQ(folder.read("empty.SHP").size(), 100U);
    EXPECT_EQ(folder.read("empty.shx").size(), 100U);
    EXPECT_EQ(folder.read("empty.dbf").size(), 32U + 4 * 32 + 1 + 1);
}

TEST_F(ShapefileExport, OldFilesAreReplacedAllTogetherOrNotAtAll) {
    for (const char* const name : {"a.shp", "a.shx", "a.dbf", "a.qix", "a.sbn"})
        folder.write(name, "old");
    document.create("x.xml");
    test::FailingFiles failing(8);
    EXPECT_THROW(exportShapefile(document, nameOf, failing, folder.file("a.shp")), RuntimeError);
    for (const char* const name : {"a.shp", "a.shx", "a.dbf", "a.qix", "a.sbn"})
        EXPECT_EQ(folder.read(name), "old") << name;
    EXPECT_FALSE(folder.has("a.prj"));
    EXPECT_EQ(exported("a").points, 0U) << "the name is completed";
    EXPECT_EQ(folder.read("a.shp").size(), 100U);
    EXPECT_FALSE(folder.has("a.qix")) << "an index of the old points hides the new ones";
    EXPECT_FALSE(folder.has("a.sbn"));
}
