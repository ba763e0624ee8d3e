#pragma once

#include <string>
#include <string_view>

namespace quillset {

/// Turns the list of the simulator's default library objects into the default library file of the catalogue.
/// The list has a header line and then one object a line: name, GUID (32 hexadecimal digits) and further
/// columns that are not used, separated by tabs. The file has one object a line, sorted by name without
/// regard to letter case, GUIDs in upper case. Throws std::runtime_error with the line number for a row
/// without a name or a proper GUID, for a name that XML text cannot hold, and for a GUID that came before.
[[nodiscard]] std::string genericLibrary(std::string_view list);

} // namespace quillset
