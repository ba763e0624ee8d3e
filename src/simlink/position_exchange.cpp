#include "simlink/position_exchange.h"

#include "base/number_text.h"
#include "base/runtime_error.h"

#include <cmath>
#include <cstdint>

namespace quillset {

namespace {

// How the simulator stores each value: `raw` units stand for `degrees`.
struct StoredForm {
    std::uint32_t offset;
    std::uint32_t size;
    double degrees;
    double raw;
};

constexpr double twoTo32 = 4294967296.0;
constexpr double twoTo63 = twoTo32 * twoTo32 / 2;

StoredForm storedForm(Coordinate coordinate) {
    switch (coordinate) {
    case Coordinate::latitude: // metres from the equator to the pole, with 32 binary places
        return {0x0560, 8, 90, 10001750.0 * twoTo32};
    case Coordinate::longitude:
        return {0x0568, 8, 360, twoTo32 * twoTo32};
    case Coordinate::heading:
        break;
    }
    return {0x0580, 4, 360, twoTo32};
}

// Deliberate: the value goes through a fixed-point number of four decimals (raw / 10000), whose 64-bit image
// is the raw value rounded to whole units, ties to even; what does not fit into it is an overflow.
std::int64_t fixedPointImage(double raw) {
    double whole = std::floor(raw);
    const double rest = raw - whole;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2) != 0))
        whole += 1;
    if (!(whole >= -twoTo63 && whole < twoTo63))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int64_t>(whole);
}

} // namespace

std::optional<Coordinate> coordinateOfProperty(std::string_view name) {
    if (name == "lat")
        return Coordinate::latitude;
    if (name == "lon")
        return Coordinate::longitude;
    if (name == "heading")
        return Coordinate::heading;
    return std::nullopt;
}

std::string coordinateText(double degrees) {
    return numberText(degrees);
}

std::optional<double> FSUIPCFunctions::read(Coordinate coordinate) {
    const StoredForm form = storedForm(coordinate);
    std::int64_t wide = 0;
    std::int32_t narrow = 0;
    const bool isWide = form.size == sizeof wide;
    FsuipcError error = FsuipcError::success;
    if (!client_.queueRead(form.offset, form.size, isWide ? static_cast<void*>(&wide) : &narrow, error) ||
        !client_.processRequests(error))
        return std::nullopt;
    const double raw = isWide ? static_cast<double>(wide) : narrow;
    const double degrees = raw * form.degrees / form.raw;
    return coordinate == Coordinate::heading && degrees < 0 ? degrees + 360 : degrees;
}

bool FSUIPCFunctions::write(Coordinate coordinate, double degrees) {
    const StoredForm form = storedForm(coordinate);
    // The low bytes come first, so a heading above 180 goes out as the unsigned pattern of its size.
    const std::int64_t image = fixedPointImage(degrees / form.degrees * form.raw);
    FsuipcError error = FsuipcError::success;
    return client_.queueWrite(form.offset, form.size, &image, error) && client_.processRequests(error);
}

} // namespace quillset
