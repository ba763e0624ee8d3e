#include "geodata/rd_coordinates.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <fstream>

using namespace quillset;

TEST(RdCoordinates, ReferenceValuesToNineDecimals) {
    EXPECT_EQ(rdToBesselLat(155000, 463000), 52.156160556);
    EXPECT_EQ(rdToBesselLon(155000, 463000), 5.387638889);
    struct Row {
        double x, y, lat, lon;
    };
    const Row rows[] = {{155000, 463000, 52.155173275, 5.387203588},
                        {121000, 487000, 52.369826975, 4.887970168},
                        {0, 0, 47.974767031, 3.313584632}};
    for (const Row& row : rows) {
        EXPECT_NEAR(rdToWgs84Lat(row.x, row.y), row.lat, 0.5e-9) << row.x;
        EXPECT_NEAR(rdToWgs84Lon(row.x, row.y), row.lon, 0.5e-9) << row.x;
    }
}

// The bits of all values over the country, from another implementation of the same steps: they are the same
// in every build for every system.
TEST(RdCoordinates, EveryBuildGivesTheSameBits) {
    std::ifstream table(QUILLSET_TEST_DATA "/geodata/rd_grid.txt");
    std::uint64_t x = 0;
    std::uint64_t y = 0;
    std::uint64_t lat = 0;
    std::uint64_t lon = 0;
    int rows = 0;
    for (; table >> std::hex >> x >> y >> lat >> lon; ++rows) {
        const auto rdX = std::bit_cast<double>(x);
        const auto rdY = std::bit_cast<double>(y);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(rdToWgs84Lat(rdX, rdY)), lat) << rdX << " " << rdY;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(rdToWgs84Lon(rdX, rdY)), lon) << rdX << " " << rdY;
    }
    EXPECT_EQ(rows, 252);
}
