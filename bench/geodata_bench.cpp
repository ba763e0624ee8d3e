// The exchange with programs for geographic data: export against ogr2ogr, import against the writing of its
// undo steps alone, the conversion against its bare arithmetic.
#include "base/activity_line.h"
#include "base/atomic_file.h"
#include "base/error_functions.h"
#include "base/paths.h"
#include "comparison.h"
#include "document/new_placement.h"
#include "document/object_list.h"
#include "document/undo_journal.h"
#include "geodata/rd_coordinates.h"
#include "geodata/shapefile_export.h"
#include "nobody.h"
#include "rd_peer.h"
#include "scenery_generator.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

using namespace quillset;
using bench::compare;
using bench::Measure;
using bench::NoClock;
using bench::NoDialogs;

namespace {

/// Folders of its own, all removed at the end: where many files were deleted just before, file systems take
/// much longer to create new ones.
class ScratchFolders {
public:
    ScratchFolders() { std::filesystem::remove_all(path_); }
    ~ScratchFolders() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolders(const ScratchFolders&) = delete;
    ScratchFolders& operator=(const ScratchFolders&) = delete;

    /// Makes a new one and gives its path.
    std::string next() {
        const std::filesystem::path folder = path_ / std::to_string(++count_);
        std::filesystem::create_directories(folder);
        return toText(folder);
    }

private:
    std::filesystem::path path_ = std::filesystem::temp_directory_path() / "quillset-geodata-bench";
    int count_ = 0;
};

ScratchFolders& scratch() {
    static ScratchFolders folders;
    return folders;
}

void write(const std::string& path, std::initializer_list<std::string_view> parts) {
    std::ofstream out(toPath(path), std::ios::binary);
    for (const std::string_view part : parts)
        out.write(part.data(), static_cast<std::streamsize>(part.size()));
}

void exportAgainstOgr2ogr(benchmark::State& state) {
    const std::string folder = scratch().next();
    write(joinPath(folder, "s.xml"), {bench::sceneryOf(100'000)});
    SceneryDocument document;
    if (!document.load(joinPath(folder, "s.xml")).ok)
        std::abort();
    const auto files = systemFileOperations();
    const auto names = [](const std::string& key) { return key + ".mdl"; };
    const std::string path = joinPath(folder, "ours.shp");
    exportShapefile(document, names, *files, path); // what the peer reads
    const std::string command =
        std::string(QUILLSET_OGR2OGR) + " -overwrite " + joinPath(folder, "theirs.shp") + " " + path;
    compare(
        state, 0.5, [&] { exportShapefile(document, names, *files, path); },
        [&] {
            if (std::system(command.c_str()) != 0)
                std::abort();
        },
        Measure::elapsedTime);
}

class NoNames : public PlacementCatalogue {
public:
    [[nodiscard]] std::string getObjectName(const std::string& key) const override { return key; }
    void setObjTreeItem(const std::string&) override {}
    [[nodiscard]] std::string selectedText() const override { return {}; }
};

/// A document that points are imported into, with all that belongs to it.
struct Session {
    explicit Session(const std::string& folder)
        : journal(document, folder) {
        document.create("x.xml");
        addPlacement(document, {"K", 52, 5, 0}, std::nullopt);
    }

    SceneryDocument document;
    UndoJournal journal;
    NoNames catalogue;
    NoClock clock;
    ActivityLine activity{clock};
    NoDialogs dialogs;
    ErrorFunctions errors{dialogs, [] {}, [] { std::abort(); }};
    ObjectList list{document, journal, catalogue, activity, errors, [] { return 0.0; }};
};

std::vector<NewPlacement> pointsToImport(std::size_t count) {
    std::vector<NewPlacement> points;
    for (std::size_t i = 0; i < count; ++i) {
        const double x = 120'000 + 10.25 * static_cast<double>(i);
        points.push_back(
            {"5B0C8A4B4C1C4F5C9D2F0E4F6B5A3C21", rdToWgs84Lat(x, 480'000), rdToWgs84Lon(x, 480'000), 0});
    }
    return points;
}

void importAgainstItsSnapshots(benchmark::State& state) {
    const std::vector<NewPlacement> points = pointsToImport(static_cast<std::size_t>(state.range(0)));
    const auto goOn = [](std::size_t) { return true; };
    std::vector<std::size_t> sizes;
    std::string whole;
    std::string tail;
    {
        Session session({});
        GrowingXml text = session.document.growingSerialisation();
        for (const NewPlacement& point : points) {
            sizes.push_back(text.head().size());
            const std::size_t index = addPlacement(session.document, point, std::nullopt);
            text.append(session.document.placement(index).previous_sibling());
        }
        whole = text.head();
        tail = text.tail();
    }
    compare(
        state, 1.5,
        [&] {
            Session session(scratch().next());
            if (session.list.addNewObjects(points, goOn) != points.size())
                std::abort();
        },
        [&] {
            const std::string folder = scratch().next();
            for (std::size_t i = 0; i < sizes.size(); ++i)
                write(joinPath(folder, "plain" + std::to_string(i)),
                      {std::string_view(whole).substr(0, sizes[i]), tail});
        });
}

void convertAgainstBareArithmetic(benchmark::State& state) {
    constexpr std::size_t count = 1'000'000;
    std::vector<double> x;
    std::vector<double> y;
    for (std::size_t i = 0; i < count; ++i) {
        x.push_back(static_cast<double>(i % 1000) * 280.5);
        y.push_back(300'000 + static_cast<double>(i / 1000) * 320.25);
    }
    std::vector<double> lat(count);
    std::vector<double> lon(count);
    compare(
        state, 2,
        [&] {
            for (std::size_t i = 0; i < count; ++i) {
                lat[i] = rdToWgs84Lat(x[i], y[i]);
                lon[i] = rdToWgs84Lon(x[i], y[i]);
            }
            benchmark::DoNotOptimize(lat.data());
        },
        [&] {
            convertRdTable(x.data(), y.data(), lat.data(), lon.data(), count);
            benchmark::DoNotOptimize(lat.data());
        });
}

BENCHMARK(exportAgainstOgr2ogr)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(importAgainstItsSnapshots)
    ->Arg(1000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);
BENCHMARK(importAgainstItsSnapshots)
    ->Arg(4000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1); // writes some 6 GB
BENCHMARK(convertAgainstBareArithmetic)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);

} // namespace

BENCHMARK_MAIN();
