#include "catalogue/model_registration.h"

#include "base/paths.h"
#include "catalogue/folder_listing.h"
#include "catalogue/guid_text.h"
#include "catalogue/library_registration.h"

#include <unordered_set>
#include <utility>

namespace quillset {

bool ModelRegistration::addModel() {
    bool changed = false;
    with_.errors.trapped("mAddMDL_Click", "MDIForm1", [&] { changed = addChosenModel(); });
    return changed;
}

bool ModelRegistration::addModelFolder() {
    bool changed = false;
    with_.errors.trapped("mAddMDLFolder_Click", "MDIForm1", [&] {
        const std::string folder = with_.dialogs.chooseFolder("Choose a directory from the list.");
        if (folderExists(folder))
            changed = addModelsOf(folder);
    });
    return changed;
}

bool ModelRegistration::removeModel() {
    bool changed = false;
    with_.errors.trapped("mRemoveMDL_Click", "MDIForm1", [&] { changed = removeSelectedModel(); });
    return changed;
}

bool ModelRegistration::addChosenModel() {
    const std::string path = with_.dialogs.openFile(
        {"Select MDL file", "MDL file (*.mdl)|*.mdl|", {}, startFolderOf(with_.configuration.modelPath())});
    if (path.empty())
        return false;
    // Deliberate: snapshot and folder are kept also when the model turns out to be declared already.
    with_.models.recordSnapshot(ModelEdit::add);
    with_.configuration.setModelPath(path);
    for (const CatalogueModel& model : with_.models.models()) {
        if (model.sourceFile == path) {
            with_.activity.show(path + " already in XML file");
            return false;
        }
    }
    declare({&path, 1});
    with_.activity.show(path + " added as local MDL object");
    return true;
}

bool ModelRegistration::addModelsOf(const std::string& folder) {
    with_.models.recordSnapshot(ModelEdit::add);
    std::unordered_set<std::string> known;
    for (CatalogueModel& model : with_.models.models())
        known.insert(std::move(model.sourceFile));
    std::vector<std::string> paths;
    for (const std::string& name : fileNamesEndingIn(folder, "mdl")) {
        std::string path = joinPath(folder, name);
        if (!known.contains(path))
            paths.push_back(std::move(path));
    }
    declare(paths);
    with_.activity.show("All MDL object in " + folder + " added");
    return !paths.empty();
}

void ModelRegistration::declare(std::span<const std::string> paths) {
    std::vector<CatalogueModel> models;
    models.reserve(paths.size());
    for (const std::string& path : paths) {
        std::string guid = newGuidText(with_.guids);
        if (guid.empty())
            throw RuntimeError(ErrorNumber::internalError, "The system could not create a new GUID");
        models.push_back({std::move(guid), path});
    }
    if (models.empty())
        return;
    with_.models.add(models);
    with_.tree.addLocalModels(models);
    with_.tree.setObjTreeItem(models.back().name);
}

bool ModelRegistration::removeSelectedModel() {
    const std::optional<CatalogueItem> selected = with_.tree.selected();
    if (!selected || !with_.tree.selectedIsLocalModel())
        return false;
    const Answer answer = with_.dialogs.ask(
        {"This will remove the user object and all instances placed of it, do you want to continue?",
         warningTitle, MessageButtons::yesNo, MessageIcon::none});
    if (answer != Answer::yes)
        return false;
    with_.models.recordSnapshot(ModelEdit::remove);
    const std::string status = "Local MDL object " + selected->text + " removed";
    with_.activity.show(status);
    const std::vector<std::string> alsoRemoved = with_.models.remove(selected->key);
    with_.tree.rescanObjTree(with_.configuration.sources());
    with_.tree.setObjTreeItem("local");
    if (!alsoRemoved.empty()) {
        std::string names;
        for (const std::string& name : alsoRemoved)
            names += (names.empty() ? "" : ", ") + name;
        with_.activity.show(status + ", and with it " + names);
    }
    return true;
}

} // namespace quillset
