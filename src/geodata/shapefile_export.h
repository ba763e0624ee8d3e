#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace quillset {

class FileOperations;
class SceneryDocument;

/// Gives the catalogue's display name of a library object ("hangar.mdl") for its key.
using ObjectNames = std::function<std::string(const std::string& key)>;

/// What an export wrote.
struct ExportCount {
    std::size_t points = 0;
    /// Placements among them whose position or heading is no number and no text that means one: what stands
    /// there begins like a number or counts as 0.
    std::size_t unclear = 0;

    bool operator==(const ExportCount&) const = default;
};

/// The path that an export to the chosen path writes: with ".shp" at its end.
[[nodiscard]] std::string shapefilePath(const std::string& chosen);

/// The five files of the shapefile with that path.
[[nodiscard]] std::vector<std::string> shapefileFiles(const std::string& path);

/// Whether an export to that path replaces a file, be it only a table that lies there alone.
[[nodiscard]] bool exportReplaces(const std::string& path);

/// Writes one point (WGS84 degrees) with one record for each placement, in document order: the files .shp,
/// .shx and .dbf, with .cpg (UTF-8) and .prj beside them, all five or none. Old files are replaced, those
/// beside the .shp in any letter case; a search index of the old points (.qix, .sbn, .sbx) is removed, since
/// it would hide the new ones. Texts longer than their fields (code 65, guid 33, xmlComment 65 bytes) are cut
/// after a whole character. Throws RuntimeError, with the old files untouched; also when one of them is the
/// scenery file itself.
ExportCount exportShapefile(const SceneryDocument& document, const ObjectNames& names, FileOperations& files,
                            const std::string& path);

} // namespace quillset
