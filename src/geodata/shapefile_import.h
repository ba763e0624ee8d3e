#pragma once

#include "geodata/point_file.h"

#include <string>

namespace quillset {

class SceneryDocument;

/// What an import did.
struct ImportResult {
    PointFile::Verdict verdict = PointFile::Verdict::points;
    std::size_t added = 0;
    std::vector<SkippedShape> skipped;
};

/// Adds a placement with heading 0 for each usable point of a shapefile (see readPointFile) to the end of the
/// document, without undo steps. When the verdict is not "points" nothing was added. Throws RuntimeError, and
/// changes nothing, when the files cannot be read or when the document has no root element.
ImportResult importShapefile(SceneryDocument& document, const std::string& path);

} // namespace quillset
