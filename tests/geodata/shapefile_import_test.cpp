#include "geodata/shapefile_import.h"

#include "base/runtime_error.h"
#include "document/placement.h"
#include "document/scenery_document.h"
#include "geodata/reference_system.h"
#include "point_shapefile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

using namespace quillset;
using test::TestShape;
using test::TestShapefile;

namespace {

const std::string hangar = "5B0C8A4B4C1C4F5C9D2F0E4F6B5A3C21";
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

struct ShapefileImport : testing::Test {
    [[nodiscard]] PointFile read(const TestShapefile& file) const {
        return readPointFile(file.write(folder, "points"));
    }
    [[nodiscard]] std::string text(const TestShapefile& file) const {
        const PointFile points = read(file);
        return importText(points.points.size(), points.skipped);
    }
    static TestShapefile threePoints() {
        return TestShapefile({{155000, 463000, hangar}, {121000, 487000, "smoke.fx"}, {0, 0, "rectangular"}});
    }

    test::TemporaryFolder folder;
};

void putBigEndian(std::string& bytes, std::size_t at, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes[at++] = static_cast<char>(value >> shift & 0xFFU);
}

void putLittleEndian(std::string& bytes, std::size_t at, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes[at++] = static_cast<char>(value >> shift & 0xFFU);
}

} // namespace

TEST_F(ShapefileImport, PointsBecomePlacementsAtTheEnd) {
    SceneryDocument document;
    document.create("x.xml");
    const ImportResult result =
        importShapefile(document, threePoints().write(folder, "\xC3\xA9\xE6\xA9\x8B/p\xC3\xBC"));
    EXPECT_EQ(result.added, 3U);
    EXPECT_TRUE(result.skipped.empty());
    ASSERT_EQ(document.placementCount(), 3U);
    const pugi::xml_node first = document.placement(0);
    EXPECT_STREQ(first.attribute("lat").value(), "52.1551732749981");
    EXPECT_STREQ(first.attribute("lon").value(), "5.38720358836977");
    EXPECT_STREQ(first.attribute("heading").value(), "0");
    EXPECT_EQ(placementComment(first), "Object 1");
    EXPECT_EQ(placementKey(first), hangar);
    EXPECT_EQ(placementKind(document.placement(1)), PlacementKind::effect);
    EXPECT_EQ(placementKey(document.placement(2)), "rectangular");
    EXPECT_EQ(placementComment(document.placement(2)), "Object 3");
}

TEST_F(ShapefileImport, LabelsAreTrimmedAndDecoded) {
    struct Row {
        const char* what;
        const char* codePage;
        std::string label;
        std::string key;
    };
    const Row rows[] = {
        {"blanks", nullptr, "  A1 ", "A1"},
        {"an empty label names an object all the same", nullptr, "", ""},
        {"so does this one", nullptr, "unknown", "unknown"},
        {"UTF-8", "UTF-8", "caf\xC3\xA9.fx", "caf\xC3\xA9.fx"},
        {"ISO-8859-1 by its name", "ISO-8859-1", "caf\xE9.fx", "caf\xC3\xA9.fx"},
        {"windows-1251 by its name", "windows-1251", "\xE6.fx", "\xD0\xB6.fx"},
        {"the language byte of most programs", "LDID/87", "caf\xE9 \x80.fx", "caf\xC3\xA9 \xE2\x82\xAC.fx"},
        {"nothing said", nullptr, "caf\xE9.fx", "caf\xC3\xA9.fx"},
        {"a byte that the code page lacks", "LDID/87", "\x81.fx", "\xC2\x81.fx"},
    };
    for (const Row& row : rows) {
        const test::TemporaryFolder own;
        const auto path =
            TestShapefile({{0, 0, row.label}}, SHPT_POINT, "DXF_LABEL", row.codePage).write(own, "p");
        const PointFile file = readPointFile(path);
        ASSERT_EQ(file.points.size(), 1U) << row.what;
        EXPECT_EQ(file.points[0].key, row.key) << row.what;
    }
}

TEST_F(ShapefileImport, OtherFilesAreRefusedWithTheirReason) {
    EXPECT_EQ(read(TestShapefile({{1, 1, "A", SHPT_POINTZ}}, SHPT_POINTZ)).verdict,
              PointFile::Verdict::otherShapes);
    EXPECT_EQ(read(TestShapefile({{1, 1, "A"}}, SHPT_POINT, "guid")).verdict, PointFile::Verdict::noLabels);
    EXPECT_EQ(read(TestShapefile({{1, 1, "A"}}, SHPT_POINT, "dxf_label")).points.size(), 1U);
    EXPECT_STREQ(refusalText(PointFile::Verdict::otherShapes),
                 "This shapefile does not contain points and can thus not be read");
    EXPECT_STREQ(refusalText(PointFile::Verdict::noLabels),
                 "The DBase file does not contain a field named DXF_LABEL containing the GUIDs");

    for (const char* const missing : {"points.shp", "points.shx", "points.dbf"}) {
        const std::string path = threePoints().write(folder, "points");
        std::filesystem::remove(toPath(folder.file(missing)));
        try {
            (void)readPointFile(path);
            ADD_FAILURE() << missing;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), 53) << missing;
            EXPECT_NE(std::string(error.what()).find(missing), std::string::npos) << error.what();
        }
    }
}

TEST_F(ShapefileImport, TheOtherFilesAreFoundInEveryLetterCase) {
    const TestShapefile file = threePoints();
    folder.write("P.SHX", file.shx);
    folder.write("p.Dbf", file.dbf);
    EXPECT_EQ(readPointFile(folder.write("p.SHP", file.shp)).points.size(), 3U);
}

