#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillset {

/// The folders of one run. `executable` holds the program itself and the data that came with it; `data` is
/// the program folder of the user's settings and working files (the same where that can be written); `undo`
/// is private to this running instance.
struct ProgramFiles {
    std::string executable;
    std::string data;
    std::string undo;

    [[nodiscard]] std::string config() const;
    [[nodiscard]] std::string log() const;
    /// Where to keep a document that the program cannot go on with: the first of these that can be written.
    /// The disk of the working files may be the very one that is full. None names a file that is there.
    [[nodiscard]] std::vector<std::string> recoveries(const std::string& sceneryPath) const;
    /// A file that came with the program ("generic.xml"): in the data folder first, so that a user can
    /// replace it, then beside the executable, then where a Linux package puts it. The data folder's path
    /// when it is nowhere.
    [[nodiscard]] std::string shipped(const std::string& name) const;
    /// The first page of the manual; nothing when it is in none of the places.
    [[nodiscard]] std::optional<std::string> manual() const;
    /// Where the manual is looked for: beside the program, then where a Linux package puts it.
    [[nodiscard]] std::vector<std::string> manualPlaces() const;
    /// The folders with a folder "pics" of the catalogue's pictures: the user's own ones come first.
    [[nodiscard]] std::vector<std::string> pictureFolders() const;
    /// Folder of the compiler that comes with the program: "compiler" beside the executable, else where a
    /// Linux package puts it. The last place where one is looked for.
    [[nodiscard]] std::string compilerFolder() const;
};

} // namespace quillset
