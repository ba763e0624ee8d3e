#pragma once

#include "base/guid_bytes.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quillset::compiler {

/// A library model, placed by its GUID.
struct LibraryObject {
    GuidBytes guid{};
    float scale = 1;
};

/// A special effect. Both texts are windows-1252, at most format::effectTextBytes long.
struct Effect {
    std::string name;
    std::string params;
};

enum class BuildingShape { flat, peaked, ridge, slant, pyramidal, multiSided };

/// One building with its values in the order of the file (see building_layout.h), textures included.
struct Building {
    BuildingShape shape = BuildingShape::flat;
    std::vector<std::uint16_t> words;
};

struct GenericBuilding {
    float scale = 1;
    std::vector<Building> buildings;
};

/// One placement.
struct SceneryObject {
    double latitude = 0;  ///< degrees north, -90..90
    double longitude = 0; ///< degrees east, -180..180
    double altitude = 0;  ///< metres
    double pitch = 0;     ///< degrees, any number of turns; so are bank and heading
    double bank = 0;
    double heading = 0;
    bool altitudeIsAgl = false;
    std::uint16_t suppressions = 0; ///< bits 1..6 of the flags; later simulator only
    std::uint16_t imageComplexity = 0;
    GuidBytes instanceId{}; ///< later simulator only
    std::variant<LibraryObject, Effect, GenericBuilding> thing;
};

/// A model file that becomes part of the output.
struct ModelData {
    std::optional<GuidBytes> guid; ///< of the `name` attribute
    std::string name;              ///< as written
    std::string sourceFile;        ///< as written
    std::size_t nameOffset = 0;    ///< in the source: of the name, of the element if there is none
    std::size_t sourceFileOffset = 0;
};

/// What a scenery source holds for the compiler, in document order.
struct SceneryRecords {
    std::deque<SceneryObject> objects; // not moved again and again while it grows
    std::vector<ModelData> models;
};

} // namespace quillset::compiler
