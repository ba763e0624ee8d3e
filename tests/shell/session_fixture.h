#pragma once

#include "sample_files.h"
#include "shell/session.h"
#include "support/counting_guids.h"
#include "support/fixed_clock.h"
#include "support/scripted_dialogs.h"

namespace quillset::test {

/// A session in a folder of its own, with a small catalogue and effects "smoke.fx" and "lights.fx".
struct SessionFixture {
    SessionFixture() {
        writeProgramFiles(folder);
        folder.write("fs/Effects/lights.fx", "[x]");
    }

    /// Configuration and catalogue as after start-up.
    void start() {
        session.configuration().createFresh(folder.file("fs"));
        session.rescanCatalogue();
    }
    /// A document on disk with `count` placements of the hangar.
    std::string document(std::string_view name, int count) const {
        return test::document(folder, name, count);
    }

    TemporaryFolder folder;
    ScriptedDialogs dialogs;
    FixedClock clock;
    CountingGuids guids;
    std::unique_ptr<FileOperations> files = systemFileOperations();
    int ended = 0;
    std::string registered;
    bool linkClosed = false;
    Session session{{dialogs,
                     clock,
                     *files,
                     guids,
                     {folder.file("program"), folder.file("program"), folder.file("program")},
                     [this] { return registered; },
                     [] { return 52.1; },
                     [] { return 5.2; },
                     [] { return 90.0; },
                     [this] { linkClosed = true; },
                     [this] { ++ended; }}};
};

} // namespace quillset::test
