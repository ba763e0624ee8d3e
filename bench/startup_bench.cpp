// From nothing to an idle window, on the sample simulator folder of this build: the whole start-up sequence
// with its catalogue, its 154 textures and its preview, at most 300 ms above an empty window of the toolkit.
// Each side ends when its window has been painted and no event is left. Run under an X server (Xvfb).

#include "base/program_folder.h"
#include "shell/editor.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <optional>

namespace quillset {
namespace {

constexpr double limitMilliseconds = 300.0;

void waitUntilIdle(const QWidget& window) {
    while (!window.windowHandle() || !window.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

double emptyWindow() {
    QElapsedTimer timer;
    timer.start();
    QMainWindow window;
    window.resize(1360, 900);
    window.show();
    waitUntilIdle(window);
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Nothing when the editor did not start whole: without textures or OpenGL it has more to tell than that the
// sample folder has no simulator.
std::optional<double> editorWindow() {
    const test::TemporaryFolder data;
    std::filesystem::create_directory(data.path() + "/undo");
    test::ScriptedDialogs dialogs;
    const std::unique_ptr<SimulatorServices> simulator = systemSimulatorServices();
    CommandLine options;
    options.fsPath = QUILLSET_SAMPLE_SIMULATOR;
    QElapsedTimer timer;
    timer.start();
    Editor editor({options,
                   {executableFolder(), data.path(), data.path() + "/undo"},
                   dialogs,
                   *simulator,
                   [] { return std::string(); },
                   [] {}});
    const bool started = editor.start();
    waitUntilIdle(editor.window());
    const double elapsed = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    editor.window().close();
    if (!started || dialogs.messages.size() != 1)
        return std::nullopt;
    return elapsed;
}

void BM_StartUp(benchmark::State& state) {
    double bestEmpty = std::numeric_limits<double>::max();
    double bestEditor = bestEmpty;
    for (auto unused : state) {
        (void)unused;
        bestEmpty = std::min(bestEmpty, emptyWindow());
        const std::optional<double> elapsed = editorWindow();
        if (!elapsed) {
            state.SkipWithError("the editor did not start whole");
            break;
        }
        bestEditor = std::min(bestEditor, *elapsed);
        state.SetIterationTime(*elapsed / 1e3);
    }
    state.counters["empty_ms"] = bestEmpty;
    state.counters["above_ms"] = bestEditor - bestEmpty;
    state.counters["limit_ms"] = limitMilliseconds;
}

BENCHMARK(BM_StartUp)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

} // namespace
} // namespace quillset

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
