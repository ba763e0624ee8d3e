#pragma once

#include "compiler/records.h"
#include "compiler/target.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillset::compiler {

/// The records of one quad cell, which lie together in the file.
struct CellRecords {
    std::uint32_t cell = 0;
    std::uint32_t count = 0;
    std::uint32_t size = 0; ///< bytes
};

/// All placements as they lie in the file: cell after cell, in ascending order of the cells' numbers.
struct ScenerySection {
    std::vector<CellRecords> cells;
    std::string data;
};

/// Throws RuntimeError when the records would take 4 GB or more.
[[nodiscard]] ScenerySection buildScenerySection(const std::deque<SceneryObject>& objects, Target target);

/// The cells by which the simulator finds a file with these placements: at most format::headerCellCount,
/// ascending, covering all cells of the section.
[[nodiscard]] std::vector<std::uint32_t> headerCells(const std::vector<CellRecords>& cells);

} // namespace quillset::compiler
