#include "shell/registration_commands.h"

#include "base/runtime_error.h"
#include "document/local_models.h"

namespace quillset {

RegistrationCommands::RegistrationCommands(Session& session)
    : session_(session)
    , libraries_({session.dialogs(), session.errors(), session.activity(), *this, session.catalogue()})
    , models_({session.dialogs(), session.errors(), session.activity(), session.guidMaker(), *this, *this,
               session.catalogue()}) {}

void RegistrationCommands::addUserLibrary() {
    if (libraries_.addLibrary(LibraryKind::user))
        session_.list().refreshNames();
}

void RegistrationCommands::addRwy12Library() {
    if (libraries_.addLibrary(LibraryKind::rwy12))
        session_.list().refreshNames();
}

void RegistrationCommands::addModel() {
    session_.commitEdits();
    models_.addModel();
}

void RegistrationCommands::addModelFolder() {
    session_.commitEdits();
    models_.addModelFolder();
}

void RegistrationCommands::removeModel() {
    session_.commitEdits();
    if (!models_.removeModel())
        return;
    session_.list().updateXMLList();
    session_.catalogue().setObjTreeItem("local"); // the list has made the tree follow its selected row
}

std::string RegistrationCommands::xmlPath() const {
    return session_.configuration().xmlPath();
}

std::string RegistrationCommands::modelPath() const {
    return session_.configuration().mdlPath();
}

void RegistrationCommands::setModelPath(const std::string& path) {
    session_.configuration().setMdlPath(path);
}

void RegistrationCommands::appendLibrary(LibraryKind kind, const std::string& path) {
    session_.configuration().addLibrary(kind, path);
}

CatalogueSources RegistrationCommands::sources() const {
    return session_.catalogueSources();
}

void RegistrationCommands::requireDocument() const {
    if (!session_.document().isOpen() || !session_.document().hasRoot())
        throw RuntimeError(ErrorNumber::objectNotSet);
}

void RegistrationCommands::recordSnapshot(ModelEdit edit) {
    requireDocument();
    session_.journal().record(edit == ModelEdit::add ? UndoKind::addModel : UndoKind::removeModel);
}

std::vector<CatalogueModel> RegistrationCommands::models() const {
    requireDocument();
    return session_.catalogueSources().documentModels;
}

void RegistrationCommands::add(std::span<const CatalogueModel> models) {
    requireDocument();
    std::vector<LocalModel> declared;
    declared.reserve(models.size());
    for (const CatalogueModel& model : models)
        declared.push_back({model.name, model.sourceFile});
    addLocalModels(session_.document(), declared);
}

std::vector<std::string> RegistrationCommands::remove(const std::string& name) {
    requireDocument();
    return removeLocalModel(session_.document(), name);
}

} // namespace quillset
