// The check of a scenery file with 100,000 placements, all of them unknown objects to it: the longest list.
#include "base/xml_file.h"
#include "comparison.h"
#include "document/placement_ranges.h"
#include "document/scenery_check.h"
#include "document/scenery_document.h"
#include "scenery_generator.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>

using namespace quillset;

namespace {

void checkAgainstReading(benchmark::State& state) {
    const std::string bytes = bench::sceneryOf(100'000);
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "quillset-check-bench.xml";
    std::ofstream(path, std::ios::binary) << bytes;
    SceneryDocument document;
    if (!document.load(path.string()).ok)
        state.SkipWithError("the file cannot be read");
    const SceneryKnowledge nothing{[](std::string_view) { return false; },
                                   [](std::string_view) { return false; },
                                   [](const std::string&) { return false; }};
    bench::compare(
        state, 5, [&] { benchmark::DoNotOptimize(checkScenery(document, PlacementRanges(bytes), nothing)); },
        [&] {
            pugi::xml_document read;
            benchmark::DoNotOptimize(readXmlFile(path.string(), read).ok);
        });
    std::filesystem::remove(path);
}
BENCHMARK(checkAgainstReading)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);

} // namespace

BENCHMARK_MAIN();
