#include "preview/building.h"

#include "sample_buildings.h"

#include <gtest/gtest.h>

namespace quillset {
namespace {

using test::buildingFrom;
using test::buildingXml;

TEST(Building, readsSizesInMetres) {
    const auto building = buildingFrom(
        "<GenericBuilding scale='0.5' bottomTexture='0' roofTexture='2'>"
        "<MultiSidedBuilding buildingSides='12' smoothing='YES' sizeX='40.9' sizeZ='30' sizeBottomY='7'"
        " textureIndexBottomX='64' sizeRoofY='20' textureIndexRoofY='1024'/></GenericBuilding>");
    ASSERT_TRUE(building);
    EXPECT_EQ(building->kind, BuildingKind::multiSided);
    EXPECT_EQ(building->sides, 12);
    EXPECT_TRUE(building->smoothing);
    EXPECT_EQ(building->sizeX, 20.0) << "the compiled size is a whole number of units";
    EXPECT_EQ(building->sizeZ, 15.0);
    EXPECT_EQ(building->bottom.height, 3.5);
    EXPECT_EQ(building->bottom.cover.repeatX, 0.25);
    EXPECT_EQ(building->bottom.cover.surface, (Surface{PlainColour{255, 255, 255}}));
    EXPECT_EQ(building->roof.height, 10.0);
    EXPECT_EQ(building->roof.cover.repeatY, 4.0);
    EXPECT_EQ(building->roof.cover.surface, (Surface{PlainColour{0, 255, 0}}));
    EXPECT_EQ(building->window, Storey()) << "missing attributes: no height, neutral, once across";
}

TEST(Building, takesTheFirstBuildingElement) {
    const auto building = buildingFrom(
        buildingXml("<!-- a note --><Other/><PyramidalBuilding sizeX='3'/><RectangularBuilding sizeX='4'/>"));
    ASSERT_TRUE(building);
    EXPECT_EQ(building->kind, BuildingKind::pyramidal);
    EXPECT_EQ(building->sizeX, 3.0);
    EXPECT_EQ(buildingFrom(buildingXml("<!-- nothing --><Other/>")), std::nullopt);
    EXPECT_EQ(readBuilding(pugi::xml_node()), std::nullopt);
}

TEST(Building, badValuesStayInRange) {
    struct Row {
        const char* text;
        double size;
        int sides;
        Surface gable;
    };
    const Row rows[] = {
        {"", 0.0, 3, neutralColour},
        {"wall", 0.0, 3, neutralColour},
        {"-5", 0.0, 3, neutralColour},
        {"1e9", 65535.0, 999, neutralColour},
        {"1e999", 65535.0, 999, neutralColour},
        {"nan", 0.0, 3, neutralColour},
        {"7.9", 7.0, 7, neutralColour},
        {"4", 4.0, 4, PlainColour{0, 255, 0}},
    };
    for (const Row& row : rows) {
        const std::string value = row.text;
        const auto building =
            buildingFrom(buildingXml("<RectangularBuilding sizeX='" + value + "' buildingSides='" + value +
                                     "' gableTexture='" + value + "' roofType='" + value + "'/>"));
        ASSERT_TRUE(building);
        EXPECT_EQ(building->sizeX, row.size) << value;
        EXPECT_EQ(building->sides, row.sides) << value;
        EXPECT_EQ(building->gable.surface, row.gable) << value;
        EXPECT_EQ(building->roofType, RoofType::flat) << value;
    }
}

} // namespace
} // namespace quillset
