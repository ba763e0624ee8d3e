#include "geodata/shapefile_parts.h"

#include "base/paths.h"

#include <algorithm>

namespace quillset {

std::string besideShapefile(const std::string& shapefile, const std::string& extension) {
    const std::string whole = absolutePath(shapefile);
    const std::string name(fileNameOf(whole));
    const std::string sibling = name.substr(0, std::min(name.rfind('.'), name.size())) + extension;
    const std::string folder = folderOf(whole);
    return findIgnoringCase(folder, sibling).value_or(joinPath(folder, sibling));
}

} // namespace quillset
