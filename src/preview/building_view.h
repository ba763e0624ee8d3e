#pragma once

#include "preview/building_mesh.h"

namespace quillset {

/// How far the building is tilted towards the viewer, about the axis that points to the right.
inline constexpr double viewTiltDegrees = -60.0;

/// The limits of an orthographic projection, in metres in the viewer's frame (right, up, towards the
/// viewer), as glOrtho takes them: the two planes are distances in front of the viewer.
struct ViewBox {
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;
    double nearPlane = 0.0;
    double farPlane = 0.0;
};

/// A box that holds the building at every angle of its turn, so that its size on screen does not pulse while
/// it turns; `aspect` is the width of the picture area by its height. One metre is as long upwards as
/// sideways. Never empty, also for an empty mesh.
[[nodiscard]] ViewBox viewBoxOf(const BuildingMesh& mesh, double aspect);

} // namespace quillset
