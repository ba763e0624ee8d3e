#include "preview/building_mesh.h"

#include "preview/mesh_builder.h"
#include "preview/outline.h"
#include "preview/roof_mesh.h"

#include <array>

namespace quillset {

namespace {

// A leaning wall is wider below than above, which bends a texture stretched over two triangles; in narrow
// columns the bend is too small to be seen.
constexpr int leaningWallColumns = 8;

/// The walls from the ground up, as two outlines with the same number of sides.
struct Walls {
    Outline ground;
    Outline top;
    double height = 0.0;
    bool smoothing = false;

    [[nodiscard]] Vector3 corner(std::size_t side, double up) const {
        const std::size_t i = side % ground.size();
        const double t = height > 0.0 ? up / height : 0.0;
        return {ground[i].east + (top[i].east - ground[i].east) * t,
                ground[i].north + (top[i].north - ground[i].north) * t, up};
    }
    // Along a round wall the normal at a corner is the mean of the sides that meet there.
    [[nodiscard]] Vector3 cornerNormal(std::size_t side) const {
        const auto facing = [this](std::size_t i) {
            const Vector3 along = corner(i + 1, 0.0) - corner(i, 0.0);
            return normalised({along.north, -along.east, 0.0});
        };
        return normalised(facing(side + ground.size() - 1) + facing(side));
    }
};

struct Layer {
    double from = 0.0;
    double to = 0.0;
    double repeatUp = 1.0;
    const Cover* cover = nullptr;
};

void addWall(MeshBuilder& mesh, const Walls& walls, std::size_t side, const Layer& layer) {
    const OutlineSide& outline = walls.ground[side];
    const double repeat = outline.axis == Axis::x ? layer.cover->repeatX : layer.cover->repeatZ;
    const double left = outline.begin * repeat;
    const double right = outline.end * repeat;
    const FaceCorner lowerLeft{walls.corner(side, layer.from), left, 0.0};
    const FaceCorner lowerRight{walls.corner(side + 1, layer.from), right, 0.0};
    const FaceCorner upperRight{walls.corner(side + 1, layer.to), right, layer.repeatUp};
    const FaceCorner upperLeft{walls.corner(side, layer.to), left, layer.repeatUp};
    const Surface& surface = layer.cover->surface;
    if (walls.smoothing) {
        const Vector3 a = walls.cornerNormal(side);
        const Vector3 b = walls.cornerNormal(side + 1);
        mesh.addTriangle(surface, {lowerLeft, lowerRight, upperRight}, {a, b, b});
        mesh.addTriangle(surface, {lowerLeft, upperRight, upperLeft}, {a, b, a});
    } else {
        mesh.addTriangle(surface, {lowerLeft, lowerRight, upperRight});
        mesh.addTriangle(surface, {lowerLeft, upperRight, upperLeft});
    }
}

void addStoreys(MeshBuilder& mesh, const Building& building, const Walls& walls) {
    const double windowFrom = building.bottom.height;
    const double topFrom = windowFrom + building.window.height;
    // Bottom and top storeys have no vertical repeat: their texture covers the height once.
    const std::array<Layer, 3> layers{
        {{0.0, windowFrom, 1.0, &building.bottom.cover},
         {windowFrom, topFrom, building.window.cover.repeatY, &building.window.cover},
         {topFrom, topFrom + building.top.height, 1.0, &building.top.cover}}};
    for (const Layer& layer : layers)
        for (std::size_t side = 0; side < walls.ground.size(); ++side)
            addWall(mesh, walls, side, layer);
}

void addRectangularRoof(MeshBuilder& mesh, const Building& building, const Walls& walls) {
    const RoofType type = building.roof.height > 0.0 ? building.roofType : RoofType::flat;
    switch (type) {
    case RoofType::flat:
        return addFlatRoof(mesh, walls.top, building.sizeX, building.sizeZ, walls.height,
                           building.roof.cover);
    case RoofType::peaked:
        return addPointedRoof(mesh, building, walls.top, walls.height);
    case RoofType::ridge:
        return addRidgeRoof(mesh, building, walls.height);
    case RoofType::slant:
        return addSlantRoof(mesh, building, walls.height);
    }
}

void addRoof(MeshBuilder& mesh, const Building& building, const Walls& walls) {
    switch (building.kind) {
    case BuildingKind::rectangular:
        return addRectangularRoof(mesh, building, walls);
    case BuildingKind::pyramidal:
        return addFlatRoof(mesh, walls.top, building.sizeTopX, building.sizeTopZ, walls.height,
                           building.roof.cover);
    case BuildingKind::multiSided:
        if (building.roof.height > 0.0)
            return addPointedRoof(mesh, building, walls.top, walls.height);
        return addFlatRoof(mesh, walls.top, building.sizeX, building.sizeZ, walls.height,
                           building.roof.cover);
    }
}

Walls wallsOf(const Building& building) {
    const double height = building.bottom.height + building.window.height + building.top.height;
    switch (building.kind) {
    case BuildingKind::pyramidal:
        return {rectangleOutline(building.sizeX, building.sizeZ, leaningWallColumns),
                rectangleOutline(building.sizeTopX, building.sizeTopZ, leaningWallColumns), height, false};
    case BuildingKind::multiSided: {
        const Outline outline = polygonOutline(building.sizeX, building.sizeZ, building.sides);
        return {outline, outline, height, building.smoothing};
    }
    case BuildingKind::rectangular:
        break;
    }
    const Outline outline = rectangleOutline(building.sizeX, building.sizeZ, 1);
    return {outline, outline, height, false};
}

} // namespace

BuildingMesh buildMesh(const Building& building) {
    const Walls walls = wallsOf(building);
    MeshBuilder mesh;
    addStoreys(mesh, building, walls);
    addRoof(mesh, building, walls);
    return mesh.take();
}

} // namespace quillset
