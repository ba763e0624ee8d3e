#include "catalogue/model_registration.h"

#include "base/paths.h"
#include "base/runtime_error.h"
#include "base/xml_characters.h"
#include "catalogue/folder_listing.h"
#include "catalogue/guid_text.h"
#include "catalogue/library_registration.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace quillset {

namespace {

// What XML cannot hold would be stored as something else, and the model never be found.
void requireStorable(const std::string& path) {
    if (const std::string stored = storableText(path); stored != path)
        throw RuntimeError(ErrorNumber::pathAccess, "A scenery file cannot hold this name: " + stored);
}

std::string exceptionsOf(const std::vector<std::string>& names) {
    constexpr std::size_t told = 5;
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), told); ++i)
        text += (i == 0 ? ", but not (a scenery file cannot hold the name): " : ", ") + names[i];
    return names.size() > told ? text + " and " + std::to_string(names.size() - told) + " more" : text;
}

} // namespace

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
    requireStorable(path);
    const std::vector<CatalogueModel> known = with_.models.models();
    const bool declared =
        std::ranges::any_of(known, [&](const CatalogueModel& model) { return model.sourceFile == path; });
    const std::vector<CatalogueModel> models = declared ? std::vector<CatalogueModel>() : newModels({path});
    // Deliberate: snapshot and folder are kept also when the model turns out to be declared already.
    with_.models.recordSnapshot(ModelEdit::add);
    with_.configuration.setModelPath(path);
    declare(models);
    with_.activity.show(path + (declared ? " already in XML file" : " added as local MDL object"));
    return !declared;
}

bool ModelRegistration::addModelsOf(const std::string& folder) {
    requireStorable(folder);
    std::unordered_set<std::string> known;
    for (CatalogueModel& model : with_.models.models())
        known.insert(std::move(model.sourceFile));
    const FileNames files = filesEndingIn(folder, "mdl");
    std::vector<std::string> paths;
    for (const std::string& name : files.usable) {
        std::string path = joinPath(folder, name);
        if (!known.contains(path))
            paths.push_back(std::move(path));
    }
    const std::vector<CatalogueModel> models = newModels(std::move(paths));
    with_.models.recordSnapshot(ModelEdit::add);
    declare(models);
    with_.activity.show("All MDL object in " + folder + " added" + exceptionsOf(files.unusable));
    return !models.empty();
}

std::vector<CatalogueModel> ModelRegistration::newModels(std::vector<std::string> paths) {
    std::vector<CatalogueModel> models;
    models.reserve(paths.size());
    for (std::string& path : paths) {
        std::string guid = newGuidText(with_.guids);
        if (guid.empty())
            throw RuntimeError(ErrorNumber::internalError, "The system could not create a new GUID");
        models.push_back({std::move(guid), std::move(path)});
    }
    return models;
}

void ModelRegistration::declare(const std::vector<CatalogueModel>& models) {
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
