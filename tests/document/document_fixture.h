#pragma once

#include "base/activity_line.h"
#include "base/error_functions.h"
#include "document/object_list.h"
#include "document/undo_journal.h"
#include "support/fixed_clock.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace quillset {

inline void PrintTo(const RowTexts& row, std::ostream* out) {
    *out << row.name << " | " << row.latitude << " | " << row.longitude << " | " << row.comment;
}

} // namespace quillset

namespace quillset::test {

/// A catalogue of a few names that remembers what it was told to select.
class SmallCatalogue : public PlacementCatalogue {
public:
    [[nodiscard]] std::string getObjectName(const std::string& key) const override {
        const auto found = names.find(key);
        return found == names.end() ? "!unknown!" : found->second;
    }
    void setObjTreeItem(const std::string& key) override {
        if (names.contains(key))
            selected = key;
    }
    [[nodiscard]] std::string selectedText() const override {
        return selected.empty() ? std::string() : getObjectName(selected);
    }

    std::map<std::string, std::string> names{
        {"A", "Hangar"}, {"B", "Tower"}, {"smoke.fx", "smoke.fx"}, {"rectangular", "Rectangular building"}};
    std::string selected;
};

/// A sheet that holds its rows and, on demand, an edit in progress.
class SmallSheet : public PropertySheet {
public:
    void clearPropList(int listIndex) override {
        ++fills;
        index = listIndex;
        rows.clear();
        pending.reset();
    }
    void addPropList(const std::string& name, const std::string& value) override {
        rows.emplace_back(name, value);
    }
    [[nodiscard]] int getXMLListCount() const override { return index; }
    void commitOpenEditor() override {
        if (!pending)
            return;
        const auto [row, text] = *std::exchange(pending, std::nullopt);
        list->setProperty(index, row, text);
    }

    ObjectList* list = nullptr;
    int index = -2;
    int fills = 0;
    std::vector<std::pair<std::string, std::string>> rows;
    std::optional<std::pair<int, std::string>> pending;
};

/// A document with its journal and its list, in a folder of its own.
struct DocumentFixture {
    DocumentFixture() {
        sheet.list = &list;
        list.showPropertiesIn(&sheet);
    }

    /// Opens a file of that content and shows its first row.
    void open(const std::string& content) {
        document.load(folder.write("scenery.xml", content));
        list.fillXMLList();
        list.click(1);
    }
    [[nodiscard]] int row(const std::string& name) const {
        for (std::size_t i = 0; i < sheet.rows.size(); ++i) {
            if (sheet.rows[i].first == name)
                return static_cast<int>(i);
        }
        return -1;
    }
    [[nodiscard]] std::vector<RowTexts> rows() const {
        std::vector<RowTexts> all;
        for (int row = 1; row <= list.rowCount(); ++row)
            all.push_back(list.row(row));
        return all;
    }

    TemporaryFolder folder;
    SceneryDocument document;
    UndoJournal journal{document, folder.path()};
    SmallCatalogue catalogue;
    FixedClock clock;
    ActivityLine activity{clock};
    ScriptedDialogs dialogs;
    int ended = 0;
    ErrorFunctions errors{dialogs, [] {}, [this] { ++ended; }};
    double heading = 0;
    ObjectList list{document, journal, catalogue, activity, errors, [this] { return heading; }};
    SmallSheet sheet;
};

} // namespace quillset::test
