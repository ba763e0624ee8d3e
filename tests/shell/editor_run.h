#pragma once

#include "shell/editor.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <QAbstractItemView>
#include <QTest>

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace quillset::test {

/// An editor with windows, in a folder of its own, that has just been started.
struct EditorRun {
    explicit EditorRun(const TemporaryFolder& folder, const std::string& file = {},
                       std::unique_ptr<SimulatorServices> services = systemSimulatorServices())
        : simulator(std::move(services)) {
        options.fsPath = folder.file("fs");
        options.file = file;
        const std::string program = folder.file("program");
        editor.emplace(EditorEnvironment{options,
                                         {program, program, program},
                                         dialogs,
                                         *simulator,
                                         [] { return std::string(); },
                                         [this] { ++ended; }});
        started = editor->start();
        editor->window().activateWindow();
        if (!QTest::qWaitForWindowActive(&editor->window()))
            qFatal("the main window does not become active");
        // The message about the simulator's module comes at every start here.
        dialogs.messages.clear();
    }

    [[nodiscard]] QAction* action(const char* name) { return editor->window().commands().action(name); }
    [[nodiscard]] QWidget* widget(const char* name) {
        return editor->window().findChild<QWidget*>(QLatin1String(name));
    }
    [[nodiscard]] QAbstractItemView* list() {
        return editor->window().findChild<QAbstractItemView*>(QStringLiteral("XMLList"));
    }

    CommandLine options;
    ScriptedDialogs dialogs;
    std::unique_ptr<SimulatorServices> simulator;
    int ended = 0;
    bool started = false;
    std::optional<Editor> editor;
};

/// A scenery file of `count` placements at latitudes 1, 2, ...
inline std::string document(const TemporaryFolder& folder, const char* name, int count) {
    std::string text = "<FSData version=\"9.0\">";
    for (int i = 1; i <= count; ++i)
        text += "<!--Object " + std::to_string(i) + "--><SceneryObject lat=\"" + std::to_string(i) +
                "\" lon=\"5\"><LibraryObject name=\"AA01\" scale=\"1.0\"/></SceneryObject>";
    return folder.write(name, text + "</FSData>");
}

/// A small catalogue and a simulator folder for an EditorRun.
inline void writeProgramFiles(const TemporaryFolder& folder) {
    folder.write("program/generic.xml", "<Objects><LibraryObject><n>Hangar</n><g>AA01</g></LibraryObject>"
                                        "<LibraryObject><n>Tower</n><g>AA02</g></LibraryObject></Objects>");
    folder.write("fs/effects/smoke.fx", "[x]");
}

} // namespace quillset::test
