// The scenery document and its object list at 100,000 placements: opening, saving, each edit, snapshots and
// the selection of a row. Each benchmark prints what it measured and the limit that it should keep.
#include "base/activity_line.h"
#include "base/atomic_file.h"
#include "base/error_functions.h"
#include "base/paths.h"
#include "comparison.h"
#include "document/new_placement.h"
#include "document/object_list.h"
#include "document/placement_move.h"
#include "document/placement_removal.h"
#include "document/undo_journal.h"
#include "nobody.h"
#include "scenery_generator.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unordered_map>
#include <vector>

using namespace quillset;
using bench::compare;
using bench::Measure;
using bench::NoClock;
using bench::NoDialogs;
using bench::timeSteps;

namespace {

constexpr std::size_t placements = 100'000;

const std::string& scenery() {
    static const std::string bytes = bench::sceneryOf(placements);
    return bytes;
}

/// A folder of its own with the file in it, removed at the end.
class ScratchFolder {
public:
    ScratchFolder() {
        std::filesystem::create_directories(path_);
        write(file("scenery.xml"), scenery());
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    [[nodiscard]] std::string path() const { return toText(path_); }
    [[nodiscard]] std::string file(const char* name) const { return toText(path_ / name); }
    static void write(const std::string& path, std::string_view bytes) {
        std::ofstream(toPath(path), std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

private:
    std::filesystem::path path_ = std::filesystem::temp_directory_path() / "quillset-document-bench";
};

class ManyNames : public PlacementCatalogue {
public:
    [[nodiscard]] std::string getObjectName(const std::string& key) const override {
        const auto found = names_.find(key);
        return found == names_.end() ? "!unknown!" : found->second;
    }
    void setObjTreeItem(const std::string& key) override { selected_ = key; }
    [[nodiscard]] std::string selectedText() const override { return selected_; }

private:
    std::unordered_map<std::string, std::string> names_;
    std::string selected_;
};

class StoringSheet : public PropertySheet {
public:
    void clearPropList(int listIndex) override {
        index_ = listIndex;
        rows_.clear();
    }
    void addPropList(const std::string& name, const std::string& value) override {
        rows_.emplace_back(name, value);
    }
    [[nodiscard]] int getXMLListCount() const override { return index_; }
    void commitOpenEditor() override {}

private:
    int index_ = -1;
    std::vector<std::pair<std::string, std::string>> rows_;
};

/// A document of 100,000 placements with all that belongs to it.
struct Session {
    Session() { list.showPropertiesIn(&sheet); }
    void open() {
        if (!document.load(folder.file("scenery.xml")).ok)
            std::abort();
        list.fillXMLList();
        list.click(1);
    }

    ScratchFolder folder;
    SceneryDocument document;
    UndoJournal journal{document, folder.path()};
    ManyNames catalogue;
    NoClock clock;
    ActivityLine activity{clock};
    NoDialogs dialogs;
    ErrorFunctions errors{dialogs, [] {}, [] { std::abort(); }};
    ObjectList list{document, journal, catalogue, activity, errors, [] { return 0.0; }};
    StoringSheet sheet;
};

void openToFirstRow(benchmark::State& state) {
    Session session;
    compare(
        state, 4, [&] { session.open(); },
        [] {
            pugi::xml_document document;
            const auto result =
                document.load_buffer(scenery().data(), scenery().size(),
                                     pugi::parse_default | pugi::parse_declaration | pugi::parse_pi |
                                         pugi::parse_comments | pugi::parse_doctype);
            benchmark::DoNotOptimize(result);
        });
}

void saveAgainstFlush(benchmark::State& state) {
    Session session;
    session.open();
    const auto files = systemFileOperations();
    const std::string bytes = session.document.fileBytes();
    const std::string plain = session.folder.file("plain.xml");
    compare(
        state, 3, [&] { session.document.save(*files, session.folder.file("saved.xml")); },
        [&] {
            files->remove(plain);
            files->writeAndFlush(plain, wholeContent(bytes), plain);
        },
        Measure::elapsedTime);
}

void snapshotAgainstSerialise(benchmark::State& state) {
    Session session;
    session.open();
    const std::string plain = session.folder.file("plain.xml");
    compare(
        state, 2,
        [&] {
            session.journal.reset();
            session.journal.record(UndoKind::changeParameter);
        },
        [&] { ScratchFolder::write(plain, session.document.serialise()); }, Measure::elapsedTime);
}

/// A place somewhere in the list, another one each time.
std::size_t someIndex(std::size_t& last) {
    last = (last + 61'803) % placements;
    return last;
}

void add(benchmark::State& state) {
    Session session;
    session.open();
    std::size_t at = 0;
    timeSteps(state, 1, [&] { addPlacement(session.document, {"K", 52, 5, 0}, someIndex(at)); });
}

void remove(benchmark::State& state) {
    Session session;
    session.open();
    std::size_t at = 0;
    timeSteps(state, 1,
              [&] { removePlacement(session.document, someIndex(at) % session.document.placementCount()); });
}

void moveUp(benchmark::State& state) {
    Session session;
    session.open();
    std::size_t at = 0;
    timeSteps(state, 1, [&] {
        session.list.selectRow(static_cast<int>(someIndex(at)) + 1);
        session.list.moveUp();
    });
}

void moveDown(benchmark::State& state) {
    Session session;
    session.open();
    std::size_t at = 0;
    timeSteps(state, 1, [&] {
        session.list.selectRow(static_cast<int>(someIndex(at)) + 1);
        session.list.moveDown();
    });
}

void updateKey(benchmark::State& state) {
    Session session;
    session.open();
    std::size_t at = 0;
    timeSteps(state, 1, [&] { updatePlacementKey(session.document, someIndex(at), "K"); });
}

void writeLatitude(benchmark::State& state) {
    Session session;
    session.open();
    std::size_t at = 0;
    const PropertyEntry latitude{"lat", "", PropertyLevel::placement, 0};
    timeSteps(state, 1, [&] { writeProperty(session.document, someIndex(at), latitude, "52.5"); });
}

void selectRow(benchmark::State& state) {
    Session session;
    session.open();
    std::size_t at = 0;
    timeSteps(state, 5, [&] { session.list.click(static_cast<int>(someIndex(at)) + 1); });
}

BENCHMARK(openToFirstRow)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(saveAgainstFlush)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(snapshotAgainstSerialise)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(add)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(500);
BENCHMARK(remove)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(500);
BENCHMARK(moveUp)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(500);
BENCHMARK(moveDown)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(500);
BENCHMARK(updateKey)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(500);
BENCHMARK(writeLatitude)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(500);
BENCHMARK(selectRow)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(500);

} // namespace

BENCHMARK_MAIN();
