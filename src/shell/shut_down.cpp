#include "shell/shut_down.h"

#include "base/folder_lock.h"
#include "base/paths.h"
#include "base/runtime_error.h"
#include "shell/temporary_files.h"

#include <array>
#include <chrono>
#include <thread>

namespace quillset {

namespace {

// Two instances that end together must not read and write the settings at once. Should the other one hang,
// or the folder allow no lock, the file is written all the same.
std::unique_ptr<FolderLock> configurationLock(const std::string& folder) {
    constexpr int tries = 40;
    constexpr std::chrono::milliseconds nap{50};
    try {
        for (int i = 0; i < tries; ++i) {
            if (auto lock = tryLock(joinPath(folder, ".quillset-config.lock")))
                return lock;
            std::this_thread::sleep_for(nap);
        }
    } catch (const RuntimeError&) { // the save itself will tell what is wrong with the folder
    }
    return nullptr;
}

} // namespace

void shutDown(Session& session, const std::function<WindowLayout(const std::string& window)>& layoutOf) {
    const std::array<std::function<void()>, 5> steps{
        [&] {
            for (const char* const window : {"frmPreview", "frmObjTree", "frmObjProp"})
                session.configuration().setLayout(window, layoutOf(window));
        },
        [&] { removeTemporaryFiles(session.files().undo); }, // first: they may be what fills the disk
        [&] {
            const auto lock = configurationLock(session.files().data);
            session.configuration().save(session.fileOperations(), session.files().config());
        },
        [&] { session.journal().deleteSnapshots(); },
        [&] { session.closeSimulatorLink(); },
    };
    for (const std::function<void()>& step : steps)
        session.errors().trapped("MDIForm_Unload", "MDIForm1", step);
}

} // namespace quillset
