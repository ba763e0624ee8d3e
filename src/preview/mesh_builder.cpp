#include "preview/mesh_builder.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillset {

namespace {

struct SplitPolygon {
    std::vector<FaceCorner> below;
    std::vector<FaceCorner> above;
};

FaceCorner between(const FaceCorner& a, const FaceCorner& b, double t) {
    const auto mix = [t](double from, double to) { return from + (to - from) * t; };
    return {{mix(a.place.east, b.place.east), mix(a.place.north, b.place.north), mix(a.place.up, b.place.up)},
            mix(a.u, b.u),
            mix(a.v, b.v)};
}

SplitPolygon splitAtRow(const std::vector<FaceCorner>& corners, double row) {
    SplitPolygon split;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const FaceCorner& corner = corners[i];
        const FaceCorner& next = corners[(i + 1) % corners.size()];
        if (corner.v <= row)
            split.below.push_back(corner);
        if (corner.v >= row)
            split.above.push_back(corner);
        if ((corner.v < row && next.v > row) || (corner.v > row && next.v < row)) {
            FaceCorner cut = between(corner, next, (row - corner.v) / (next.v - corner.v));
            cut.v = row;
            split.below.push_back(cut);
            split.above.push_back(cut);
        }
    }
    return split;
}

bool isHalfAFile(const Surface& surface) {
    const TexturePlace* const place = std::get_if<TexturePlace>(&surface);
    return place != nullptr && place->part != TexturePart::whole;
}

MeshVertex vertexOf(const FaceCorner& corner, const Vector3& normal) {
    const auto f = [](double value) { return static_cast<float>(value); };
    return {{f(corner.place.east), f(corner.place.north), f(corner.place.up)},
            {f(normal.east), f(normal.north), f(normal.up)},
            {f(corner.u), f(corner.v)}};
}

Vector3 normalOf(const std::array<FaceCorner, 3>& corners) {
    return normalised(cross(corners[1].place - corners[0].place, corners[2].place - corners[0].place));
}

} // namespace

Vector3 operator+(const Vector3& a, const Vector3& b) {
    return {a.east + b.east, a.north + b.north, a.up + b.up};
}

Vector3 operator-(const Vector3& a, const Vector3& b) {
    return {a.east - b.east, a.north - b.north, a.up - b.up};
}

Vector3 cross(const Vector3& a, const Vector3& b) {
    return {a.north * b.up - a.up * b.north, a.up * b.east - a.east * b.up,
            a.east * b.north - a.north * b.east};
}

Vector3 normalised(const Vector3& v) {
    const double length = std::hypot(v.east, v.north, v.up);
    if (length == 0.0)
        return v;
    return {v.east / length, v.north / length, v.up / length};
}

void MeshBuilder::addTriangle(const Surface& surface, const std::array<FaceCorner, 3>& corners) {
    const Vector3 normal = normalOf(corners);
    addTriangle(surface, corners, {normal, normal, normal});
}

void MeshBuilder::addTriangle(const Surface& surface, const std::array<FaceCorner, 3>& corners,
                              const std::array<Vector3, 3>& normals) {
    const Vector3 facing = normalOf(corners);
    if (facing.east == 0.0 && facing.north == 0.0 && facing.up == 0.0)
        return;
    std::vector<MeshVertex>& vertices = verticesOf(surface);
    for (std::size_t i = 0; i < corners.size(); ++i)
        vertices.push_back(vertexOf(corners[i], normals[i]));
}

void MeshBuilder::addPolygon(const Surface& surface, const std::vector<FaceCorner>& corners) {
    std::vector<FaceCorner> rest = corners;
    const auto highest = std::max_element(corners.begin(), corners.end(),
                                          [](const FaceCorner& a, const FaceCorner& b) { return a.v < b.v; });
    const double rows = highest == corners.end() || !isHalfAFile(surface) ? 0.0 : highest->v;
    for (double row = 1.0; row < rows; row += 1.0) {
        const SplitPolygon split = splitAtRow(rest, 1.0);
        addFan(surface, split.below);
        rest = split.above;
        for (FaceCorner& corner : rest)
            corner.v -= 1.0;
    }
    addFan(surface, rest);
}

void MeshBuilder::addFan(const Surface& surface, const std::vector<FaceCorner>& corners) {
    for (std::size_t i = 2; i < corners.size(); ++i)
        addTriangle(surface, {corners[0], corners[i - 1], corners[i]});
}

std::vector<MeshVertex>& MeshBuilder::verticesOf(const Surface& surface) {
    const auto known = std::find_if(mesh_.parts.begin(), mesh_.parts.end(),
                                    [&](const MeshPart& part) { return part.surface == surface; });
    if (known != mesh_.parts.end())
        return known->vertices;
    mesh_.parts.push_back({surface, {}});
    return mesh_.parts.back().vertices;
}

} // namespace quillset
