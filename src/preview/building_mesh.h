#pragma once

#include "preview/building.h"

#include <array>
#include <vector>

namespace quillset {

/// A point of a surface. Positions in metres from the centre of the footprint at ground level: east, north,
/// up at heading 0 (a right-handed frame; the simulator names these axes X, Z and Y).
struct MeshVertex {
    std::array<float, 3> position{};
    std::array<float, 3> normal{};
    /// Texture repeats from the lower left corner of the face, to the right and upwards. Where the surface
    /// is half a file, the second one stays between 0 and 1, so that the other half never shows.
    std::array<float, 2> texture{};
};

/// The triangles that wear the same surface, three vertices each, counter-clockwise seen from outside.
struct MeshPart {
    Surface surface = neutralColour;
    std::vector<MeshVertex> vertices;
};

/// The outside of a building, closed but for the underside, which the simulator does not draw.
struct BuildingMesh {
    std::vector<MeshPart> parts;
};

/// The surface of any building; faces without extent are left out, so that an impossible building gives an
/// empty mesh.
[[nodiscard]] BuildingMesh buildMesh(const Building& building);

} // namespace quillset
