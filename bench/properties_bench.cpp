// The property sheet against its limits, with sheet, list and catalogue on the screen:
// - one edit with its undo snapshot blocks at most twice as long as serialising the document and writing the
//   bytes (100,000 placements), and at most 2 ms (1,000 placements);
// - selecting a row, with everything that follows the selection and the repaint: at most 5 ms (100,000).

#include "base/paths.h"
#include "catalogue/frmObjTree.h"
#include "comparison.h"
#include "document/frmXMLList.h"
#include "preview/frmPreview.h"
#include "preview/preview_context.h"
#include "properties/frmObjProp.h"
#include "properties/open_sheet.h"
#include "scenery_generator.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>

#include <chrono>
#include <cstdlib>
#include <filesystem>
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

/// The preview beside the list, as the editor connects it.
class PreviewLink : public PreviewContext {
public:
    PreviewLink(const SceneryDocument& document, const ObjectList& list, const CatalogueTree& tree)
        : document_(document)
        , list_(list)
        , tree_(tree) {}
    [[nodiscard]] bool documentOpen() const override { return document_.isOpen(); }
    [[nodiscard]] std::string currentKind() const override { return list_.row(list_.selectedRow()).name; }
    [[nodiscard]] bool selectedIsGenBuild() const override { return tree_.selectedIsGenBuild(); }
    [[nodiscard]] pugi::xml_node currentBuilding() const override { return {}; }
    [[nodiscard]] int getFormDockStatus(std::string_view) const override { return 0; }

private:
    const SceneryDocument& document_;
    const ObjectList& list_;
    const CatalogueTree& tree_;
};

/// A picture for each tenth of the 20,000 objects, most of them not in the format that is looked for first.
std::string writePictures(const test::TemporaryFolder& folder) {
    QImage picture(192, 192, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "JPG");
    for (int i = 0; i < 20'000; i += 10)
        folder.write("pics/" + std::to_string(i) + ".jpg", bytes.toStdString());
    // Stored in an earlier session: a folder that has just changed is listed again at each look.
    const std::filesystem::path pictures = toPath(folder.file("pics"));
    std::filesystem::last_write_time(pictures,
                                     std::filesystem::last_write_time(pictures) - std::chrono::hours(1));
    return folder.path();
}

struct Workplace {
    explicit Workplace(std::size_t placements) {
        document.load(folder.write("scenery.xml", bench::sceneryOf(placements)));
        // Every library object gets another key, so that the tree has to move for each row.
        for (std::size_t i = 0; i < placements; ++i)
            updatePlacementKey(document, i, std::to_string(i * 7919 % 20'000));
        list.showPropertiesIn(&editor);
        list.updateXMLList();
        pictureFollows = tree.selectionChanged.connect([this] {
            if (const auto item = tree.selected())
                preview.loadPreviewPicture(item->key);
        });
        for (QWidget* window : std::initializer_list<QWidget*>{&rows, &properties, &objects, &preview}) {
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
    PreviewLink previewLink{document, list, tree};
    frmPreview preview{previewLink, errors, {writePictures(folder)}};
    Connection pictureFollows;
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
