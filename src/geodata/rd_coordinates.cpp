#include "geodata/rd_coordinates.h"

#include <cfloat>

// Results must agree to the last bit between the builds: no wider intermediate results, no reordering, and
// (by the compiler's options) no fused multiply-add.
static_assert(FLT_EVAL_METHOD == 0, "intermediate results must be doubles");
#ifdef __FAST_MATH__
#error "the conversion must not be reordered"
#endif

namespace quillset {

namespace {

// The grid's origin at Amersfoort, metres and degrees on the ellipsoid of Bessel.
constexpr double originX = 155000;
constexpr double originY = 463000;
constexpr double originLat = 52.156160556;
constexpr double originLon = 5.387638889;

// From WGS84 to Bessel: lat' = a lat + b lon + c, lon' = d lat + e lon + f.
constexpr double a = 1.00011714;
constexpr double b = 0.00000125;
constexpr double c = -0.00512891;
constexpr double d = -0.00000329;
constexpr double e = 1.00014667;
// Products that the solution for WGS84 needs; f = -0.00018325 stands in them only.
constexpr double bd = -4.1125000000000005e-12;
constexpr double bf = -2.2906250000000003e-10;
constexpr double ae = 1.0002638271809237;
constexpr double af = -0.000183271465905;

// Hundreds of kilometres from the origin.
double reducedX(double x) {
    return (x - originX) * 0.00001;
}

double reducedY(double y) {
    return (y - originY) * 0.00001;
}

} // namespace

double rdToBesselLat(double x, double y) {
    const double dX = reducedX(x);
    const double dY = reducedY(y);
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
    return seconds / 3600 + originLat;
}

double rdToBesselLon(double x, double y) {
    const double dX = reducedX(x);
    const double dY = reducedY(y);
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
    return seconds / 3600 + originLon;
}

double besselToWgs84Lat(double lat, double lon) {
    return (1 / (a - bd / e)) * ((lat - (b / e) * lon) + bf / e - c);
}

// Deliberate: the same elimination with d as pivot, though its intermediate values are large; a more stable
// form would give other last digits.
double besselToWgs84Lon(double lat, double lon) {
    return (1 / (b - ae / d)) * ((lat - (a / d) * lon) + af / d - c);
}

double rdToWgs84Lat(double x, double y) {
    return besselToWgs84Lat(rdToBesselLat(x, y), rdToBesselLon(x, y));
}

double rdToWgs84Lon(double x, double y) {
    return besselToWgs84Lon(rdToBesselLat(x, y), rdToBesselLon(x, y));
}

} // namespace quillset
