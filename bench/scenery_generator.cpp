#include "scenery_generator.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace quillset::bench {

namespace {

// Numbers that look drawn at random, the same on every machine.
class Sequence {
public:
    std::uint32_t next() {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<std::uint32_t>(state_ >> 33U);
    }

private:
    std::uint64_t state_ = 2004;
};

constexpr const char* rectangular =
    R"(<RectangularBuilding roofType="FLAT" sizeX="40" sizeZ="40" sizeBottomY="10" textureIndexBottomX="256" )"
    R"(textureIndexBottomZ="256" sizeWindowY="80" textureIndexWindowX="512" textureIndexWindowY="1024" )"
    R"(textureIndexWindowZ="512" sizeTopY="10" textureIndexTopX="256" textureIndexTopZ="256" )"
    R"(textureIndexRoofX="256" textureIndexRoofZ="256"/>)";
constexpr const char* pyramidal =
    R"(<PyramidalBuilding sizeX="40" sizeZ="40" sizeBottomY="10" textureIndexBottomX="256" )"
    R"(textureIndexBottomZ="256" sizeWindowY="80" textureIndexWindowX="256" textureIndexWindowY="1024" )"
    R"(textureIndexWindowZ="256" sizeTopX="30" sizeTopY="10" sizeTopZ="30" textureIndexTopX="256" )"
    R"(textureIndexTopZ="256" textureIndexRoofX="256" textureIndexRoofZ="256"/>)";
constexpr const char* multiSided =
    R"(<MultiSidedBuilding buildingSides="12" smoothing="FALSE" sizeX="40" sizeZ="40" sizeBottomY="10" )"
    R"(textureIndexBottomX="256" sizeWindowY="80" textureIndexWindowX="256" textureIndexWindowY="1024" )"
    R"(sizeTopY="10" textureIndexTopX="256" sizeRoofY="0" textureIndexRoofX="256" textureIndexRoofY="256" )"
    R"(textureIndexRoofZ="256"/>)";

void appendBuilding(std::string& out, std::size_t kind) {
    constexpr std::array kinds = {rectangular, pyramidal, multiSided};
    out += R"(<GenericBuilding scale="1.0" bottomTexture="18" windowTexture="32" topTexture="18" )"
           R"(roofTexture="25">)";
    out += kinds[kind % kinds.size()];
    out += "</GenericBuilding>";
}

void appendLibraryObject(std::string& out, Sequence& numbers) {
    std::array<char, 40> guid{};
    std::snprintf(guid.data(), guid.size(), "%08X%08X%08X%08X", numbers.next(), numbers.next(),
                  numbers.next(), numbers.next());
    out.append(R"(<LibraryObject name=")").append(guid.data()).append(R"(" scale="1.0"/>)");
}

void appendPlacement(std::string& out, std::size_t number, Sequence& numbers) {
    std::array<char, 256> start{};
    std::snprintf(
        start.data(), start.size(),
        R"(<!--Object %zu--><SceneryObject lat="%u.%07u" lon="%u.%07u" alt="0M" pitch="0.0" bank="0.0" )"
        R"(heading="%u" altitudeIsAgl="TRUE" imageComplexity="NORMAL">)",
        number, 50 + numbers.next() % 4, numbers.next() % 10'000'000, 3 + numbers.next() % 5,
        numbers.next() % 10'000'000, numbers.next() % 360);
    out += start.data();
    const std::size_t place = number % 10;
    if (place == 0)
        out += R"(<Effect effectName="fx_smoke.fx" effectParams=""/>)";
    else if (place == 3 || place == 7)
        appendBuilding(out, number / 5);
    else
        appendLibraryObject(out, numbers);
    out += "</SceneryObject>";
}

} // namespace

std::string sceneryOf(std::size_t placements) {
    Sequence numbers;
    std::string out = R"(<?xml version="1.0"?><FSData version="9.0" )"
                      R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" )"
                      R"(xsi:noNamespaceSchemaLocation="bglcomp.xsd">)";
    out.reserve(placements * 400);
    for (std::size_t number = 1; number <= placements; ++number)
        appendPlacement(out, number, numbers);
    return out += "</FSData>";
}

} // namespace quillset::bench
