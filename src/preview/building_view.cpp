#include "preview/building_view.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace quillset {

namespace {

// Free room around the building, as a share of its size on screen.
constexpr double margin = 0.04;
constexpr double smallestExtent = 1.0e-3;

struct Range {
    double low = std::numeric_limits<double>::max();
    double high = std::numeric_limits<double>::lowest();

    void include(double centre, double radius) {
        low = std::min(low, centre - radius);
        high = std::max(high, centre + radius);
    }
    [[nodiscard]] Range widened(double factor) const {
        const double centre = (low + high) / 2;
        const double half = std::max((high - low) / 2 * factor, smallestExtent);
        return {centre - half, centre + half};
    }
    [[nodiscard]] double length() const { return high - low; }
};

} // namespace

ViewBox viewBoxOf(const BuildingMesh& mesh, double aspect) {
    const double tilt = viewTiltDegrees * std::numbers::pi / 180.0;
    Range across;
    Range upwards;
    Range towards;
    across.include(0.0, 0.0);
    upwards.include(0.0, 0.0);
    towards.include(0.0, 0.0);
    for (const MeshPart& part : mesh.parts) {
        for (const MeshVertex& vertex : part.vertices) {
            // In one turn a point runs through a circle of this radius, which the tilt makes an ellipse.
            const double radius = std::hypot(vertex.position[0], vertex.position[1]);
            const double height = vertex.position[2];
            across.include(0.0, radius);
            upwards.include(-height * std::sin(tilt), radius * std::cos(tilt));
            towards.include(height * std::cos(tilt), -radius * std::sin(tilt));
        }
    }
    across = across.widened(1.0 + margin);
    upwards = upwards.widened(1.0 + margin);
    towards = towards.widened(1.0 + margin);
    const double shape = std::max(aspect, 1.0e-6);
    if (across.length() < upwards.length() * shape)
        across = across.widened(upwards.length() * shape / across.length());
    else
        upwards = upwards.widened(across.length() / shape / upwards.length());
    return {across.low, across.high, upwards.low, upwards.high, -towards.high, -towards.low};
}

} // namespace quillset
