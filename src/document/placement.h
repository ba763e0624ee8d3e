#pragma once

#include <pugixml.hpp>

#include <string>

namespace quillset {

enum class PlacementKind { libraryObject, effect, genericBuilding, other };

/// The element that says what is placed: the first child element named LibraryObject, Effect or
/// GenericBuilding. Comments and elements such as BiasXYZ may stand before it. Null when there is none.
[[nodiscard]] pugi::xml_node placementChild(const pugi::xml_node& placement);
[[nodiscard]] PlacementKind placementKind(const pugi::xml_node& placement);

/// The first child of GenericBuilding named RectangularBuilding, PyramidalBuilding or MultiSidedBuilding;
/// null when there is none.
[[nodiscard]] pugi::xml_node buildingElement(const pugi::xml_node& placement);

/// The catalogue key of what is placed: a GUID text, an effect file name, or "rectangular", "pyramidal",
/// "multisided"; empty for anything else.
[[nodiscard]] std::string placementKey(const pugi::xml_node& placement);

/// The text of the node immediately before the placement, whatever kind of node it is; empty when there is
/// none.
[[nodiscard]] std::string placementComment(const pugi::xml_node& placement);

} // namespace quillset
