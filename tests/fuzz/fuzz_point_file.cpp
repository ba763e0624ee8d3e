// Any bytes as the files of a point shapefile: reading gives what the headers promise or an error that says
// why, never a point that cannot be placed. An input is a .shp, a .shx and a .dbf one after the other, the
// lengths of the first two before them in four bytes each, the lowest first.

#include "base/runtime_error.h"
#include "fuzz_input.h"
#include "geodata/point_file.h"

#include <algorithm>
#include <cmath>

using namespace quillset;

namespace {

std::size_t takeLength(std::string_view& input) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < 4 && i < input.size(); ++i)
        length |= static_cast<std::size_t>(static_cast<unsigned char>(input[i])) << (8 * i);
    input.remove_prefix(std::min<std::size_t>(4, input.size()));
    return length;
}

std::string take(std::string_view& input, std::size_t length) {
    const std::string bytes(input.substr(0, length));
    input.remove_prefix(bytes.size());
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = test::fuzzBytes(data, size);
    const std::size_t shp = takeLength(input);
    const std::size_t shx = takeLength(input);
    PointFileBytes bytes;
    bytes.shp = take(input, shp);
    bytes.shx = take(input, shx);
    bytes.dbf = std::string(input);
    try {
        const PointFile file = readPointFile(std::move(bytes), "x.shp");
        test::require(file.verdict == PointFile::Verdict::points || file.points.empty());
        for (const NewPlacement& point : file.points)
            test::require(std::abs(point.latitude) <= 90.0 && std::abs(point.longitude) <= 180.0);
    } catch (const RuntimeError& error) {
        test::require(*error.what() != 0);
    }
    return 0;
}
