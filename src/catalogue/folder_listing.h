#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// Files of a folder, sorted without regard to letter case.
struct FileNames {
    std::vector<std::string> usable;
    /// Names that XML text cannot hold, as far as they can be shown.
    std::vector<std::string> unusable;
};

/// The files (not folders) of a folder whose lower-cased names end in `ending`, which needs no dot before it.
/// Entries that cannot be examined are left out; a folder that cannot be read gives what was read so far.
[[nodiscard]] FileNames filesEndingIn(const std::string& folder, std::string_view ending);

/// The effects folder of a simulator folder, however it is spelled; nothing when there is none.
[[nodiscard]] std::optional<std::string> effectsFolder(const std::string& simulatorFolder);

} // namespace quillset
