#pragma once

#include "base/notifier.h"
#include "document/object_list_links.h"
#include "document/placement.h"
#include "document/property_table.h"
#include "document/scenery_document.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quillset {

class ActivityLine;
class ErrorFunctions;
class GrowingXml;
struct NewPlacement;
class UndoJournal;
enum class UndoKind;

/// The window's name in reports.
inline constexpr const char* objectListForm = "frmXMLList";

/// The cells of one row.
struct RowTexts {
    std::string name;
    std::string latitude;
    std::string longitude;
    std::string comment;

    bool operator==(const RowTexts&) const = default;
};

/// What happened to the rows. Rows count from 1; row 0 is the header.
struct RowChange {
    enum class Kind { inserted, removed, changed, reset };
    Kind kind = Kind::reset;
    int first = 1;
    int count = 0;

    bool operator==(const RowChange&) const = default;
};

/// Which commands make sense for the selected row.
struct ListCommands {
    bool moveUp = false;
    bool moveDown = false;
    bool removeObject = false;
    bool updateObject = false; ///< as far as the list goes; the catalogue has its say too
    bool addBefore = false;    ///< likewise
    bool addEnd = false;       ///< likewise

    bool operator==(const ListCommands&) const = default;
};

/// The object list without its window frmXMLList: the selected row, and every edit that the user starts from
/// the menus or from the property sheet.
///
/// Row r shows placement r - 1; its texts are made when they are asked for. After a new document was created
/// the rows of the old one stay in view (deliberate) as stale rows before those of the new placements, until
/// the list is filled again; they cannot be edited.
///
/// The edits record an undo snapshot first (the moves do not). When that fails the reason is reported and
/// nothing else happens: they return false. They also return false, without a report, where there is nothing
/// to edit.
class ObjectList {
public:
    /// `readHeading` gives the simulator's true heading in degrees, 0 without a simulator.
    ObjectList(SceneryDocument& document, UndoJournal& journal, PlacementCatalogue& catalogue,
               ActivityLine& activity, ErrorFunctions& errors, std::function<double()> readHeading);

    /// The sheet that follows the selection; none before the first call.
    void showPropertiesIn(PropertySheet* sheet) { sheet_ = sheet; }

    /// Whether placements can be added: not to a document that could not be read.
    [[nodiscard]] bool canTakePlacements() const { return document_.hasRoot(); }
    [[nodiscard]] int rowCount() const;
    /// Texts of a row; empty for a row that is not there.
    [[nodiscard]] RowTexts row(int row) const;
    /// What a row places; nothing for stale rows and rows that are not there.
    [[nodiscard]] std::optional<PlacementKind> kindOfRow(int row) const;
    /// 1 .. rowCount(), or 0 for none.
    [[nodiscard]] int selectedRow() const { return selectedRow_; }
    /// The placement of a row; nothing for stale rows and rows that are not there.
    [[nodiscard]] std::optional<std::size_t> placementOfRow(int row) const;
    [[nodiscard]] std::optional<std::size_t> selectedPlacement() const {
        return placementOfRow(selectedRow_);
    }
    /// Number of rows that still show the document before the last New.
    [[nodiscard]] int staleRowCount() const { return static_cast<int>(stale_.size()); }

    /// Selects a row, cut to 0 .. rowCount() and never the header while there are rows. Fills nothing.
    void selectRow(int row);
    /// Selects a row and acts on it: what a click, an arrow key or a right click does.
    void click(int row);

    /// Rebuilds all rows from the document, without stale ones; keeps the row number where it can.
    void fillXMLList();
    /// The same, then acts on the selected row.
    void updateXMLList();
    /// Commits an open editor, then fills the property table and the sheet from the selected row and makes
    /// the catalogue follow. Clears the sheet when the row has no placement, and, after a report, when the
    /// placement has too many properties.
    void XMLListClick();
    /// Writes what an open editor of the sheet holds into the placement that the sheet shows.
    void commitEdits();
    /// The names of all rows may have changed (the catalogue was read again).
    void refreshNames();

    bool setProperty(int placementIndex, int propertyIndex, const std::string& text);
    bool addNewObject(const std::string& key, double latitude, double longitude, bool insertBefore);
    /// Adds placements at the end, one after another, each with an undo step of its own, as so many calls of
    /// addNewObject() would; selection and sheet follow once, at the end. Their headings are the simulator's.
    /// Before each one `goOn` is asked, with the number added so far. Gives the number added in the end: less
    /// than all when `goOn` said no or when a snapshot failed (which was reported).
    std::size_t addNewObjects(std::span<const NewPlacement> placements,
                              const std::function<bool(std::size_t added)>& goOn);
    bool UpdateObject(const std::string& key);
    bool removeObject();
    bool moveUp();
    bool moveDown();
    /// Acts on the placement that the sheet shows.
    bool switchRoofType();

    [[nodiscard]] ListCommands setXMLListMenuOptions() const;
    [[nodiscard]] bool currentXMLIsLibraryObject() const;
    [[nodiscard]] bool currentXMLIsEffect() const;
    /// The properties last handed to the sheet.
    [[nodiscard]] const std::vector<PropertyEntry>& properties() const { return properties_; }

    /// Told before and after the rows change, with the same value.
    Notifier<const RowChange&> rowsAboutToChange;
    Notifier<const RowChange&> rowsChanged;
    Notifier<int> selectionChanged;

private:
    [[nodiscard]] int rowOf(std::size_t placement) const;
    [[nodiscard]] RowTexts textsOf(std::size_t placement) const;
    [[nodiscard]] std::string nameOf(const pugi::xml_node& placement) const;
    [[nodiscard]] std::string removalText(std::size_t placement) const;
    void beforeChange(const DocumentChange& change);
    void afterChange(const DocumentChange& change);
    void addXMLListItem(int row);
    void removeXMLListItem(int row, int count);
    void finishReset();
    [[nodiscard]] bool isNested(std::size_t placement) const;
    void refreshAround(std::size_t first, std::size_t count);
    void showPlacement(std::size_t placement);
    void clearSheet();
    bool record(UndoKind kind, const char* procedure, const GrowingXml* serialised = nullptr);
    bool follow(std::optional<std::size_t> movedTo);

    SceneryDocument& document_;
    UndoJournal& journal_;
    PlacementCatalogue& catalogue_;
    ActivityLine& activity_;
    ErrorFunctions& errors_;
    std::function<double()> readHeading_;
    PropertySheet* sheet_ = nullptr;

    std::vector<RowTexts> stale_;
    std::vector<RowTexts> nextStale_; ///< the rows in view, kept while a new document is created
    std::vector<PropertyEntry> properties_;
    int selectedRow_ = 0;
    bool editIsNested_ = false; ///< the removal under way is one within other elements than the root

    Connection aboutToChange_;
    Connection changed_;
};

} // namespace quillset
