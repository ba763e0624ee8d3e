#include "shell/shut_down.h"

#include <array>

namespace quillset {

void shutDown(Session& session, const std::function<WindowLayout(const std::string& window)>& layoutOf) {
    const std::array<std::function<void()>, 4> steps{
        [&] {
            for (const char* const window : {"frmPreview", "frmObjTree", "frmObjProp"})
                session.configuration().setLayout(window, layoutOf(window));
        },
        [&] { session.configuration().save(session.fileOperations(), session.files().config()); },
        [&] { session.journal().deleteSnapshots(); },
        [&] { session.closeSimulatorLink(); },
    };
    for (const std::function<void()>& step : steps)
        session.errors().trapped("MDIForm_Unload", "MDIForm1", step);
}

} // namespace quillset
