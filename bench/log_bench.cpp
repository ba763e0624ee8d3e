// The compile log against its limit: 10 MB of compiler output shown within a second.

#include "build/frmCompile.h"

#include <QApplication>
#include <QPlainTextEdit>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr std::size_t outputSize = 10'000'000;
constexpr double limitSeconds = 1.0;

std::string compilerOutput() {
    std::string text;
    for (int i = 0; text.size() < outputSize; ++i)
        text += "compile.xml(" + std::to_string(i) + "): processing <SceneryObject> element\r\n";
    return text;
}

/// As the runner delivers it: pieces of 256 bytes, then the window is shown.
void compileLog(benchmark::State& state) {
    const std::string text = compilerOutput();
    for (auto _ : state) {
        auto window = std::make_unique<quillset::frmCompile>();
        window->runBegins("bglcomp compile.xml");
        for (std::size_t at = 0; at < text.size(); at += quillset::DOSOutputs::pieceLimit)
            window->append(text.substr(at, quillset::DOSOutputs::pieceLimit));
        window->runEnds(quillset::CompileOutcome::madeScenery, {});
        window->show();
        QApplication::processEvents();
        state.PauseTiming(); // it is shown; taking it down is not part of that
        window.reset();
        state.ResumeTiming();
    }
    state.counters["share_of_limit"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * limitSeconds,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// The toolkit's own text view given everything at once: nothing on it can be quicker.
void textViewAtOnce(benchmark::State& state) {
    const QString text = QString::fromStdString(compilerOutput());
    for (auto _ : state) {
        auto view = std::make_unique<QPlainTextEdit>();
        view->setUndoRedoEnabled(false);
        view->setLineWrapMode(QPlainTextEdit::NoWrap);
        view->setPlainText(text);
        view->show();
        QApplication::processEvents();
        state.PauseTiming();
        view.reset();
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(compileLog)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(textViewAtOnce)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int count, char** values) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, values);
    benchmark::Initialize(&count, values);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
