#pragma once

#include "sample_simulator/sketch.h"

#include <string>

namespace quillset {

/// What a sample picture shows.
enum class Motif { hangar, controlTower, fuelTanks, mast, windmill, lighthouse, trees, house, waterTower };

/// The picture of a motif whose main part has that colour, as a bitmap file.
[[nodiscard]] std::string motifPicture(Motif motif, Ink colour);

} // namespace quillset
