#include "shell/object_commands.h"

namespace quillset {

namespace {

constexpr const char* form = "MDIForm1";

} // namespace

void ObjectCommands::addNewBefore() {
    addNew("mAddNewBefore_Click", true);
}

void ObjectCommands::addNewEnd() {
    addNew("mAddNewEnd_Click", false);
}

void ObjectCommands::addNew(const char* procedure, bool before) {
    session_.errors().trapped(procedure, form, [&] {
        session_.commitEdits();
        const std::optional<CatalogueItem> item = session_.catalogue().selected();
        if (!item || !session_.catalogue().selectedIsPlaceable())
            return;
        const double latitude = session_.readLatitude();
        const double longitude = session_.readLongitude();
        if (session_.list().addNewObject(item->key, latitude, longitude, before))
            session_.activity().show(item->text + " added");
    });
}

void ObjectCommands::updateObject() {
    session_.errors().trapped("mUpdateObject_Click", form, [&] {
        session_.commitEdits();
        const std::optional<CatalogueItem> item = session_.catalogue().selected();
        if (item && session_.catalogue().selectedIsPlaceable())
            session_.list().UpdateObject(item->key);
    });
}

void ObjectCommands::onList(const char* procedure, bool (ObjectList::*operation)()) {
    session_.errors().trapped(procedure, form, [&] {
        session_.commitEdits();
        (session_.list().*operation)();
    });
}

void ObjectCommands::removeObject() {
    onList("mRemoveObject_Click", &ObjectList::removeObject);
}

void ObjectCommands::moveUp() {
    onList("mMoveUp_Click", &ObjectList::moveUp);
}

void ObjectCommands::moveDown() {
    onList("mMoveDown_Click", &ObjectList::moveDown);
}

void ObjectCommands::rescanTree() {
    session_.errors().trapped("mRescanTree_Click", form, [&] { session_.rescanCatalogue(); });
}

} // namespace quillset
