#include "compiler/grid.h"

#include "compiler/format_choices.h"

#include <algorithm>
#include <cmath>

namespace quillset::compiler {

namespace {

std::uint32_t nearestStep(double value) {
    return static_cast<std::uint32_t>(std::floor(value + 0.5));
}

} // namespace

GridPosition gridPosition(double latitude, double longitude) {
    // Multiplied first: the quotient of the constants is no exact double, and halves must come out as halves.
    return {nearestStep((longitude + 180) * format::longitudeSteps / 360) % format::longitudeSteps,
            std::min(nearestStep((90 - latitude) * format::latitudeSteps / 180), format::latitudeSteps - 1)};
}

std::uint32_t quadCell(int level, const GridPosition& place) {
    const std::uint32_t column = place.longitude >> (30 - level);
    const std::uint32_t row = place.latitude >> (30 - level);
    std::uint32_t cell = 2U << (2 * level);
    for (int bit = 0; bit < level; ++bit)
        cell |= (column >> bit & 1U) << (2 * bit) | (row >> bit & 1U) << (2 * bit + 1);
    return cell;
}

std::int32_t millimetres(double metres) {
    const double whole = std::trunc(std::abs(metres) * 1000 + format::millimetreSlack);
    return static_cast<std::int32_t>(metres < 0 ? -whole : whole);
}

std::uint16_t angleUnits(double degrees) {
    const double turn = std::fmod(degrees, 360);
    return static_cast<std::uint16_t>(
        static_cast<std::int32_t>(std::floor(turn * (65536 / 360.0) + format::angleRounding)) & 0xFFFF);
}

} // namespace quillset::compiler
