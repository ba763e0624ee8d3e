#include "document/roof_types.h"

#include "document/placement.h"
#include "document/scenery_document.h"
#include "document/tree_walk.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace quillset {

namespace {

struct AttributeText {
    const char* name;
    const char* value;
};

constexpr std::array<const char*, 8> removedForFlat{
    "gableTexture",      "textureIndexGableY", "textureIndexGableZ", "faceTexture",
    "textureIndexFaceX", "textureIndexFaceY",  "sizeRoofY",          "textureIndexRoofY"};
constexpr std::array<const char*, 6> removedForPeaked{"gableTexture",       "textureIndexGableY",
                                                      "textureIndexGableZ", "faceTexture",
                                                      "textureIndexFaceX",  "textureIndexFaceY"};
constexpr std::array<const char*, 4> removedForRidge{"faceTexture", "textureIndexFaceX", "textureIndexFaceY",
                                                     "textureIndexRoofY"};
constexpr std::array<const char*, 1> removedForSlant{"textureIndexRoofY"};

constexpr std::array<AttributeText, 2> setForPeaked{{{"sizeRoofY", "20"}, {"textureIndexRoofY", "256"}}};
constexpr std::array<AttributeText, 4> setForRidge{{
    {"sizeRoofY", "20"},
    {"gableTexture", "18"},
    {"textureIndexGableY", "256"},
    {"textureIndexGableZ", "256"},
}};
constexpr std::array<AttributeText, 7> setForSlant{{
    {"sizeRoofY", "20"},
    {"gableTexture", "18"},
    {"textureIndexGableY", "256"},
    {"textureIndexGableZ", "256"},
    {"faceTexture", "18"},
    {"textureIndexFaceX", "256"},
    {"textureIndexFaceY", "256"},
}};

struct RoofType {
    std::string_view name;
    std::span<const char* const> removed;
    std::span<const AttributeText> set;
};

constexpr std::array<RoofType, 4> roofTypes{{
    {"FLAT", removedForFlat, {}},
    {"PEAKED", removedForPeaked, setForPeaked},
    {"RIDGE", removedForRidge, setForRidge},
    {"SLANT", removedForSlant, setForSlant},
}};

void reshape(pugi::xml_node building, const RoofType& roof) {
    for (const char* name : roof.removed)
        building.remove_attribute(name);
    for (const AttributeText& wanted : roof.set) {
        pugi::xml_attribute attribute = building.attribute(wanted.name);
        if (!attribute)
            attribute = building.append_attribute(wanted.name);
        attribute.set_value(wanted.value);
    }
}

} // namespace

void reshapeRoof(SceneryDocument& document, std::size_t placement) {
    const pugi::xml_node building = buildingElement(document.placement(placement));
    if (!isNamed(building, "RectangularBuilding"))
        return;
    const std::string_view name = building.attribute("roofType").value();
    const auto roof = std::find_if(roofTypes.begin(), roofTypes.end(),
                                   [&](const RoofType& candidate) { return candidate.name == name; });
    if (roof != roofTypes.end())
        document.changePlacement(placement, [&] { reshape(building, *roof); });
}

} // namespace quillset
