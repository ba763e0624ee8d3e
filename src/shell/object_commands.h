#pragma once

#include "shell/session.h"

namespace quillset {

/// The commands of the Objects menu and of the list's context menu. Each reports its own failures.
class ObjectCommands {
public:
    explicit ObjectCommands(Session& session)
        : session_(session) {}

    void addNewBefore();
    void addNewEnd();
    void updateObject();
    void removeObject();
    void moveUp();
    void moveDown();
    void rescanTree();

private:
    void addNew(const char* procedure, bool before);
    void onList(const char* procedure, bool (ObjectList::*operation)());

    Session& session_;
};

} // namespace quillset
