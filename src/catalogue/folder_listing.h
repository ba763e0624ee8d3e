#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// The names of the files (not folders) of a folder whose lower-cased names end in `ending`, sorted without
/// regard to letter case. The ending needs no dot before it. Entries that cannot be examined, and names that
/// XML text cannot hold, are left out; a folder that cannot be read gives what was read so far.
[[nodiscard]] std::vector<std::string> fileNamesEndingIn(const std::string& folder, std::string_view ending);

/// The effects folder of a simulator folder, however it is spelled; nothing when there is none.
[[nodiscard]] std::optional<std::string> effectsFolder(const std::string& simulatorFolder);

} // namespace quillset
