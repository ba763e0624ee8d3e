#pragma once

#include "base/activity_line.h"
#include "base/error_functions.h"
#include "catalogue/catalogue_tree.h"
#include "catalogue/registration.h"

namespace quillset {

/// The commands that add a library file to the catalogue. Failures are reported here.
class LibraryRegistration {
public:
    struct Collaborators {
        Dialogs& dialogs;
        ErrorFunctions& errors;
        ActivityLine& activity;
        CatalogueConfiguration& configuration;
        CatalogueTree& tree;
    };
    explicit LibraryRegistration(const Collaborators& with)
        : with_(with) {}

    /// Asks for the file, registers it and builds the tree again. The file is not examined: the scan tells
    /// what is wrong with it. False when the dialog was cancelled or an error was reported.
    bool addLibrary(LibraryKind kind);

private:
    Collaborators with_;
};

/// The folder in which a dialog starts for a remembered path, which may itself be a folder.
[[nodiscard]] std::string startFolderOf(const std::string& rememberedPath);

} // namespace quillset
