#pragma once

#include "base/activity_line.h"
#include "base/error_functions.h"
#include "base/guid_maker.h"
#include "catalogue/catalogue_tree.h"
#include "catalogue/registration.h"

#include <string>
#include <vector>

namespace quillset {

/// The commands that declare model files in the open document and remove them again. Model files are never
/// opened, only their paths are recorded. Failures are reported here. Each command returns true when it
/// changed the document.
class ModelRegistration {
public:
    struct Collaborators {
        Dialogs& dialogs;
        ErrorFunctions& errors;
        ActivityLine& activity;
        GuidMaker& guids;
        CatalogueConfiguration& configuration;
        ModelStore& models;
        CatalogueTree& tree;
    };
    explicit ModelRegistration(const Collaborators& with)
        : with_(with) {}

    /// Declares one model file, chosen by the user, and selects it in the tree.
    bool addModel();
    /// Declares every model file of a folder that is not declared yet: one snapshot, one change of the
    /// document, one change of the tree.
    bool addModelFolder();
    /// Removes the selected model and its placements after a question. The caller refreshes the object list.
    bool removeModel();

private:
    bool addChosenModel();
    bool addModelsOf(const std::string& folder);
    bool removeSelectedModel();
    /// Gives each path a new GUID; throws RuntimeError when one cannot be made. To be called before anything
    /// is changed, the snapshot included.
    [[nodiscard]] std::vector<CatalogueModel> newModels(std::vector<std::string> paths);
    void declare(const std::vector<CatalogueModel>& models);

    Collaborators with_;
};

} // namespace quillset
