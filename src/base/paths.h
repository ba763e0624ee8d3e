#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillset {

/// Paths are UTF-8 text everywhere but at the file system itself.
[[nodiscard]] std::filesystem::path toPath(std::string_view utf8);
[[nodiscard]] std::string toText(const std::filesystem::path& path);

/// The text after the last separator, the whole text when there is none. A backslash always separates; on
/// systems whose own separator is "/", that one does too.
[[nodiscard]] std::string_view fileNameOf(std::string_view path);
/// The text before the last separator (kept when it is a root); empty when there is none.
[[nodiscard]] std::string folderOf(std::string_view path);
/// Joins with the native separator; a folder that ends in one gets no second.
[[nodiscard]] std::string joinPath(std::string_view folder, std::string_view name);

/// A path that means the same in every later run: made absolute from the working folder, without "." parts
/// and without a separator at its end.
/// ".." stays where what it leads to depends on symbolic links; Windows takes it away by the text alone.
[[nodiscard]] std::string absolutePath(std::string_view path);

/// Lower case without regard to the locale: Latin, Greek and Cyrillic letters; invalid UTF-8 is kept as it
/// is.
[[nodiscard]] std::string lowerCase(std::string_view utf8);
/// Two paths that differ at most in letter case.
[[nodiscard]] bool sameIgnoringCase(std::string_view a, std::string_view b);
/// A path as it is stored for the recent files: lower case on Windows; unchanged elsewhere, where a folded
/// path would not be found again.
[[nodiscard]] std::string foldedForStorage(std::string_view path);

/// A file (not a folder) of that path.
[[nodiscard]] bool fileExists(std::string_view path);
[[nodiscard]] bool folderExists(std::string_view path);

/// Finds `relative` (parts separated by "/" or "\") below `folder` without regard to letter case, an exact
/// match first: the simulator's own folders are spelled in every way. Nothing when a part is missing.
[[nodiscard]] std::optional<std::string> findIgnoringCase(std::string_view folder, std::string_view relative);

} // namespace quillset
