#include "properties/property_editor.h"

#include "base/error_functions.h"
#include "base/runtime_error.h"
#include "document/scenery_document.h"
#include "support/scripted_dialogs.h"

#include <gtest/gtest.h>

namespace quillset {
namespace {

using Rows = std::vector<PropertyRow>;

/// Stores texts by placement and row, as "2/1=text"; can refuse.
class RecordingTarget : public PropertyTarget {
public:
    std::optional<std::string> setProperty(int listIndex, int row, const std::string& text) override {
        written.push_back(std::to_string(listIndex) + "/" + std::to_string(row) + "=" + text);
        if (duringWrite)
            duringWrite();
        return refuses ? std::nullopt : std::optional(text);
    }
    void switchRoofType() override { written.push_back("roof"); }
    std::vector<std::string> written;
    std::function<void()> duringWrite;
    bool refuses = false;
};

/// The editor control of a window, reduced to what the sheet can notice of it.
class EditorView : public SheetView {
public:
    void rowsCleared() override { rows.clear(); }
    void rowAdded(const PropertyRow& row, bool isCurrent) override {
        rows.push_back(row);
        if (isCurrent)
            current = static_cast<int>(rows.size()) - 1;
    }
    void valueChanged(int row, const std::string& value) override {
        rows.at(static_cast<std::size_t>(row)).value = value;
    }
    void currentRowChanged(int row, std::optional<WalkDirection>) override { current = row; }
    void editorOpened(const EditSession& session) override { text = session.text; }
    void editorTextReplaced(const std::string& replaced) override {
        text = replaced;
        if (typed)
            typed(replaced); // a text box tells of this change too
    }
    void settleEditor() override {
        if (settle)
            settle();
    }
    void editorClosed() override {
        text.reset();
        if (focusLost)
            focusLost(); // hiding a control takes its focus
    }
    Rows rows;
    int current = -1;
    std::optional<std::string> text; ///< of the open editor
    std::function<void(const std::string&)> typed;
    std::function<void()> settle;
    std::function<void()> focusLost;
};

class PropertyEditorTest : public testing::Test {
protected:
    PropertyEditorTest() {
        view.typed = [this](const std::string& text) { editor.textEdited(text); };
        view.focusLost = [this] { editor.setNewData(); };
        editor.showIn(&view);
        fill(2, building);
    }
    void fill(int listIndex, const Rows& rows) {
        editor.clearPropList(listIndex);
        for (const PropertyRow& row : rows)
            editor.addPropList(row.name, row.value);
    }
    void type(int row, const std::string& text) {
        editor.beginEdit(row);
        editor.textEdited(text);
    }
    [[nodiscard]] std::vector<std::string> written() { return std::exchange(target.written, {}); }

    const Rows building{{"comment", "Object 3"}, {"lat", "52"},    {"lon", "5"},
                        {"heading", "90"},       {"scale", "1.0"}, {"roofTexture", "25"},
                        {"roofType", "FLAT"},    {"sizeX", "40"}};
    enum Row { comment, lat, lon, heading, scale, roofTexture, roofType, sizeX };