TEST_F(ShapefileImport, BadShapesAreSkippedAndNamed) {
    struct Row {
        std::function<void(TestShapefile&)> damage;
        const char* text;
    };
    const Row rows[] = {
        {[](TestShapefile&) {}, "4 points added"},
        {[](TestShapefile& f) { putLittleEndian(f.shp, 108 + 28, SHPT_NULL); },
         "3 points added, 1 skipped: shape 1 (no coordinates)"},
        {[](TestShapefile& f) { putLittleEndian(f.shp, 108 + 28, SHPT_POLYGON); },
         "3 points added, 1 skipped: shape 1 (damaged)"},
        {[](TestShapefile& f) { f.shp.resize(f.shp.size() - 28 - 10); },
         "2 points added, 2 skipped: shapes 2-3 (damaged)"},
        {[](TestShapefile& f) { putBigEndian(f.shx, 100 + 8, 0x70000000); },
         "3 points added, 1 skipped: shape 1 (damaged)"},
        {[](TestShapefile& f) { f.dbf[f.dbf.size() - 1 - 47 * 2] = '*'; },
         "3 points added, 1 skipped: shape 2 (deleted)"},
        {[](TestShapefile& f) { f.dbf.resize(f.dbf.size() - 50); },
         "2 points added, 2 skipped: shapes 2-3 (no record in the table)"},
        {[](TestShapefile& f) { putLittleEndian(f.dbf, 4, 1); },
         "1 point added, 3 skipped: shapes 1-3 (no record in the table)"},
        {[](TestShapefile& f) {
             putLittleEndian(f.dbf, 4, 0x7FFFFFFF);
             f.dbf.resize(f.dbf.size() - 50);
         },
         "2 points added, 2 skipped: shapes 2-3 (no record in the table)"},
    };
    for (const Row& row : rows) {
        TestShapefile file({{1, 1, "A"}, {2, 2, "B"}, {3, 3, "C"}, {4, 4, "D"}});
        row.damage(file);
        EXPECT_EQ(text(file), row.text);
    }
    EXPECT_EQ(
        text(TestShapefile({{1, 1, "A"},
                            {notANumber, 1, "B"},
                            {0, 0, "", SHPT_NULL},
                            {1, 1e308, "C"},
                            {-1e308, 1, "D"},
                            {1, 1, "E"}})),
        "2 points added, 4 skipped: shape 2 (no coordinates); shapes 1, 3-4 (coordinates out of range)");
}

// Whatever the bytes are: an error, or a result that accounts for every shape.
TEST_F(ShapefileImport, DamagedFilesNeverCrash) {
    const TestShapefile good = threePoints();
    std::mt19937 random(20031);
    int read = 0;
    for (int round = 0; round < 3000; ++round) {
        TestShapefile bad = good;
        std::string& file = round % 3 == 0 ? bad.shp : round % 3 == 1 ? bad.shx : bad.dbf;
        if (round % 5 == 0)
            file.resize(random() % file.size());
        else
            for (unsigned changes = 1 + random() % 4; changes > 0; --changes)
                file[random() % file.size()] = static_cast<char>(random());
        try {
            const PointFile result = readPointFile({bad.shp, bad.shx, bad.dbf, {}}, "points");
            ++read;
            if (result.verdict != PointFile::Verdict::points)
                continue;
            for (const NewPlacement& point : result.points)
                ASSERT_TRUE(std::isfinite(point.latitude) && std::isfinite(point.longitude));
        } catch (const RuntimeError&) {
        }
    }
    EXPECT_GT(read, 1000);
}

TEST_F(ShapefileImport, WithoutARootElementNothingIsRead) {
    SceneryDocument document;
    EXPECT_FALSE(document.load(folder.file("missing.xml")).ok);
    EXPECT_THROW(importShapefile(document, threePoints().write(folder, "points")), RuntimeError);
}

TEST(ReferenceSystem, RdIsToldByItsProjection) {
    const std::string esri =
        R"(PROJCS["RD_New",GEOGCS["GCS_Amersfoort",DATUM["D_Amersfoort",SPHEROID["Bessel_1841",6377397.155,)"
        R"(299.1528128]],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]],)"
        R"(PROJECTION["Double_Stereographic"],PARAMETER["False_Easting",155000.0],)"
        R"(PARAMETER["False_Northing",463000.0],PARAMETER["Central_Meridian",5.38763888888889],)"
        R"(PARAMETER["Scale_Factor",0.9999079],PARAMETER["Latitude_Of_Origin",52.1561605555556],UNIT["Meter",1.0]])";
    EXPECT_TRUE(referenceSystemIn(esri).isRd);
    EXPECT_EQ(referenceSystemIn(esri).name, "RD_New");
    EXPECT_TRUE(
        referenceSystemIn(R"(PROJCRS["Amersfoort / RD New",BASEGEOGCRS["Amersfoort"],CONVERSION["RD New",)"
                          R"(METHOD["Oblique Stereographic"],PARAMETER["False easting",155000],)"
                          R"(PARAMETER["False northing",463000]]])")
            .isRd);
    std::string old = esri;
    old.replace(old.find("155000.0"), 8, "0.0");
    old.replace(old.find("463000.0"), 8, "0.0");
    EXPECT_FALSE(referenceSystemIn(old).isRd);
    const ReferenceSystem degrees = referenceSystemIn(R"(GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984"]])");
    EXPECT_FALSE(degrees.isRd);
    EXPECT_EQ(degrees.name, "GCS_WGS_1984");
    for (const char* const text : {"not a projection", "[\"", "\"a\"", "PROJCS["})
        EXPECT_EQ(referenceSystemIn(text).name, "") << text;
}
