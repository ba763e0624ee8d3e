#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quillset {

class SceneryDocument;

/// What a new placement is made of.
struct NewPlacement {
    /// Catalogue key: "rectangular", "pyramidal", "multisided", a text that contains ".fx" (an effect's file
    /// name), or else the GUID of a library object.
    std::string key;
    double latitude = 0;  ///< degrees, north positive
    double longitude = 0; ///< degrees, east positive
    double heading = 0;   ///< degrees true
};

/// Adds a placement and its comment ("Object " and the new number of placements): at the end of the root
/// element, or before the placement of that index. Deliberate: "before" means before the node that precedes
/// that placement, whatever kind of node it is (usually its comment). Returns the index of the new placement.
/// Throws RuntimeError and changes nothing when there is no root element or no such placement.
std::size_t addPlacement(SceneryDocument& document, const NewPlacement& placement,
                         std::optional<std::size_t> before);

} // namespace quillset
