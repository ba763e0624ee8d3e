#pragma once

namespace quillset {

// The module CoorTrans: positions of the Dutch national grid (RijksDriehoeks coordinates, metres east and
// north) as WGS84 degrees, north and east positive. Good to some decimetres within the Netherlands; nothing
// is checked, any finite position near there gives finite degrees. The polynomials and the datum shift are
// this system's own set of numbers, and their order of evaluation is fixed: every build gives the same bits.

[[nodiscard]] double rdToWgs84Lat(double x, double y);
[[nodiscard]] double rdToWgs84Lon(double x, double y);

/// The steps in between: degrees on the ellipsoid of Bessel.
[[nodiscard]] double rdToBesselLat(double x, double y);
[[nodiscard]] double rdToBesselLon(double x, double y);
[[nodiscard]] double besselToWgs84Lat(double lat, double lon);
[[nodiscard]] double besselToWgs84Lon(double lat, double lon);

} // namespace quillset
