// The catalogue's speed with 50,000 objects in three libraries. Run offscreen (QT_QPA_PLATFORM=offscreen).
//
// Limits, each against a peer measured in the same run:
// - Rescan at most 3 x ReadFiles, the reading of the same files without the catalogue;
// - GetObjectName does not grow with the catalogue: 50,000 objects at most 2 x 500 objects, what the caches
// cost;
// - RegisterFolder: 2,000 models in a document of 100,000 placements, at most 1 s, one change of the tree;
// - ListEffects: 10,000 files at most 3 x WalkFolder, the bare walk over the same folder;
// - Search, one more letter over 50,000 objects, and ShowWindow, the filled window: at most 1 x ReadFiles;
// - SearchInWindow, when every object matches, with the drawing: at most 5 x ReadFiles.

#include "base/paths.h"
#include "base/xml_file.h"
#include "catalogue/catalogue_filter.h"
#include "catalogue/folder_listing.h"
#include "catalogue/frmObjTree.h"
#include "catalogue/guid_text.h"
#include "catalogue/model_registration.h"
#include "document/local_models.h"
#include "document/scenery_document.h"
#include "document/undo_journal.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillset {
namespace {

constexpr std::uint32_t manyObjects = 50'000;

std::string key(std::uint32_t number) {
    return guidText({number * 2654435761U, 0, 0, {1, 2, 3, 4, 5, 6, 7, 8}});
}

std::string name(std::uint32_t number) {
    return "ldm_building_" + std::to_string(number);
}

// Half of the objects in the default library, a quarter each in a user and in a Rwy12 library.
struct Files {
    explicit Files(std::uint32_t objects) {
        std::string generic = "<ObjectLibrary>\n";
        std::string user = "<FSData>\n";
        std::string rwy12 = "<objectsLibrary>\n";
        for (std::uint32_t i = 0; i < objects; ++i) {
            if (i % 2 == 0)
                generic += "<LibraryObject><name>" + name(i) + "</name><guid>" + key(i) +
                           "</guid></LibraryObject>\n";
            else if (i % 4 == 1)
                user +=
                    "<ModelData name=\"" + key(i) + "\" sourceFile=\"c:\\models\\" + name(i) + ".mdl\"/>\n";
            else
                rwy12 += "<obj name=\"buildings\\" + name(i) + "\" guid=\"" + key(i) + "\"/>\n";
        }
        folder.write("effects/fx_smoke.fx", "");
        sources.genericFile = folder.write("generic.xml", generic + "</ObjectLibrary>\n");
        sources.userLibraries = {folder.write("user.xml", user + "</FSData>\n")};
        sources.rwy12Libraries = {folder.write("rwy12.xml", rwy12 + "</objectsLibrary>\n")};
        sources.simulatorFolder = folder.path();
    }

