// Written here and read by programs for geographic data, and the other way round.
#include "base/atomic_file.h"
#include "document/scenery_document.h"
#include "geodata/reference_system.h"
#include "geodata/shapefile_export.h"
#include "geodata/shapefile_import.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

using namespace quillset;

namespace {

/// Runs a shell command and gives what it prints.
std::string outputOf(const std::string& command) {
    std::string output;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen((command + " 2>&1").c_str(), "r"), pclose);
    char buffer[4096];
    while (const std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe.get()))
        output.append(buffer, got);
    return output;
}

/// The lines of a CSV file without carriage returns.
std::string csvOf(const std::string& shapefile, const test::TemporaryFolder& folder) {
    const std::string said = outputOf(std::string(QUILLSET_OGR2OGR) + " -f CSV -lco GEOMETRY=AS_XY '" +
                                      folder.file("out.csv") + "' '" + shapefile + "'");
    EXPECT_EQ(said, "");
    std::string text = folder.read("out.csv");
    std::erase(text, '\r');
    return text;
}

std::string infoOf(const std::string& shapefile) {
    const std::string ogr2ogr = QUILLSET_OGR2OGR;
    return outputOf(ogr2ogr.substr(0, ogr2ogr.rfind('/') + 1) + "ogrinfo -so -al '" + shapefile + "'");
}

constexpr const char* scenery =
    "<FSData>"
    "<SceneryObject lat=\"52.155172301\" lon=\"5.387203508\" heading=\"359.123456789012\">"
    "<LibraryObject name=\"AA01\"/></SceneryObject>"
    "<!--caf\xC3\xA9 \xE6\xA9\x8B, \"two\"-->"
    "<SceneryObject lat=\"S33 30\" lon=\"W070 49.4533\" heading=\"-1.5\">"
    "<Effect effectName=\"\xC5\x93uvre.fx\"/></SceneryObject>"
    "</FSData>";

} // namespace

TEST(ShapefilePeer, OtherProgramsReadWhatIsExported) {
    const test::TemporaryFolder folder;
    SceneryDocument document;
    ASSERT_TRUE(document.load(folder.write("s.xml", scenery)).ok);
    const std::string path = folder.file("\xC3\xA9\xE6\xA9\x8B.shp");
    exportShapefile(
        document, [](const std::string&) { return "hangar.mdl"; }, *systemFileOperations(), path);

    const std::string info = infoOf(path);
    for (const char* const line : {"Geometry: Point\n", "Feature Count: 2\n", "GEOGCRS[\"WGS 84\"",
                                   "code: String (65.0)\nguid: String (33.0)\n"
                                   "xmlComment: String (65.0)\naoo: Real (16.12)\n"})
        EXPECT_NE(info.find(line), std::string::npos) << line << "\n" << info;
    EXPECT_EQ(csvOf(path, folder), "X,Y,code,guid,xmlComment,aoo\n"
                                   "5.387203508,52.155172301,hangar,AA01,,359.123456789012\n"
                                   "-70.8242216666667,-33.5,\xC5\x93uvre,\xC5\x93uvre.fx,"
                                   "\"caf\xC3\xA9 \xE6\xA9\x8B, \"\"two\"\"\",-1.500000000000\n");
}

TEST(ShapefilePeer, PointsThatAnotherProgramWroteInRdAreImported) {
    const test::TemporaryFolder folder;
    folder.write("points.csv", "x,y,DXF_LABEL\n155000,463000,AA01\n121000,487000,caf\xC3\xA9.fx\n");
    for (const std::string encoding : {"UTF-8", "ISO-8859-1", "CP1252"}) {
        const std::string path = folder.file(encoding + ".shp");
        const std::string said = outputOf(
            std::string(QUILLSET_OGR2OGR) +
            " -oo X_POSSIBLE_NAMES=x -oo Y_POSSIBLE_NAMES=y -a_srs EPSG:28992 -lco ENCODING=" + encoding +
            " '" + path + "' '" + folder.file("points.csv") + "'");
        ASSERT_EQ(said, "");
        EXPECT_TRUE(referenceSystemBeside(path).value().isRd);
        SceneryDocument document;
        document.create("x.xml");
        const ImportResult result = importShapefile(document, path);
        EXPECT_EQ(result.added, 2U) << encoding;
        const pugi::xml_node second = document.placement(1);
        EXPECT_STREQ(second.attribute("lat").value(), "52.3698269751196");
        EXPECT_STREQ(second.attribute("lon").value(), "4.88797016841449");
        EXPECT_STREQ(second.child("Effect").attribute("effectName").value(), "caf\xC3\xA9.fx") << encoding;
    }
    const std::string degrees = folder.file("degrees.shp");
    EXPECT_EQ(outputOf(std::string(QUILLSET_OGR2OGR) + " -t_srs EPSG:4326 '" + degrees + "' '" +
                       folder.file("UTF-8.shp") + "'"),
              "");
    EXPECT_FALSE(referenceSystemBeside(degrees).value().isRd);
}