    RecordingTarget target;
    SceneryDocument document;
    test::ScriptedDialogs dialogs;
    bool ended = false;
    ErrorFunctions errors{dialogs, [] {}, [this] { ended = true; }};
    std::optional<double> simulated = 52.25;
    std::vector<double> sent;
    PropertyEditor editor{target,
                          document,
                          {[this](Coordinate) { return simulated; },
                           [this](Coordinate, double degrees) {
                               if (degrees >= 180)
                                   throw RuntimeError(ErrorNumber::overflow);
                               sent.push_back(degrees);
                           }},
                          errors};
    EditorView view;
};

using Written = std::vector<std::string>;
constexpr int enter = 13;
constexpr int tab = 9;
constexpr int escape = 27;

TEST_F(PropertyEditorTest, endsOfAnEdit) {
    struct Case {
        const char* name;
        std::function<void()> end;
        Written written;
        std::string cell;
    };
    const std::vector<Case> cases{
        {"Enter", [&] { editor.processKeyPress(enter, false); }, {"2/4=2.5"}, "2.5"},
        {"focus lost", [&] { editor.setNewData(); }, {"2/4=2.5"}, "2.5"},
        {"another row", [&] { editor.setCurrentRow(lat); }, {"2/4=2.5"}, "2.5"},
        {"another editor", [&] { editor.beginEdit(lat); }, {"2/4=2.5"}, "2.5"},
        {"a document command", [&] { editor.commitOpenEditor(); }, {"2/4=2.5"}, "2.5"},
        {"Escape", [&] { editor.processKeyPress(escape, false); }, {}, "1.0"},
        {"refill",
         [&] {
             editor.clearPropList(3);
             fill(2, building);
         },
         {},
         "1.0"},
    };
    for (const Case& c : cases) {
        fill(2, building);
        type(scale, "2.5");
        c.end();
        EXPECT_EQ(editor.isEditing(), std::string(c.name) == "another editor") << c.name;
        editor.setNewData(); // whatever comes after the end
        EXPECT_EQ(written(), c.written) << c.name;
        EXPECT_EQ(editor.rows()[scale].value, c.cell) << c.name;
        EXPECT_EQ(view.rows, editor.rows()) << c.name;
    }
}

TEST_F(PropertyEditorTest, aDocumentThatChangesUnderTheEditorDropsTheEdit) {
    using Kind = DocumentChange::Kind;
    struct Case {
        const char* name;
        DocumentChange change;
        bool dropped;
    };
    const std::vector<Case> cases{
        {"replaced", {Kind::replaced, 0, 0}, true},
        {"closed", {Kind::closed, 0, 0}, true},
        {"inserted before", {Kind::inserted, 2, 1}, true},
        {"inserted after", {Kind::inserted, 3, 1}, false},
        {"removed before", {Kind::removed, 0, 1}, true},
        {"changed", {Kind::changed, 1, 2}, true},
        {"changed elsewhere", {Kind::changed, 3, 2}, false},
        {"models", {Kind::models, 0, 0}, false},
    };
    for (const Case& c : cases) {
        fill(2, building);
        type(scale, "2.5");
        document.changed.notify(c.change);
        EXPECT_EQ(editor.isEditing(), !c.dropped) << c.name;
        editor.setNewData();
        EXPECT_EQ(written().size(), c.dropped ? 0U : 1U) << c.name;
    }
}

TEST_F(PropertyEditorTest, theWriteItselfMayComeBack) {
    target.duringWrite = [this] {
        document.changed.notify({DocumentChange::Kind::changed, 2, 1});
        editor.commitOpenEditor();
    };
    type(scale, "2.5");
    editor.setNewData();
    EXPECT_EQ(written(), Written{"2/4=2.5"});
    editor.beginEdit(roofTexture);
    editor.spinChanged(26, "26");
    EXPECT_EQ(written(), Written{"2/5=26"});
    EXPECT_TRUE(editor.isEditing()) << "its own write is no reason to drop the edit";
}

TEST_F(PropertyEditorTest, aRefusedWriteGivesTheCellItsTextBack) {
    target.refuses = true;
    type(roofType, "RIDGE");
    editor.setNewData();
    EXPECT_EQ(written(), Written{"2/6=RIDGE"}) << "and no roof is switched";
    EXPECT_EQ(view.rows, building);
}

TEST_F(PropertyEditorTest, roofTypes) {
    struct Case {
        const char* name;
        std::function<void()> act;
        Written written;
    };
    const std::vector<Case> cases{
        {"another one", [&] { editor.textEdited("RIDGE"); }, {"2/6=RIDGE", "roof"}},
        {"opened and the same again", [&] { editor.listOpened(); }, {"2/6=FLAT"}},
        {"not opened", [] {}, {}},
    };
    for (const Case& c : cases) {
        fill(2, building);
        editor.beginEdit(roofType);
        c.act();
        editor.setNewData();
        EXPECT_EQ(written(), c.written) << c.name;
    }
}

TEST_F(PropertyEditorTest, tabWalks) {
    struct Case {
        const char* name;
        int row;
        bool editing, shift;
        int expectedRow;
    };
    const std::vector<Case> cases{
        {"down", lat, false, false, lon},
        {"down, editing", lat, true, false, lon},
        {"up", lat, false, true, comment},
        {"up, editing", lat, true, true, comment},
        {"up from the first", comment, true, true, comment},
        {"down from the last", sizeX, true, false, sizeX},
        {"down from the last, idle", sizeX, false, false, sizeX},
    };
    for (const Case& c : cases) {
        editor.cancelEdit();
        editor.setCurrentRow(c.row);
        if (c.editing)
            type(c.row, "77");
        EXPECT_TRUE(editor.processKeyPress(tab, c.shift)) << c.name;
        EXPECT_EQ(editor.currentRow(), c.expectedRow) << c.name;
        EXPECT_EQ(view.current, c.expectedRow) << c.name;
        EXPECT_EQ(editor.isEditing(), c.editing) << c.name;
        EXPECT_EQ(written().size(), c.editing ? 1U : 0U) << c.name;
    }
    editor.clearPropList(-1);
    EXPECT_FALSE(editor.processKeyPress(tab, false)) << "an empty sheet does not hold the focus";
}

TEST_F(PropertyEditorTest, spinValuesAreWrittenAtOnce) {
    editor.beginEdit(roofTexture);
    editor.spinChanged(25, "25");
    EXPECT_EQ(written(), Written()) << "what the cell holds";
    editor.spinChanged(26, "26");
    editor.spinChanged(27, "27");
    EXPECT_EQ(written(), (Written{"2/5=26", "2/5=27"}));
    editor.spinChanged(27, "");
    EXPECT_EQ(written(), Written()) << "an emptied text box is on its way to another number";
    editor.writeNamed("roofTexture", "200"); // shown as the limit, 37
    EXPECT_EQ(written(), Written{"2/5=200"});
    editor.beginEdit(roofTexture);
    editor.spinChanged(37, "");
    editor.spinChanged(37, "-1");
    EXPECT_EQ(written(), Written()) << "the limit on show is not written for a number that is none yet";
    view.settle = [this] { editor.spinChanged(3, "3"); };
    editor.processKeyPress(enter, false);
    EXPECT_EQ(written(), Written{"2/5=3"}) << "settled before the end";
    editor.beginEdit(roofTexture);
    editor.processKeyPress(escape, false);
    EXPECT_EQ(written(), Written()) << "Escape settles nothing";
    EXPECT_EQ(editor.rows()[roofTexture].value, "3");
}

TEST_F(PropertyEditorTest, coordinatesAreReadFromTheSimulator) {
    editor.setCurrentRow(lat);
    EXPECT_TRUE(editor.processKeyPress('r', false));
    EXPECT_EQ(written(), Written{"2/1=52.25"});
    EXPECT_EQ(view.rows[lat].value, "52.25");

    type(lat, "1");
    editor.processKeyPress('r', false);
    EXPECT_EQ(view.text, "52.25") << "the open text box follows";
    editor.setNewData();
    EXPECT_EQ(written(), Written{"2/1=52.25"}) << "and what was typed is gone";

    simulated.reset();
    editor.processKeyPress('r', false);
    EXPECT_EQ(written(), Written()) << "no simulator, nothing changes";
}

TEST_F(PropertyEditorTest, coordinatesAreWrittenToTheSimulator) {
    type(heading, "12.5 degrees");
    EXPECT_TRUE(editor.processKeyPress('w', false));
    EXPECT_EQ(written(), Written{"2/3=12.5 degrees"}) << "what was typed is committed first";
    EXPECT_EQ(sent, std::vector<double>{12.5});
    editor.setNewData();
    EXPECT_EQ(written(), Written()) << "and only once";

    type(lon, "180");
    editor.processKeyPress('w', false);
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0].text,
              "Error 6 (Overflow) in procedure mCoorEntry_Click of Form frmObjProp");
    EXPECT_FALSE(ended);
}

