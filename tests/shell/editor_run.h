#pragma once

#include "sample_files.h"
#include "shell/editor.h"
#include "support/scripted_dialogs.h"

#include <QAbstractItemView>
#include <QTest>

#include <memory>
#include <optional>
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

} // namespace quillset::test
