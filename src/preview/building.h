#pragma once

#include "preview/texture_tables.h"

#include <pugixml.hpp>

#include <optional>

namespace quillset {

enum class BuildingKind { rectangular, pyramidal, multiSided };
enum class RoofType { flat, peaked, ridge, slant };

/// How a texture covers a face: how often it is repeated along the building's X and Z axes and upwards
/// (`textureIndex…` / 256). An axis that a face does not have is not used.
struct Cover {
    Surface surface = neutralColour;
    double repeatX = 1.0;
    double repeatY = 1.0;
    double repeatZ = 1.0;

    bool operator==(const Cover&) const = default;
};

/// A layer of a building: its height in metres and what covers it.
struct Storey {
    double height = 0.0;
    Cover cover;

    bool operator==(const Storey&) const = default;
};

/// A generic building as the simulator understands its attributes: sizes in metres (X east-west, Z
/// north-south at heading 0), never negative, never out of range.
struct Building {
    BuildingKind kind = BuildingKind::rectangular;
    RoofType roofType = RoofType::flat;
    double sizeX = 0.0;
    double sizeZ = 0.0;
    double sizeTopX = 0.0;
    double sizeTopZ = 0.0;
    int sides = 4;
    bool smoothing = false;
    Storey bottom;
    Storey window;
    Storey top;
    Storey roof;
    Cover gable;
    Cover face;

    bool operator==(const Building&) const = default;
};

/// Reads a `GenericBuilding` element with its first building child; nothing when it has none. Attributes may
/// be missing or hold anything: a size is then 0, a repeat 1, a colour neutral, the scale 1.
[[nodiscard]] std::optional<Building> readBuilding(const pugi::xml_node& genericBuilding);

} // namespace quillset