TEST_F(PropertyEditorTest, namedPropertiesAreWrittenWhereverTheyStand) {
    type(scale, "2.5");
    EXPECT_TRUE(editor.writeNamed("lon", "5.5"));
    EXPECT_EQ(written(), (Written{"2/4=2.5", "2/2=5.5"}));
    EXPECT_FALSE(editor.writeNamed("pitch", "1"));
    editor.clearPropList(-1);
    EXPECT_FALSE(editor.writeNamed("lon", "5.5"));
    EXPECT_EQ(written(), Written());
}

TEST_F(PropertyEditorTest, theCurrentPropertyIsFoundAgain) {
    editor.setCurrentRow(heading);
    fill(5, {{"comment", ""}, {"heading", "1"}, {"lat", "2"}});
    EXPECT_EQ(view.current, 1);
    editor.clearPropList(-1);
    fill(6, building);
    EXPECT_EQ(view.current, heading);
}

TEST_F(PropertyEditorTest, anErrorOfTheWriteIsReportedUnderTheSheet) {
    target.duringWrite = [] { throw RuntimeError(ErrorNumber::diskFull, "Disk full"); };
    type(scale, "2.5");
    editor.setNewData();
    ASSERT_GE(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0].text, "Error 61 (Disk full) in procedure setNewData of Form frmObjProp");
    EXPECT_TRUE(ended);
}

} // namespace
} // namespace quillset
