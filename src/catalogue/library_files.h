#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quillset {

/// Receives the objects of a library file in document order; what the file leaves out is an empty text. The
/// texts are good during the call.
using LibrarySink = std::function<void(std::string_view key, std::string_view text)>;

// The readers return false, without calling the sink, when the file cannot be read as XML. Element and
// attribute names are matched exactly, wherever in the document the elements stand.

/// The default library: `LibraryObject` elements whose first child element holds the display name and whose
/// second one the GUID (the key). Positions decide, not the names of the children; white space around the
/// two texts does not count.
[[nodiscard]] bool readDefaultLibrary(const std::string& path, const LibrarySink& sink);

/// A user library: `ModelData` elements with `name` (the key) and `sourceFile` (a path; its file name is
/// the text).
[[nodiscard]] bool readUserLibrary(const std::string& path, const LibrarySink& sink);

/// A Rwy12 library: `obj` elements with `guid` (the key) and `name` (the text, what follows its last
/// backslash).
[[nodiscard]] bool readRwy12Library(const std::string& path, const LibrarySink& sink);

} // namespace quillset
