// The property sheet against its limits, with sheet, list and catalogue on the screen:
// - one edit with its undo snapshot blocks at most twice as long as serialising the document and writing the
//   bytes (100,000 placements), and at most 2 ms (1,000 placements);
// - selecting a row, with everything that follows the selection and the repaint: at most 5 ms (100,000).

#include "catalogue/frmObjTree.h"
#include "comparison.h"
#include "document/frmXMLList.h"
#include "properties/frmObjProp.h"
#include "properties/open_sheet.h"
#include "scenery_generator.h"

#include <QApplication>

#include <fstream>

namespace {

using namespace quillset;

/// The catalogue of 20,000 library objects, as the object list knows it.
class TreeLink : public PlacementCatalogue {
public:
    TreeLink(CatalogueTree& tree, const test::TemporaryFolder& folder)
        : tree_(tree) {
        std::string text = "<library>";
        for (int i = 0; i < 20'000; ++i)
            text += "<LibraryObject><name>Object " + std::to_string(i) + "</name><guid>" + std::to_string(i) +
                    "</guid></LibraryObject>";
        CatalogueSources sources;
        sources.genericFile = folder.write("generic.xml", text + "</library>");
        tree_.rescanObjTree(sources);
    }
    [[nodiscard]] std::string getObjectName(const std::string& key) const override {
        return tree_.getObjectName(key);
    }
    void setObjTreeItem(const std::string& key) override { tree_.setObjTreeItem(key); }
    [[nodiscard]] std::string selectedText() const override { return {}; }

private:
    CatalogueTree& tree_;
};

struct Workplace {
    explicit Workplace(std::size_t placements) {
        document.load(folder.write("scenery.xml", bench::sceneryOf(placements)));
        // Every library object gets another key, so that the tree has to move for each row.
        for (std::size_t i = 0; i < placements; ++i)
            updatePlacementKey(document, i, std::to_string(i * 7919 % 20'000));
        list.showPropertiesIn(&editor);
        list.updateXMLList();
        for (QWidget* window : std::initializer_list<QWidget*>{&rows, &properties, &objects}) {
            window->resize(400, 600);
            window->show();
        }
        QApplication::processEvents();
    }

    test::TemporaryFolder folder;
    test::FixedClock clock;
    test::ScriptedDialogs dialogs;
    ErrorFunctions errors{dialogs, [] {}, [] { std::abort(); }};
    CatalogueTree tree{dialogs, errors};
    TreeLink catalogue{tree, folder};
    ActivityLine activity{clock};
    SceneryDocument document;
    UndoJournal journal{document, folder.path()};
    ObjectList list{document, journal, catalogue, activity, errors, [] { return 0.0; }};
    DocumentTarget target{document, list};
    PropertyEditor editor{target, document, {}, errors};
    frmXMLList rows{list, errors};
    frmObjProp properties{editor, errors, [] { return 0; }};
    frmObjTree objects{tree, errors, [] { return ListState(); }};
};

/// Types another scale into a placement and commits it.
class Typist {
public:
    explicit Typist(Workplace& place)
        : place_(place) {
        place.list.click(static_cast<int>(place.document.placementCount() / 2));
    }
    void edit() {
        constexpr int latitude = 1;
        place_.editor.beginEdit(latitude);
        place_.editor.textEdited(std::to_string(++number_));
        place_.editor.setNewData();
        place_.journal.reset();
    }

private:
    Workplace& place_;
    int number_ = 0;
};

void editAgainstSerialiseAndWrite(benchmark::State& state) {
    Workplace place(100'000);
    Typist typist(place);
    const std::string path = place.folder.file("peer.xml");
    bench::compare(
        state, 2, [&] { typist.edit(); },
        [&] {
            const std::string bytes = place.document.serialise();
            std::ofstream(path, std::ios::binary) << bytes;
        },
        bench::Measure::elapsedTime);
}

void editOfSmallDocument(benchmark::State& state) {
    Workplace place(1'000);
    Typist typist(place);
    bench::timeSteps(state, 2, [&] { typist.edit(); });
}

void selectRow(benchmark::State& state) {
    Workplace place(100'000);
    int row = 0;
    bench::timeSteps(state, 5, [&] {
        row = (row + 61'803) % 100'000;
        place.list.click(row + 1);
        QApplication::processEvents();
    });
}

} // namespace

BENCHMARK(editAgainstSerialiseAndWrite)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(editOfSmallDocument)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(selectRow)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);

int main(int count, char** values) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, values);
    benchmark::Initialize(&count, values);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
