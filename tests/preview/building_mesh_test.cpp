#include "preview/building_mesh.h"

#include "preview/building_view.h"
#include "sample_buildings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

namespace quillset {
namespace {

using test::buildingFrom;
using test::multiSidedXml;
using test::pyramidalXml;
using test::rectangularXml;
using Triangle = std::array<MeshVertex, 3>;
using Vector = std::array<double, 3>;

const std::string roof20 = " sizeRoofY='20' gableTexture='19' faceTexture='20'";

std::vector<Triangle> trianglesOf(const MeshPart& part) {
    std::vector<Triangle> triangles;
    for (std::size_t i = 0; i + 2 < part.vertices.size(); i += 3)
        triangles.push_back({part.vertices[i], part.vertices[i + 1], part.vertices[i + 2]});
    return triangles;
}

std::vector<Triangle> trianglesOf(const BuildingMesh& mesh) {
    std::vector<Triangle> all;
    for (const MeshPart& part : mesh.parts) {
        const std::vector<Triangle> triangles = trianglesOf(part);
        all.insert(all.end(), triangles.begin(), triangles.end());
    }
    return all;
}

Vector edge(const MeshVertex& from, const MeshVertex& to) {
    return {double{to.position[0]} - from.position[0], double{to.position[1]} - from.position[1],
            double{to.position[2]} - from.position[2]};
}

double dot(const Vector& a, const std::array<float, 3>& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// Twice the area, pointing outwards.
Vector areaVector(const Triangle& t) {
    const Vector a = edge(t[0], t[1]);
    const Vector b = edge(t[0], t[2]);
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

// The volume above the ground. The missing underside lies in the plane of the origin and adds nothing.
double volumeOf(const BuildingMesh& mesh) {
    double volume = 0.0;
    for (const Triangle& t : trianglesOf(mesh))
        volume += dot(areaVector(t), t[0].position) / 6.0;
    return volume;
}

// The areas of a closed surface cancel out: what is left is the hole at the ground, looking up.
Vector openArea(const BuildingMesh& mesh) {
    Vector sum{};
    for (const Triangle& t : trianglesOf(mesh)) {
        const Vector area = areaVector(t);
        for (std::size_t i = 0; i < 3; ++i)
            sum[i] += area[i] / 2;
    }
    return sum;
}

double polygonArea(int sides) {
    return sides / 2.0 * 20 * 15 * std::sin(2 * std::numbers::pi / sides);
}

struct Shape {
    const char* name;
    std::string xml;
    double ground;
    double volume;
    double height;
};

std::vector<Shape> shapes() {
    const double box = 40.0 * 30 * 100;
    return {
        {"flat", rectangularXml("roofType='FLAT' sizeRoofY='20'"), 1200, box, 100},
        {"unknown roof type", rectangularXml("roofType='flat'" + roof20), 1200, box, 100},
        {"peaked", rectangularXml("roofType='PEAKED'" + roof20), 1200, box + 1200 * 20 / 3.0, 120},
        {"ridge", rectangularXml("roofType='RIDGE'" + roof20), 1200, box + 1200 * 20 / 2.0, 120},
        {"slant", rectangularXml("roofType='SLANT'" + roof20), 1200, box + 1200 * 20 / 2.0, 120},
        {"ridge, gable texture repeated upwards",
         rectangularXml("roofType='RIDGE' textureIndexGableY='640'" + roof20), 1200, box + 12000, 120},
        {"slant, face and gable repeated upwards",
         rectangularXml("roofType='SLANT' textureIndexGableY='999' textureIndexFaceY='640'" + roof20), 1200,
         box + 12000, 120},
        {"ridge without height", rectangularXml("roofType='RIDGE' sizeRoofY='0'"), 1200, box, 100},
        {"pyramid", pyramidalXml("sizeTopX='20' sizeTopZ='10'"), 1200, 100 / 6.0 * (1200 + 4 * 600 + 200),
         100},
        {"pyramid to a point", pyramidalXml("sizeTopX='0' sizeTopZ='0'"), 1200, 40000, 100},
        {"pyramid wider above", pyramidalXml("sizeTopX='80' sizeTopZ='30'"), 1200, 60.0 * 30 * 100, 100},
        {"three sides", multiSidedXml("buildingSides='3'"), polygonArea(3), polygonArea(3) * 100, 100},
        {"twelve sides, cone", multiSidedXml("buildingSides='12' sizeRoofY='30'"), polygonArea(12),
         polygonArea(12) * 110, 130},
        {"999 sides, round", multiSidedXml("buildingSides='999' smoothing='TRUE' sizeRoofY='30'"),
         polygonArea(999), polygonArea(999) * 110, 130},
    };
}

TEST(BuildingMesh, isClosedAndOfTheRightSize) {
    for (const Shape& shape : shapes()) {
        const BuildingMesh mesh = buildMesh(buildingFrom(shape.xml).value());
        EXPECT_NEAR(volumeOf(mesh), shape.volume, shape.volume * 1e-5) << shape.name;
        const Vector open = openArea(mesh);
        EXPECT_NEAR(open[0], 0.0, 0.05) << shape.name;
        EXPECT_NEAR(open[1], 0.0, 0.05) << shape.name;
        EXPECT_NEAR(open[2], shape.ground, 0.05) << shape.name;
        float highest = 0.0F;
        for (const Triangle& t : trianglesOf(mesh))
            for (const MeshVertex& vertex : t)
                highest = std::max(highest, vertex.position[2]);
        EXPECT_NEAR(highest, shape.height, 1e-3) << shape.name;
    }
}

// These shapes are convex, so every face must look away from the middle; its texture must not be mirrored.
TEST(BuildingMesh, facesLookOutwards) {
    for (const Shape& shape : shapes()) {
        const BuildingMesh mesh = buildMesh(buildingFrom(shape.xml).value());
        for (const Triangle& t : trianglesOf(mesh)) {
            const Vector area = areaVector(t);
            const double length = std::hypot(area[0], area[1], area[2]);
            EXPECT_GT(dot(area, {t[0].position[0], t[0].position[1], t[0].position[2] - 50.0F}), 0.0)
                << shape.name;
            for (const MeshVertex& vertex : t)
                EXPECT_GT(dot(area, vertex.normal) / length, 0.8) << shape.name;
            const double textureArea =
                double{t[1].texture[0] - t[0].texture[0]} * (t[2].texture[1] - t[0].texture[1]) -
                double{t[2].texture[0] - t[0].texture[0]} * (t[1].texture[1] - t[0].texture[1]);
            EXPECT_GT(textureArea, 0.0) << shape.name;
        }
    }
}

/// What a face that looks in one direction shows of its texture.
struct FaceTexture {
    double left = 1e9, right = -1e9, low = 1e9, high = -1e9;
};

FaceTexture faceTexture(const BuildingMesh& mesh, const Surface& surface, const Vector& direction) {
    FaceTexture face;
    for (const MeshPart& part : mesh.parts) {
        if (!(part.surface == surface))
            continue;
        for (const Triangle& t : trianglesOf(part)) {
            for (const MeshVertex& vertex : t) {
                if (dot(direction, vertex.normal) < 0.8)
                    continue;
                face.left = std::min(face.left, double{vertex.texture[0]});
                face.right = std::max(face.right, double{vertex.texture[0]});
                face.low = std::min(face.low, double{vertex.texture[1]});
                face.high = std::max(face.high, double{vertex.texture[1]});
            }
        }
    }
    return face;
}

TEST(BuildingMesh, texturesRepeatByTheirIndices) {
    const Vector south{0, -1, 0};
    const Vector north{0, 1, 0};
    const Vector east{1, 0, 0};
    const Vector west{-1, 0, 0};
    const Vector up{0, 0, 1};
    const std::string tiles = "textureIndexBottomX='768' textureIndexBottomZ='128'"
                              " textureIndexWindowX='512' textureIndexWindowY='1024' "
                              "textureIndexWindowZ='256' textureIndexRoofX='1280' textureIndexRoofY='896' "
                              "textureIndexRoofZ='384' textureIndexGableY='256' textureIndexGableZ='448'"
                              " textureIndexFaceX='704' textureIndexFaceY='64'";
    // Bottom and top differ in code here, so that the faces can be told apart.
    const auto meshOf = [&](const std::string& element, const std::string& attributes) {
        return buildMesh(buildingFrom("<GenericBuilding bottomTexture='8' windowTexture='9' topTexture='10' "
                                      "roofTexture='11'><" +
                                      element + " sizeX='40' sizeZ='40' sizeBottomY='10' sizeWindowY='20' " +
                                      attributes + tiles + "/></GenericBuilding>")
                             .value());
    };
    const Surface bottom = surfaceOf(TextureTable::wall, 8);
    const Surface window = surfaceOf(TextureTable::window, 9);
    const Surface roof = surfaceOf(TextureTable::roof, 11);
    const Surface gable = surfaceOf(TextureTable::wall, 19);
    const Surface face = surfaceOf(TextureTable::wall, 20);
    const std::string element = "RectangularBuilding";
    const BuildingMesh flat = meshOf(element, "");
    const BuildingMesh peaked = meshOf(element, "roofType='PEAKED' sizeRoofY='20' ");
    const BuildingMesh ridge = meshOf(element, "roofType='RIDGE' " + roof20 + " ");
    const BuildingMesh slant = meshOf(element, "roofType='SLANT' " + roof20 + " ");
    const BuildingMesh pyramid = meshOf("PyramidalBuilding", "sizeTopX='30' sizeTopZ='20' ");
    const BuildingMesh round = meshOf("MultiSidedBuilding", "buildingSides='8' ");
    struct Row {
        const char* name;
        const BuildingMesh& mesh;
        const Surface& surface;
        Vector direction;
        double left, right, low, high;
    };
    const Row rows[] = {
        {"bottom south", flat, bottom, south, 0, 3, 0, 1},
        {"bottom north", flat, bottom, north, 0, 3, 0, 1},
        {"bottom east", flat, bottom, east, 0, 0.5, 0, 1},
        {"window south", flat, window, south, 0, 2, 0, 4},
        {"window west", flat, window, west, 0, 1, 0, 4},
        {"flat roof", flat, roof, up, 0, 5, 0, 1.5},
        {"peaked roof south", peaked, roof, {0, -0.7, 0.7}, 0, 5, 0, 3.5},
        {"peaked roof west", peaked, roof, {-0.7, 0, 0.7}, 0, 1.5, 0, 3.5},
        {"ridge slope north", ridge, roof, {0, 0.7, 0.7}, 0, 5, 0, 1.5},
        {"ridge gable east", ridge, gable, east, 0, 1.75, 0, 1},
        {"slant roof", slant, roof, {0, -0.4, 0.9}, 0, 5, 0, 1.5},
        {"slant gable west", slant, gable, west, 0, 1.75, 0, 1},
        {"slant face", slant, face, north, 0, 2.75, 0, 0.25},
        {"pyramid window south", pyramid, window, south, 0, 2, 0, 4},
        {"pyramid roof", pyramid, roof, up, 0, 5, 0, 1.5},
        {"one octagon side", round, bottom, south, 0, 3 / 8.0, 0, 1},
    };
    for (const Row& row : rows) {
        const FaceTexture shown = faceTexture(row.mesh, row.surface, row.direction);
        EXPECT_NEAR(shown.left, row.left, 1e-6) << row.name;
        EXPECT_NEAR(shown.right, row.right, 1e-6) << row.name;
        EXPECT_NEAR(shown.low, row.low, 1e-6) << row.name;
        EXPECT_NEAR(shown.high, row.high, 1e-6) << row.name;
    }
    EXPECT_EQ(faceTexture(slant, face, south).right, -1e9) << "the high side is the northern one";
}

TEST(BuildingMesh, repeatedHalvesNeverShowTheOtherHalf) {
    const BuildingMesh mesh = buildMesh(
        buildingFrom(
            rectangularXml("roofType='SLANT' textureIndexGableY='65535' textureIndexFaceY='700'" + roof20))
            .value());
    for (const MeshPart& part : mesh.parts) {
        const auto* place = std::get_if<TexturePlace>(&part.surface);
        if (place == nullptr || place->part == TexturePart::whole)
            continue;
        for (const MeshVertex& vertex : part.vertices) {
            EXPECT_GE(vertex.texture[1], 0.0F);
            EXPECT_LE(vertex.texture[1], 1.0F);
        }
    }
}

TEST(BuildingMesh, polygonStandsWithAFlatSideSouth) {
    for (const int sides : {3, 4, 7, 12}) {
        const BuildingMesh mesh =
            buildMesh(buildingFrom(multiSidedXml("buildingSides='" + std::to_string(sides) + "'")).value());
        double south = 0.0;
        for (const Triangle& t : trianglesOf(mesh))
            for (const MeshVertex& vertex : t)
                south = std::max(south, dot({0, -1, 0}, vertex.normal));
        EXPECT_NEAR(south, 1.0, 1e-6) << sides;
    }
}

TEST(BuildingMesh, impossibleBuildingsAreDrawnAsFarAsTheyGo) {
    struct Row {
        const char* name;
        std::string xml;
        bool empty;
    };
    const Row rows[] = {
        {"no attributes", test::buildingXml("<RectangularBuilding/>"), true},
        {"no attributes, pyramid", test::buildingXml("<PyramidalBuilding/>"), true},
        {"no attributes, polygon", test::buildingXml("<MultiSidedBuilding/>"), true},
        {"scale 0",
         "<GenericBuilding scale='0'><RectangularBuilding sizeX='4' sizeZ='4' sizeTopY='3'/>"
         "</GenericBuilding>",
         true},
        {"no depth", test::buildingXml("<RectangularBuilding sizeX='4' sizeTopY='3'/>"), false},
        {"largest",
         "<GenericBuilding scale='1e300'><MultiSidedBuilding sizeX='1e9' sizeZ='1e9' "
         "sizeRoofY='1e9' buildingSides='1e9' smoothing='TRUE'/></GenericBuilding>",
         false},
    };
    for (const Row& row : rows) {
        const BuildingMesh mesh = buildMesh(buildingFrom(row.xml).value());
        EXPECT_EQ(trianglesOf(mesh).empty(), row.empty) << row.name;
        for (const Triangle& t : trianglesOf(mesh))
            for (const MeshVertex& vertex : t)
                for (std::size_t i = 0; i < 3; ++i)
                    EXPECT_TRUE(std::isfinite(vertex.position[i]) && std::isfinite(vertex.normal[i]))
                        << row.name;
    }
}

// The place of a vertex in the viewer's frame after the turn and the tilt.
Vector seen(const MeshVertex& vertex, double turnDegrees) {
    const double turn = turnDegrees * std::numbers::pi / 180;
    const double tilt = viewTiltDegrees * std::numbers::pi / 180;
    const Vector p{vertex.position[0], vertex.position[1], vertex.position[2]};
    const double right = p[0] * std::cos(turn) - p[1] * std::sin(turn);
    const double away = p[0] * std::sin(turn) + p[1] * std::cos(turn);
    return {right, away * std::cos(tilt) - p[2] * std::sin(tilt),
            away * std::sin(tilt) + p[2] * std::cos(tilt)};
}

TEST(BuildingView, holdsTheBuildingAtEveryAngle) {
    for (const Shape& shape : shapes()) {
        const BuildingMesh mesh = buildMesh(buildingFrom(shape.xml).value());
        for (const double aspect : {0.01, 0.5, 1.0, 1.7, 80.0}) {
            const ViewBox box = viewBoxOf(mesh, aspect);
            EXPECT_NEAR((box.right - box.left) / (box.top - box.bottom), aspect, aspect * 1e-9);
            const double middle = (box.top + box.bottom) / 2;
            double fill = 0.0;
            for (const Triangle& t : trianglesOf(mesh)) {
                for (int step = 0; step < 90; ++step) {
                    const Vector p = seen(t[static_cast<std::size_t>(step) % 3], step * 4);
                    const bool inside = p[0] > box.left && p[0] < box.right && p[1] > box.bottom &&
                                        p[1] < box.top && -p[2] > box.nearPlane && -p[2] < box.farPlane;
                    ASSERT_TRUE(inside) << shape.name << " at " << step * 4 << ", aspect " << aspect;
                    fill = std::max({fill, p[0] / box.right, std::abs(p[1] - middle) / (box.top - middle)});
                }
            }
            EXPECT_GT(fill, 0.85) << shape.name << ", aspect " << aspect;
        }
    }
    const ViewBox none = viewBoxOf({}, 1.0);
    EXPECT_LT(none.left, none.right);
    EXPECT_LT(none.nearPlane, none.farPlane);
}

} // namespace
} // namespace quillset
