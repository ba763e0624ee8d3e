#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillset {

class SceneryDocument;

/// Where a property of a placement stands.
enum class PropertyLevel : int {
    comment = -2,   ///< the node before the placement
    placement = -1, ///< an attribute of SceneryObject
    child = 0,      ///< an attribute of LibraryObject, Effect or GenericBuilding
    building = 1,   ///< an attribute of the building element under GenericBuilding
};

struct PropertyEntry {
    std::string name;
    std::string value;
    PropertyLevel level = PropertyLevel::comment;
    std::size_t position = 0; ///< of the attribute in its element's list, from 0

    bool operator==(const PropertyEntry&) const = default;
};

inline constexpr std::size_t maximumProperties = 64;

/// The properties of a placement: "comment" first, then the attributes of the placement, of its child and of
/// the building element, each in file order. Throws RuntimeError (subscriptOutOfRange) for more than
/// maximumProperties and for a placement that is not there.
[[nodiscard]] std::vector<PropertyEntry> propertyTable(const SceneryDocument& document,
                                                       std::size_t placement);

/// Writes one property as it was typed; of a comment only what cannot stand in one is changed. A comment is
/// created for a placement without one, unless the text is empty; an element that stands where the comment
/// should be is never written to. Throws RuntimeError and changes nothing when the attribute is not there.
void writeProperty(SceneryDocument& document, std::size_t placement, const PropertyEntry& property,
                   const std::string& text);

/// Gives a library object or an effect another key, without checking that the key fits the kind: a placement
/// never changes its kind. Anything else stays as it is. Throws RuntimeError when there is no such placement.
void updatePlacementKey(SceneryDocument& document, std::size_t placement, const std::string& key);

} // namespace quillset
