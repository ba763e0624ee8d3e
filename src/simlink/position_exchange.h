#pragma once

#include "simlink/fsuipc_client.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillset {

/// What can be exchanged with the simulator.
enum class Coordinate { latitude, longitude, heading };

/// The coordinate that a property of this name ("lat", "lon", "heading") holds; nothing for other names.
[[nodiscard]] std::optional<Coordinate> coordinateOfProperty(std::string_view name);

/// Degrees as the document holds them: at most 15 significant digits, a decimal point in every locale.
[[nodiscard]] std::string coordinateText(double degrees);

/// Position and heading of the simulated aircraft, in degrees. Each operation is one exchange and blocks as
/// long as FsuipcClient::processRequests may.
class FSUIPCFunctions {
public:
    /// The client must outlive this object; it is neither opened nor closed here.
    explicit FSUIPCFunctions(FsuipcClient& client)
        : client_(client) {}

    /// Degrees (a heading from 0 up to, not including, 360); 0 on failure.
    [[nodiscard]] double readLatitude() { return read(Coordinate::latitude).value_or(0); }
    [[nodiscard]] double readLongitude() { return read(Coordinate::longitude).value_or(0); }
    [[nodiscard]] double readHeading() { return read(Coordinate::heading).value_or(0); }
    /// The same for a caller that keeps its value on failure.
    [[nodiscard]] std::optional<double> read(Coordinate coordinate);

    /// Moves or turns the aircraft; true when the simulator took the value. Throws
    /// RuntimeError(ErrorNumber::overflow) for a value that has no stored form, a longitude of +180 first of
    /// all; nothing is sent then.
    bool writeLatitude(double degrees) { return write(Coordinate::latitude, degrees); }
    bool writeLongitude(double degrees) { return write(Coordinate::longitude, degrees); }
    bool writeHeading(double degrees) { return write(Coordinate::heading, degrees); }
    bool write(Coordinate coordinate, double degrees);

private:
    FsuipcClient& client_;
};

} // namespace quillset
