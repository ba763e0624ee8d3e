// Compiling a scenery document of 100,000 placements against the bare parse of the same bytes, and the memory
// it takes; the memory for 2 GB of models. Each benchmark prints its figure and the limit it should keep.
#include "base/paths.h"
#include "comparison.h"
#include "compiler/compile.h"
#include "scenery_generator.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <pugixml.hpp>

using namespace quillset;
using namespace quillset::compiler;

namespace {

constexpr std::size_t placements = 100'000;

class Scratch {
public:
    Scratch() { std::filesystem::create_directories(folder_); }
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    [[nodiscard]] std::string file(const char* name) const { return toText(folder_ / name); }

private:
    std::filesystem::path folder_ = std::filesystem::temp_directory_path() / "quillset-compiler-bench";
};

class CountedMessages : public MessageSink {
public:
    void add(const CompilerMessage&) override { ++count; }
    std::size_t count = 0;
};

void compileOnce(const std::string& path, std::size_t expectedPlacements, std::size_t expectedModels) {
    CountedMessages messages;
    const auto files = systemFileOperations();
    const CompileResult result = compileFile(path, {}, *files, messages);
    if (result.output.empty() || result.placements != expectedPlacements || result.models != expectedModels ||
        messages.count != 0)
        std::abort();
}

std::string writeScenery(const Scratch& scratch) {
    const std::string path = scratch.file("scenery.xml");
    std::ofstream(toPath(path), std::ios::binary) << bench::sceneryOf(placements);
    return path;
}

void compileAgainstParse(benchmark::State& state) {
    const Scratch scratch;
    const std::string path = writeScenery(scratch);
    const std::string bytes = bench::sceneryOf(placements);
    bench::compare(
        state, 3, [&] { compileOnce(path, placements, 0); },
        [&] {
            pugi::xml_document document;
            benchmark::DoNotOptimize(document.load_buffer(bytes.data(), bytes.size()));
        });
}

// Megabytes of this process, by the name of their line in its status file.
double megabytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word && word != name + ":")
        ;
    double kilobytes = 0;
    status >> kilobytes;
    return kilobytes / 1024;
}

// The most memory that `body` adds to what the process has.
template <class Body>
double peakOf(const Body& body) {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    std::ofstream("/proc/self/clear_refs") << 5; // the peak starts anew
    const double before = megabytes("VmRSS");
    body();
    return megabytes("VmHWM") - before;
}

void memoryOfPlacements(benchmark::State& state) {
    const Scratch scratch;
    const std::string path = writeScenery(scratch);
    double peak = 0;
    for (auto unused : state) {
        (void)unused;
        peak = std::max(peak, peakOf([&] { compileOnce(path, placements, 0); }));
    }
    state.counters["peak_MB"] = peak;
    state.counters["limit_MB"] = 200;
}

// Files without content take no room on the disk; the output does.
void memoryOfModels(benchmark::State& state) {
    constexpr int models = 8;
    constexpr std::uintmax_t size = std::uintmax_t{1} << 28;
    const Scratch scratch;
    std::ofstream xml(toPath(scratch.file("models.xml")));
    xml << "<FSData version=\"9.0\">";
    for (int i = 0; i < models; ++i) {
        const std::string name = "model" + std::to_string(i) + ".mdl";
        std::ofstream(toPath(scratch.file(name.c_str())), std::ios::binary) << "RIFF....MDL9";
        std::filesystem::resize_file(toPath(scratch.file(name.c_str())), size - 1);
        xml << "<ModelData name=\"" << std::string(31, '0') << i << "\" sourceFile=\"" << name << "\"/>";
    }
    xml << "</FSData>";
    xml.close();
    double peak = 0;
    for (auto unused : state) {
        (void)unused;
        peak = std::max(peak, peakOf([&] { compileOnce(scratch.file("models.xml"), 0, models); }));
    }
    state.counters["peak_MB"] = peak;
    state.counters["limit_MB"] = 200;
}

BENCHMARK(compileAgainstParse)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(memoryOfPlacements)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(memoryOfModels)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
