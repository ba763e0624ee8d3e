#pragma once

#include "compiler/records.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillset::compiler {

/// Where a stored value comes from.
enum class BuildingValue {
    word,    ///< whole-number attribute of the building element
    size,    ///< attribute of the building element that may have a fraction
    sides,   ///< number of sides
    texture, ///< attribute of the GenericBuilding element, shared by its buildings
};

struct BuildingField {
    std::string_view attribute;
    BuildingValue value;
};

/// The values of one shape in the order of the file.
struct BuildingLayout {
    std::uint16_t code; ///< of the shape, before the values
    std::span<const BuildingField> common;
    std::span<const BuildingField> further; ///< of this roof
};

[[nodiscard]] const BuildingLayout& layoutOf(BuildingShape shape);

/// The textures of the GenericBuilding element.
inline constexpr std::array<std::string_view, 4> sharedTextures = {"bottomTexture", "windowTexture",
                                                                   "topTexture", "roofTexture"};
/// Attributes of a RectangularBuilding that only some roofs store; others may have them all the same.
inline constexpr std::array<std::string_view, 8> roofAttributes = {
    "sizeRoofY",          "textureIndexRoofY", "gableTexture",      "textureIndexGableY",
    "textureIndexGableZ", "faceTexture",       "textureIndexFaceX", "textureIndexFaceY"};

} // namespace quillset::compiler