    test::TemporaryFolder folder;
    CatalogueSources sources;
};

struct Catalogue {
    explicit Catalogue(std::uint32_t objects)
        : files(objects) {
        tree.rescanObjTree(files.sources);
        if (!dialogs.messages.empty() || tree.nodes().size() < objects)
            throw std::runtime_error("the sample libraries are not read");
    }
    Files files;
    test::ScriptedDialogs dialogs;
    ErrorFunctions errors{dialogs, [] {}, [] {}};
    CatalogueTree tree{dialogs, errors};
};

void BM_ReadFiles(benchmark::State& state) {
    const Files files(manyObjects);
    for (auto _ : state) {
        for (const std::string& path : {files.sources.genericFile, files.sources.userLibraries.front(),
                                        files.sources.rwy12Libraries.front()}) {
            pugi::xml_document document;
            if (!readXmlFile(path, document).ok)
                state.SkipWithError("not read");
        }
    }
}

void BM_Rescan(benchmark::State& state) {
    Catalogue catalogue(manyObjects);
    for (auto _ : state)
        catalogue.tree.rescanObjTree(catalogue.files.sources);
    state.counters["nodes"] = static_cast<double>(catalogue.tree.nodes().size());
}

std::vector<std::string> keysInRandomOrder() {
    std::vector<std::string> keys;
    for (std::uint32_t i = 0; i < manyObjects; ++i)
        keys.push_back(key((i * 7919) % manyObjects));
    return keys;
}

void BM_GetObjectName(benchmark::State& state) {
    const Catalogue catalogue(manyObjects);
    const std::vector<std::string> keys = keysInRandomOrder();
    for (auto _ : state)
        for (const std::string& each : keys)
            benchmark::DoNotOptimize(catalogue.tree.getObjectName(each));
}

void BM_StandardMap(benchmark::State& state) {
    std::unordered_map<std::string, std::string> names;
    for (std::uint32_t i = 0; i < manyObjects; ++i)
        names.emplace(key(i), name(i) + ".mdl");
    const std::vector<std::string> keys = keysInRandomOrder();
    for (auto _ : state) {
        for (const std::string& each : keys) {
            const auto found = names.find(each);
            benchmark::DoNotOptimize(found == names.end() ? std::string("!unknown!") : found->second);
        }
    }
}

void BM_Search(benchmark::State& state) {
    const Catalogue catalogue(manyObjects);
    CatalogueFilter filter;
    for (auto _ : state) {
        filter.apply(catalogue.tree.nodes(), "building 12", std::nullopt);
        benchmark::DoNotOptimize(filter.firstMatch());
    }
}

void BM_SearchInWindow(benchmark::State& state) {
    Catalogue catalogue(manyObjects);
    frmObjTree window(catalogue.tree, catalogue.errors, [] { return ListState(); });
    window.show();
    QApplication::processEvents();
    auto* const line = window.findChild<QLineEdit*>(QStringLiteral("txt_search"));
    bool longer = false;
    for (auto _ : state) {
        longer = !longer;
        line->setText(longer ? QStringLiteral("building 1") : QStringLiteral("building"));
        window.grab();
    }
}

void BM_ShowWindow(benchmark::State& state) {
    Catalogue catalogue(manyObjects);
    for (auto _ : state) {
        frmObjTree window(catalogue.tree, catalogue.errors, [] { return ListState(); });
        catalogue.tree.setObjTreeItem(key(manyObjects - 2));
        window.show();
        window.grab();
    }
}

void BM_ListEffects(benchmark::State& state) {
    const test::TemporaryFolder folder;
    for (int i = 0; i < 10'000; ++i)
        folder.write("fx_Effect" + std::to_string(i) + ".fx", "");
    for (auto _ : state)
        if (filesEndingIn(folder.path(), "fx").usable.size() != 10'000)
            state.SkipWithError("files are missing");
}

void BM_WalkFolder(benchmark::State& state) {
    const test::TemporaryFolder folder;
    for (int i = 0; i < 10'000; ++i)
        folder.write("fx_Effect" + std::to_string(i) + ".fx", "");
    for (auto _ : state)
        for (const auto& entry : std::filesystem::directory_iterator(toPath(folder.path())))
            benchmark::DoNotOptimize(entry.path().filename().native());
}

// The registration with a real document and a real undo snapshot.
struct Registration : CatalogueConfiguration, ModelStore {
    Registration() {
        std::string text = "<FSData version=\"9.0\">\n";
        for (int i = 0; i < 100'000; ++i)
            text +=
                "<!--Object " + std::to_string(i) +
                "-->\n<SceneryObject lat=\"52.1\" lon=\"5.2\" alt=\"0M\" pitch=\"0.0\" bank=\"0.0\" "
                "heading=\"90\" altitudeIsAgl=\"TRUE\" imageComplexity=\"NORMAL\"><LibraryObject name=\"" +
                key(7) + "\" scale=\"1.0\"/></SceneryObject>\n";
        if (!document.load(catalogue.files.folder.write("scenery.xml", text + "</FSData>\n")).ok)
            throw std::runtime_error("the sample document is not read");
        for (int i = 0; i < 2'000; ++i)
            catalogue.files.folder.write("models/model" + std::to_string(i) + ".mdl", "");
    }

    std::string xmlPath() const override { return {}; }
    std::string modelPath() const override { return {}; }
    void setModelPath(const std::string&) override {}
    void appendLibrary(LibraryKind, const std::string&) override {}
    CatalogueSources sources() const override { return catalogue.files.sources; }
    void recordSnapshot(ModelEdit) override { journal.record(UndoKind::addModel); }
    std::vector<CatalogueModel> models() const override {
        std::vector<CatalogueModel> models;
        for (const LocalModel& model : localModels(document))
            models.push_back({model.name, model.sourceFile});
        return models;
    }
    void add(std::span<const CatalogueModel> models) override {
        std::vector<LocalModel> declared;
        for (const CatalogueModel& model : models)
            declared.push_back({model.name, model.sourceFile});
        addLocalModels(document, declared);
    }
    std::vector<std::string> remove(const std::string&) override { return {}; }

    Catalogue catalogue{manyObjects};
    SceneryDocument document;
    UndoJournal journal{document, catalogue.files.folder.path()};
};

struct NoClock : Clock {
    std::string timeText() const override { return {}; }
};

void BM_RegisterFolder(benchmark::State& state) {
    Registration with;
    Catalogue& catalogue = with.catalogue;
    frmObjTree window(catalogue.tree, catalogue.errors, [] { return ListState(); });
    window.show();
    QApplication::processEvents();
    const NoClock clock;
    ActivityLine activity(clock);
    const std::unique_ptr<GuidMaker> guids = systemGuidMaker();
    ModelRegistration registration(
        {catalogue.dialogs, catalogue.errors, activity, *guids, with, with, catalogue.tree});
    int changesOfTree = 0;
    const Connection added = catalogue.tree.added.connect([&](const NodesAdded&) { ++changesOfTree; });
    const Connection rebuilt = catalogue.tree.rebuilt.connect([&] { ++changesOfTree; });
    double seconds = 0;
    for (auto _ : state) {
        changesOfTree = 0;
        catalogue.dialogs.paths = {with.catalogue.files.folder.file("models")};
        const auto start = std::chrono::steady_clock::now();
        if (!registration.addModelFolder())
            state.SkipWithError("nothing was registered");
        window.grab();
        seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        state.SetIterationTime(seconds);
        state.counters["changes_of_tree"] = changesOfTree;
        with.journal.undo();
        catalogue.tree.rescanObjTree(with.sources());
    }
    state.counters["of_limit"] = seconds / 1.0;
}

BENCHMARK(BM_ReadFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Rescan)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StandardMap)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetObjectName)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Search)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SearchInWindow)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShowWindow)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WalkFolder)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ListEffects)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RegisterFolder)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

} // namespace
} // namespace quillset

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
