#include "preview/roof_mesh.h"

#include <array>
#include <utility>

namespace quillset {

namespace {

// Which wall a slant roof is high on has one witness only; the simulator's data say it lies along X.
constexpr bool slantIsHighInTheNorth = true;

double repeatAlong(const Cover& cover, Axis axis) {
    return axis == Axis::x ? cover.repeatX : cover.repeatZ;
}

// Where a place lies between the two ends of a size centred on 0.
double fractionOf(double place, double size) {
    return size > 0.0 ? place / size + 0.5 : 0.0;
}

/// The corners of the walls' upper edge and what a roof over them needs.
struct Eaves {
    Vector3 southWest, southEast, northEast, northWest;
};

Eaves eavesOf(const Building& building, double height) {
    const double x = building.sizeX / 2;
    const double z = building.sizeZ / 2;
    return {{-x, -z, height}, {x, -z, height}, {x, z, height}, {-x, z, height}};
}

void addSlope(MeshBuilder& mesh, const Cover& cover, const std::array<Vector3, 4>& fromLowerLeft) {
    mesh.addPolygon(cover.surface, {{fromLowerLeft[0], 0.0, 0.0},
                                    {fromLowerLeft[1], cover.repeatX, 0.0},
                                    {fromLowerLeft[2], cover.repeatX, cover.repeatZ},
                                    {fromLowerLeft[3], 0.0, cover.repeatZ}});
}

// `apex` lies above the base at the given fraction of it, counted from the left.
void addGable(MeshBuilder& mesh, const Cover& cover, const Vector3& left, const Vector3& right,
              const Vector3& apex, double fraction) {
    mesh.addPolygon(
        cover.surface,
        {{left, 0.0, 0.0}, {right, cover.repeatZ, 0.0}, {apex, cover.repeatZ * fraction, cover.repeatY}});
}

Vector3 raised(const Vector3& place, double by) {
    return {place.east, place.north, place.up + by};
}

// All three normals of a triangle of a pointed roof. Where it is shaded as round, the two lower corners take
// the mean of the faces on either side of them.
std::array<Vector3, 3> roundNormals(const Outline& outline, std::size_t side, const Vector3& apex,
                                    double height) {
    const auto corner = [&](std::size_t i) {
        const OutlineSide& from = outline[i % outline.size()];
        return Vector3{from.east, from.north, height};
    };
    const auto facing = [&](std::size_t i) {
        return normalised(cross(corner(i + 1) - corner(i), apex - corner(i)));
    };
    const Vector3 own = facing(side);
    const Vector3 before = facing(side + outline.size() - 1);
    const Vector3 after = facing(side + 1);
    return {normalised(before + own), normalised(own + after), own};
}

} // namespace

void addFlatRoof(MeshBuilder& mesh, const Outline& outline, double sizeX, double sizeZ, double height,
                 const Cover& cover) {
    const auto corner = [&](double east, double north) {
        return FaceCorner{{east, north, height},
                          fractionOf(east, sizeX) * cover.repeatX,
                          fractionOf(north, sizeZ) * cover.repeatZ};
    };
    // A fan around the centre: no slivers, whatever the number of sides.
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const OutlineSide& from = outline[i];
        const OutlineSide& to = outline[(i + 1) % outline.size()];
        mesh.addTriangle(cover.surface,
                         {corner(0.0, 0.0), corner(from.east, from.north), corner(to.east, to.north)});
    }
}

void addPointedRoof(MeshBuilder& mesh, const Building& building, const Outline& outline, double height) {
    const Cover& cover = building.roof.cover;
    const Vector3 apex{0.0, 0.0, height + building.roof.height};
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const OutlineSide& from = outline[i];
        const OutlineSide& to = outline[(i + 1) % outline.size()];
        const double repeat = repeatAlong(cover, from.axis);
        const std::array<FaceCorner, 3> corners{
            {{{from.east, from.north, height}, from.begin * repeat, 0.0},
             {{to.east, to.north, height}, from.end * repeat, 0.0},
             {apex, (from.begin + from.end) / 2 * repeat, cover.repeatY}}};
        if (building.smoothing)
            mesh.addTriangle(cover.surface, corners, roundNormals(outline, i, apex, height));
        else
            mesh.addTriangle(cover.surface, corners);
    }
}

void addRidgeRoof(MeshBuilder& mesh, const Building& building, double height) {
    const Eaves eaves = eavesOf(building, height);
    const Vector3 east{building.sizeX / 2, 0.0, height + building.roof.height};
    const Vector3 west{-building.sizeX / 2, 0.0, height + building.roof.height};
    addSlope(mesh, building.roof.cover, {eaves.southWest, eaves.southEast, east, west});
    addSlope(mesh, building.roof.cover, {eaves.northEast, eaves.northWest, west, east});
    addGable(mesh, building.gable, eaves.southEast, eaves.northEast, east, 0.5);
    addGable(mesh, building.gable, eaves.northWest, eaves.southWest, west, 0.5);
}

void addSlantRoof(MeshBuilder& mesh, const Building& building, double height) {
    Eaves eaves = eavesOf(building, height);
    if (!slantIsHighInTheNorth) {
        // The same roof turned by half a circle.
        std::swap(eaves.southWest, eaves.northEast);
        std::swap(eaves.southEast, eaves.northWest);
    }
    const Vector3 highEast = raised(eaves.northEast, building.roof.height);
    const Vector3 highWest = raised(eaves.northWest, building.roof.height);
    const Cover& face = building.face;
    addSlope(mesh, building.roof.cover, {eaves.southWest, eaves.southEast, highEast, highWest});
    mesh.addPolygon(face.surface, {{eaves.northEast, 0.0, 0.0},
                                   {eaves.northWest, face.repeatX, 0.0},
                                   {highWest, face.repeatX, face.repeatY},
                                   {highEast, 0.0, face.repeatY}});
    addGable(mesh, building.gable, eaves.southEast, eaves.northEast, highEast, 1.0);
    addGable(mesh, building.gable, eaves.northWest, eaves.southWest, highWest, 0.0);
}

} // namespace quillset
