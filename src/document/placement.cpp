#include "document/placement.h"

#include "base/xml_file.h"
#include "document/tree_walk.h"

#include <array>

namespace quillset {

namespace {

struct BuildingKind {
    const char* element;
    const char* key;
};
constexpr std::array<BuildingKind, 3> buildingKinds{{
    {"RectangularBuilding", "rectangular"},
    {"PyramidalBuilding", "pyramidal"},
    {"MultiSidedBuilding", "multisided"},
}};

const BuildingKind* buildingKindOf(const pugi::xml_node& node) {
    for (const BuildingKind& kind : buildingKinds) {
        if (isNamed(node, kind.element))
            return &kind;
    }
    return nullptr;
}

} // namespace

pugi::xml_node placementChild(const pugi::xml_node& placement) {
    for (const pugi::xml_node& child : placement.children()) {
        if (isNamed(child, "LibraryObject") || isNamed(child, "Effect") || isNamed(child, "GenericBuilding"))
            return child;
    }
    return {};
}

PlacementKind placementKind(const pugi::xml_node& placement) {
    const pugi::xml_node child = placementChild(placement);
    if (isNamed(child, "LibraryObject"))
        return PlacementKind::libraryObject;
    if (isNamed(child, "Effect"))
        return PlacementKind::effect;
    return child ? PlacementKind::genericBuilding : PlacementKind::other;
}

pugi::xml_node buildingElement(const pugi::xml_node& placement) {
    const pugi::xml_node child = placementChild(placement);
    if (!isNamed(child, "GenericBuilding"))
        return {};
    for (const pugi::xml_node& candidate : child.children()) {
        if (buildingKindOf(candidate))
            return candidate;
    }
    return {};
}

std::string placementKey(const pugi::xml_node& placement) {
    switch (placementKind(placement)) {
    case PlacementKind::libraryObject:
        return placementChild(placement).attribute("name").value();
    case PlacementKind::effect:
        return placementChild(placement).attribute("effectName").value();
    case PlacementKind::genericBuilding: {
        const BuildingKind* kind = buildingKindOf(buildingElement(placement));
        return kind ? kind->key : "";
    }
    case PlacementKind::other:
        break;
    }
    return {};
}

std::string placementComment(const pugi::xml_node& placement) {
    const pugi::xml_node before = placement.previous_sibling();
    return before ? nodeText(before) : std::string();
}

} // namespace quillset
