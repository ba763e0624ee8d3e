#pragma once

#include <cstdint>

namespace quillset::compiler {

/// A place in the units of the file: longitude from 180 degrees west eastward, latitude from the north
/// pole southward.
struct GridPosition {
    std::uint32_t longitude = 0; ///< below format::longitudeSteps
    std::uint32_t latitude = 0;  ///< below format::latitudeSteps

    bool operator==(const GridPosition&) const = default;
};

/// The grid unit nearest to a place given in degrees (latitude -90..90, longitude -180..180).
[[nodiscard]] GridPosition gridPosition(double latitude, double longitude);

/// The number of the quad cell around a place. Level L cuts the grid, seen as a square of 2^30 units, into
/// 2^L by 2^L cells; the number interleaves column bits (even) and row bits (odd) under a leading 2, so that
/// it names its level. The cell one level up is the number >> 2.
[[nodiscard]] std::uint32_t quadCell(int level, const GridPosition& place);

/// Millimetres as the file holds them.
[[nodiscard]] std::int32_t millimetres(double metres);

/// An angle in 65536ths of a turn; any number of turns, either way.
[[nodiscard]] std::uint16_t angleUnits(double degrees);

} // namespace quillset::compiler
