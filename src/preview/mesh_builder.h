#pragma once

#include "preview/building_mesh.h"

#include <array>
#include <utility>
#include <vector>

namespace quillset {

/// A vector in the building's frame: east, north, up, in metres.
struct Vector3 {
    double east = 0.0;
    double north = 0.0;
    double up = 0.0;
};
[[nodiscard]] Vector3 operator+(const Vector3& a, const Vector3& b);
[[nodiscard]] Vector3 operator-(const Vector3& a, const Vector3& b);
[[nodiscard]] Vector3 cross(const Vector3& a, const Vector3& b);
/// Length 1; the zero vector stays.
[[nodiscard]] Vector3 normalised(const Vector3& v);

/// A corner of a face with the texture coordinates there.
struct FaceCorner {
    Vector3 place;
    double u = 0.0;
    double v = 0.0;
};

/// Collects faces into a mesh.
class MeshBuilder {
public:
    /// A triangle, corners counter-clockwise seen from outside; dropped when it has no area.
    void addTriangle(const Surface& surface, const std::array<FaceCorner, 3>& corners);
    /// The same with the given normals, for faces that are shaded as round.
    void addTriangle(const Surface& surface, const std::array<FaceCorner, 3>& corners,
                     const std::array<Vector3, 3>& normals);
    /// A convex plane polygon. Where the surface is half a file, it is cut into rows one texture high.
    void addPolygon(const Surface& surface, const std::vector<FaceCorner>& corners);

    [[nodiscard]] BuildingMesh take() { return std::move(mesh_); }

private:
    std::vector<MeshVertex>& verticesOf(const Surface& surface);
    void addFan(const Surface& surface, const std::vector<FaceCorner>& corners);

    BuildingMesh mesh_;
};

} // namespace quillset
