#include "base/runtime_error.h"
#include "simlink/position_exchange.h"
#include "support/in_process_simulator.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace quillset;
using quillset::test::InProcessSimulator;

namespace {

class PositionExchange : public testing::Test {
protected:
    PositionExchange() {
        FsuipcError error{};
        EXPECT_TRUE(client.openLink(0, error));
    }
    std::int64_t written(std::uint32_t offset) const { return simulator.offsets.get<std::int64_t>(offset); }

    InProcessSimulator simulator;
    FsuipcClient client{simulator};
    FSUIPCFunctions functions{client};
};

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();

TEST_F(PositionExchange, ReadsDegrees) {
    simulator.placeAircraft(21478594576384000, -(std::int64_t{1} << 62), 0xC0000000);
    EXPECT_EQ(functions.readLatitude(), 45);
    EXPECT_EQ(functions.readLongitude(), -90);
    EXPECT_EQ(functions.readHeading(), 270);
    simulator.placeAircraft(-42957189152768000, lowest, 0xFFFFFFFF);
    EXPECT_EQ(functions.readLatitude(), -90);
    EXPECT_EQ(functions.readLongitude(), -180);
    EXPECT_GT(functions.readHeading(), 359.9999999);
    EXPECT_LT(functions.readHeading(), 360);
}

TEST_F(PositionExchange, WritesTheStoredForm) {
    EXPECT_TRUE(functions.writeLatitude(45));
    EXPECT_EQ(written(0x0560), 21478594576384000);
    EXPECT_TRUE(functions.writeLongitude(-180));
    EXPECT_EQ(written(0x0568), lowest);
    EXPECT_TRUE(functions.writeLongitude(179.999999));
    EXPECT_GT(written(0x0568), std::int64_t{1} << 62);
    const std::uint32_t beside = 0x12345678;
    simulator.offsets.set(0x0584, beside);
    for (const auto& [degrees, stored] : {std::pair{270.0, 3221225472u},
                                          {90.0, 0x40000000u},
                                          {180.0, 0x80000000u},
                                          {-90.0, 0xC0000000u},
                                          {360.0, 0u},
                                          {630.0, 0xC0000000u}}) {
        EXPECT_TRUE(functions.writeHeading(degrees));
        EXPECT_EQ(simulator.offsets.get<std::uint32_t>(0x0580), stored) << degrees;
    }
    EXPECT_EQ(simulator.offsets.get<std::uint32_t>(0x0584), beside) << "a heading has four bytes";
}

// Multiples of 360 / 2^33 degrees are halves of a raw unit, which doubles hold exactly.
TEST_F(PositionExchange, RoundsHalfUnitsToEven) {
    for (const auto& [halves, stored] :
         {std::pair{1, 0u}, {3, 2u}, {5, 2u}, {7, 4u}, {-1, 0u}, {-3, 0xFFFFFFFEu}, {-5, 0xFFFFFFFEu}}) {
        EXPECT_TRUE(functions.writeHeading(halves * 360.0 / 8589934592.0));
        EXPECT_EQ(simulator.offsets.get<std::uint32_t>(0x0580), stored) << halves;
    }
}

TEST_F(PositionExchange, WhatHasNoStoredFormIsAnOverflow) {
    simulator.sends = 0;
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double longitude : {180.0, 180.0000001, 1e300, -180.00000000000003, infinite, std::nan("")}) {
        try {
            (void)functions.writeLongitude(longitude);
            ADD_FAILURE() << longitude;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), static_cast<int>(ErrorNumber::overflow));
        }
    }
    EXPECT_EQ(simulator.sends, 0);
}

TEST_F(PositionExchange, AFailureReadsAsZeroOrAsNothing) {
    simulator.placeAircraft(21478594576384000, 1, 1);
    simulator.answer = 0;
    EXPECT_EQ(functions.readLatitude(), 0);
    EXPECT_EQ(functions.read(Coordinate::latitude), std::nullopt);
    EXPECT_FALSE(functions.writeHeading(5));
    client.closeLink();
    EXPECT_EQ(functions.readHeading(), 0);
    EXPECT_FALSE(functions.writeLatitude(5));
}

// A position must come back as it was typed: 15 digits are what a document holds.
TEST_F(PositionExchange, TypedDegreesComeBack) {
    for (const double degrees : {52.5, 5.38720621, 89.9999999, -33.9461111111111, 52.1551744}) {
        EXPECT_TRUE(functions.writeLatitude(degrees));
        EXPECT_EQ(coordinateText(functions.readLatitude()), coordinateText(degrees));
        EXPECT_TRUE(functions.writeLongitude(degrees));
        EXPECT_EQ(coordinateText(functions.readLongitude()), coordinateText(degrees));
    }
    EXPECT_EQ(coordinateText(functions.readLatitude()), "52.1551744");
}

} // namespace
