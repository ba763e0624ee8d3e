#pragma once

#include <string>

namespace quillset {

/// The user's home folder; empty when the system knows none.
[[nodiscard]] std::string homeFolder();

/// The folder for this program's data of the user, which may not exist yet: on Windows "Quillset XML" in
/// %APPDATA%; elsewhere "quillset-xml" in $XDG_DATA_HOME, which is ~/.local/share where it is not set.
[[nodiscard]] std::string userDataFolder();

} // namespace quillset
