#include "shell/command_states.h"

namespace quillset {

ListState listState(Session& session) {
    return {session.document().hasRoot(), session.list().selectedPlacement().has_value()};
}

std::map<std::string_view, bool> commandStates(Session& session) {
    const bool open = session.document().isOpen();
    const bool editable = session.document().hasRoot();
    const ListCommands list = session.list().setXMLListMenuOptions();
    const TreeMenuOptions tree = session.catalogue().setTreeMenuOptions(listState(session));
    return {
        {"mSave", open},
        {"mSaveAs", open},
        {"mCompile", open},
        {"mExportSHP", open},
        {"mImportSHP", editable},
        {"mClose", open},
        {"mUndo", session.journal().canUndo()},
        {"mAddNewBefore", tree.addNewBefore && list.addBefore},
        {"mAddNewEnd", tree.addNewEnd && list.addEnd},
        {"mUpdateObject", tree.updateObject && list.updateObject},
        {"mAddMDL", tree.addMDL},
        {"mAddMDLFolder", tree.addMDLFolder},
        {"mRemoveMDL", tree.removeMDL},
        {"mRemoveObject", list.removeObject},
        {"mMoveUp", list.moveUp},
        {"mMoveDown", list.moveDown},
    };
}

} // namespace quillset
