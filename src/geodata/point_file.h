#pragma once

#include "document/new_placement.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quillset {

/// Why a shape gives no placement.
enum class ShapeFault {
    damaged,       ///< it cannot be read
    noCoordinates, ///< it is a null shape
    noPoint,       ///< it is something else than the point that the file promises
    outOfRange,    ///< its coordinates are no numbers, or no place on the globe
    noRecord,      ///< the table has no record for it, or a damaged one
    deletedRecord, ///< its record is marked as deleted
};

/// Shapes count from 0, as programs for geographic data count them.
struct SkippedShape {
    std::size_t shape = 0;
    ShapeFault fault = ShapeFault::damaged;

    bool operator==(const SkippedShape&) const = default;
};

/// What a point shapefile holds.
struct PointFile {
    /// Whether the file can be imported at all.
    enum class Verdict { points, otherShapes, noLabels };
    Verdict verdict = Verdict::points;
    /// Their positions in WGS84 degrees, with the keys that their labels name; headings are 0.
    std::vector<NewPlacement> points;
    std::vector<SkippedShape> skipped;
};

/// What the user is told about a file that cannot be imported.
[[nodiscard]] const char* refusalText(PointFile::Verdict verdict);

/// Reads the .shp of that path, and the .shx, .dbf and .cpg beside it (in any letter case): RD coordinates in
/// metres, and the keys in the field DXF_LABEL. The files may be damaged in every way; shapes that cannot be
/// used are listed. Throws RuntimeError when a file is missing or when nothing of it can be read.
[[nodiscard]] PointFile readPointFile(const std::string& path);

/// The content of those files.
struct PointFileBytes {
    std::string shp;
    std::string shx;
    std::string dbf;
    std::string cpg; ///< empty for none
};
/// The same from memory; `path` is what errors name.
[[nodiscard]] PointFile readPointFile(PointFileBytes bytes, const std::string& path);

/// "3 points added, 4 skipped: shapes 7, 9-11 (no coordinates)". The places are left out when nothing was
/// skipped, and end in "..." when there are very many.
[[nodiscard]] std::string importText(std::size_t added, const std::vector<SkippedShape>& skipped);

} // namespace quillset
