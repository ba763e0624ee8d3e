// Any bytes given to the reader of point shapefiles: an error, or a result that accounts for every shape. The
// input begins with the lengths of .shp and .shx, two bytes each with the low one first; .dbf takes the rest.

#include "base/runtime_error.h"
#include "geodata/point_file.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4)
        return 0;
    std::string rest(reinterpret_cast<const char*>(data) + 4, size - 4);
    const auto take = [&](std::size_t length) {
        std::string part = rest.substr(0, length);
        rest.erase(0, length);
        return part;
    };
    quillset::PointFileBytes bytes;
    bytes.shp = take(data[0] + 256U * data[1]);
    bytes.shx = take(data[2] + 256U * data[3]);
    bytes.dbf = rest;
    const std::size_t most = bytes.shx.size() / 8;
    try {
        const quillset::PointFile file = quillset::readPointFile(std::move(bytes), "points.shp");
        if (file.points.size() + file.skipped.size() > most)
            std::abort();
        for (const quillset::NewPlacement& point : file.points)
            if (!std::isfinite(point.latitude) || !std::isfinite(point.longitude))
                std::abort();
    } catch (const quillset::RuntimeError&) { // a damaged file
    }
    return 0;
}
