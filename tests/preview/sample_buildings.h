#pragma once

#include "preview/building.h"

#include <pugixml.hpp>

#include <optional>
#include <string>

namespace quillset::test {

/// `GenericBuilding` with the usual textures around the given building element.
inline std::string buildingXml(const std::string& inner) {
    return "<GenericBuilding scale='1.0' bottomTexture='18' windowTexture='32' topTexture='18' "
           "roofTexture='25'>" +
           inner + "</GenericBuilding>";
}

inline const std::string storeys = " sizeBottomY='10' textureIndexBottomX='256' textureIndexBottomZ='256'"
                                   " sizeWindowY='80' textureIndexWindowX='512' textureIndexWindowY='1024'"
                                   " textureIndexWindowZ='512' sizeTopY='10' textureIndexTopX='256'"
                                   " textureIndexTopZ='256' textureIndexRoofX='256' textureIndexRoofZ='256'";

/// 40 by 30 metres, walls 100 metres high; `roof` adds or names attributes.
inline std::string rectangularXml(const std::string& roof) {
    return buildingXml("<RectangularBuilding sizeX='40' sizeZ='30'" + storeys + " " + roof + "/>");
}
inline std::string pyramidalXml(const std::string& top) {
    return buildingXml("<PyramidalBuilding sizeX='40' sizeZ='30'" + storeys + " " + top + "/>");
}
inline std::string multiSidedXml(const std::string& sides) {
    return buildingXml("<MultiSidedBuilding sizeX='40' sizeZ='30'" + storeys + " " + sides + "/>");
}

/// The building that an XML text describes; nothing when it holds none.
inline std::optional<Building> buildingFrom(const std::string& xml) {
    pugi::xml_document document;
    document.load_string(xml.c_str());
    return readBuilding(document.child("GenericBuilding"));
}

} // namespace quillset::test
