#include "compiler/building_layout.h"

namespace quillset::compiler {

namespace {

using enum BuildingValue;

constexpr BuildingField rectangular[] = {
    {"sizeX", size},
    {"sizeZ", size},
    {"bottomTexture", texture},
    {"sizeBottomY", word},
    {"textureIndexBottomX", word},
    {"textureIndexBottomZ", word},
    {"windowTexture", texture},
    {"sizeWindowY", word},
    {"textureIndexWindowX", word},
    {"textureIndexWindowY", word},
    {"textureIndexWindowZ", word},
    {"topTexture", texture},
    {"sizeTopY", word},
    {"textureIndexTopX", word},
    {"textureIndexTopZ", word},
    {"roofTexture", texture},
    {"textureIndexRoofX", word},
    {"textureIndexRoofZ", word},
};
constexpr BuildingField peakedRoof[] = {
    {"sizeRoofY", word},
    {"textureIndexRoofY", word},
};
constexpr BuildingField slantRoof[] = {
    {"sizeRoofY", word},          {"textureIndexGableY", word}, {"gableTexture", word},
    {"textureIndexGableZ", word}, {"faceTexture", word},        {"textureIndexFaceX", word},
    {"textureIndexFaceY", word},
};
// A ridge is a slant without the face.
constexpr std::span<const BuildingField> ridgeRoof = std::span(slantRoof).first(4);

constexpr BuildingField pyramidal[] = {
    {"sizeX", size},
    {"sizeZ", size},
    {"sizeTopX", size},
    {"sizeTopZ", size},
    {"bottomTexture", texture},
    {"sizeBottomY", word},
    {"textureIndexBottomX", word},
    {"textureIndexBottomZ", word},
    {"windowTexture", texture},
    {"sizeWindowY", word},
    {"textureIndexWindowX", word},
    {"textureIndexWindowY", word},
    {"textureIndexWindowZ", word},
    {"topTexture", texture},
    {"sizeTopY", word},
    {"textureIndexTopX", word},
    {"textureIndexTopZ", word},
    {"roofTexture", texture},
    {"textureIndexRoofX", word},
    {"textureIndexRoofZ", word},
};
constexpr BuildingField multiSided[] = {
    {"buildingSides", sides},
    {"sizeX", size},
    {"sizeZ", size},
    {"bottomTexture", texture},
    {"sizeBottomY", word},
    {"textureIndexBottomX", word},
    {"windowTexture", texture},
    {"sizeWindowY", word},
    {"textureIndexWindowX", word},
    {"textureIndexWindowY", word},
    {"topTexture", texture},
    {"sizeTopY", word},
    {"textureIndexTopX", word},
    {"roofTexture", texture},
    {"sizeRoofY", word},
    {"textureIndexRoofX", word},
    {"textureIndexRoofZ", word},
};

// In the order of BuildingShape.
constexpr BuildingLayout layouts[] = {
    {0x04, rectangular, {}},        {0x07, rectangular, peakedRoof}, {0x06, rectangular, ridgeRoof},
    {0x08, rectangular, slantRoof}, {0x09, pyramidal, {}},           {0x0A, multiSided, {}},
};

} // namespace

const BuildingLayout& layoutOf(BuildingShape shape) {
    return layouts[static_cast<std::size_t>(shape)];
}

} // namespace quillset::compiler
