#pragma once

#include "base/error_functions.h"
#include "catalogue/catalogue_nodes.h"

#include <string>
#include <vector>

namespace quillset {

/// A model of the open document: its GUID text and the path of its file.
struct CatalogueModel {
    std::string name;
    std::string sourceFile;

    bool operator==(const CatalogueModel&) const = default;
};

/// Where the catalogue's objects come from; full paths.
struct CatalogueSources {
    std::string genericFile;
    /// The simulator's folder (holds the effects folder); may be empty.
    std::string simulatorFolder;
    std::vector<std::string> userLibraries;
    std::vector<std::string> rwy12Libraries;
    /// Empty when no document is open.
    std::vector<CatalogueModel> documentModels;
};

/// Reads all sources and gives the whole tree. What cannot be read is told with a message, a key that is
/// already taken with an error report; both cost the rest of that source only.
[[nodiscard]] CatalogueNodes scanCatalogue(const CatalogueSources& sources, Dialogs& dialogs,
                                           ErrorFunctions& errors);

} // namespace quillset
