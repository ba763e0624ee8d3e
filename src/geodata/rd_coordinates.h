#pragma once

#include <cfloat>

// The module CoorTrans: positions of the Dutch national grid (RijksDriehoeks coordinates, metres east and
// north) as WGS84 degrees, north and east positive. Good to some decimetres within the Netherlands; nothing
// is checked, any finite position near there gives finite degrees. The polynomials and the datum shift are
// this system's own set of numbers, and their order of evaluation is fixed: every build gives the same bits.
//
// Inline, so that a loop over many points does once what latitude and longitude share.

// No wider intermediate results and no reordering; the compiler's options rule out fused multiply-add.
static_assert(FLT_EVAL_METHOD == 0, "intermediate results must be doubles");
#ifdef __FAST_MATH__
#error "the conversion must not be reordered"
#endif

namespace quillset {

namespace rd {

/// Hundreds of kilometres from the grid's origin at Amersfoort.
[[nodiscard]] inline double reducedX(double x) {
    return (x - 155000) * 0.00001;
}
[[nodiscard]] inline double reducedY(double y) {
    return (y - 463000) * 0.00001;
}

/// From WGS84 to the ellipsoid of Bessel: lat' = a lat + b lon + c, lon' = d lat + e lon + f, in degrees.
inline constexpr double a = 1.00011714;
inline constexpr double b = 0.00000125;
inline constexpr double c = -0.00512891;
inline constexpr double d = -0.00000329;
inline constexpr double e = 1.00014667;
/// Products that the solution for WGS84 needs; f = -0.00018325 stands in them only.
inline constexpr double bd = -4.1125000000000005e-12;
inline constexpr double bf = -2.2906250000000003e-10;
inline constexpr double ae = 1.0002638271809237;
inline constexpr double af = -0.000183271465905;

} // namespace rd

/// Degrees on the ellipsoid of Bessel, a step in between.
[[nodiscard]] inline double rdToBesselLat(double x, double y) {
    const double dX = rd::reducedX(x);
    const double dY = rd::reducedY(y);
    const double dX2 = dX * dX;
    const double dX4 = dX * dX * dX * dX;
    const double dY2 = dY * dY;
    const double dY3 = dY * dY * dY;
    const double dY4 = dY * dY * dY * dY;
    double seconds = dY * 3236.0331637;
    seconds += dX2 * -32.5915821;
    seconds += dY2 * -0.2472814;
    seconds += dX2 * -0.8501341 * dY;
    seconds += dY3 * -0.0655238;
    seconds += dX4 * 0.0052771;
    seconds += dX2 * -0.0171137 * dY2;
    seconds += dY4 * 0.0000371;
    seconds += dX4 * 0.0003314 * dY;
    seconds += dX2 * -0.0003859 * dY3;
    seconds += dX4 * 0.0000143 * dY2;
    seconds += dX2 * -0.000009 * dY4;
    return seconds / 3600 + 52.156160556;
}

[[nodiscard]] inline double rdToBesselLon(double x, double y) {
    const double dX = rd::reducedX(x);
    const double dY = rd::reducedY(y);
    const double dX3 = dX * dX * dX;
    const double dX5 = dX * dX * dX * dX * dX;
    const double dY2 = dY * dY;
    const double dY3 = dY * dY * dY;
    const double dY4 = dY * dY * dY * dY;
    const double dY5 = dY * dY * dY * dY * dY;
    double seconds = dX * 5261.3028966;
    seconds += dX * 105.9780241 * dY;
    seconds += dX3 * -0.8192156;
    seconds += dX * 2.4576469 * dY2;
    seconds += dX3 * -0.0560092 * dY;
    seconds += dX * 0.0560089 * dY3;
    seconds += dX5 * 0.0002574;
    seconds += dX3 * -0.0025614 * dY2;
    seconds += dX * 0.001277 * dY4;
    seconds += dX5 * 0.0000293 * dY;
    seconds += dX3 * -0.0000973 * dY3;
    seconds += dX * 0.0000291 * dY5;
    return seconds / 3600 + 5.387638889;
}

[[nodiscard]] inline double besselToWgs84Lat(double lat, double lon) {
    return (1 / (rd::a - rd::bd / rd::e)) * ((lat - (rd::b / rd::e) * lon) + rd::bf / rd::e - rd::c);
}

/// Deliberate: the same elimination with d as pivot, though its intermediate values are large; a more stable
/// form would give other last digits.
[[nodiscard]] inline double besselToWgs84Lon(double lat, double lon) {
    return (1 / (rd::b - rd::ae / rd::d)) * ((lat - (rd::a / rd::d) * lon) + rd::af / rd::d - rd::c);
}

[[nodiscard]] inline double rdToWgs84Lat(double x, double y) {
    return besselToWgs84Lat(rdToBesselLat(x, y), rdToBesselLon(x, y));
}

[[nodiscard]] inline double rdToWgs84Lon(double x, double y) {
    return besselToWgs84Lon(rdToBesselLat(x, y), rdToBesselLon(x, y));
}

} // namespace quillset
