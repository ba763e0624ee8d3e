#include "geodata/shapefile_import.h"

#include "base/runtime_error.h"
#include "document/scenery_document.h"

#include <utility>

namespace quillset {

ImportResult importShapefile(SceneryDocument& document, const std::string& path) {
    if (!document.hasRoot())
        throw RuntimeError(ErrorNumber::objectNotSet);
    PointFile file = readPointFile(path);
    for (const NewPlacement& point : file.points)
        addPlacement(document, point, std::nullopt);
    return {file.verdict, file.points.size(), std::move(file.skipped)};
}

} // namespace quillset
