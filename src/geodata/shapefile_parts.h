#pragma once

#include <string>

namespace quillset {

/// The path of the file with that extension (".dbf") beside a shapefile. One that is there is found in any
/// letter case: programs on other systems write them in every one.
[[nodiscard]] std::string besideShapefile(const std::string& shapefile, const std::string& extension);

} // namespace quillset
