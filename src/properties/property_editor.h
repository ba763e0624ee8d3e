#pragma once

#include "base/notifier.h"
#include "document/object_list_links.h"
#include "properties/property_rules.h"
#include "properties/tab_walk.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillset {

class ErrorFunctions;
class SceneryDocument;
struct DocumentChange;

/// What the sheet asks of the object list.
class PropertyTarget {
public:
    virtual ~PropertyTarget() = default;
    /// Writes one property of a placement; gives the text that the document holds now, or nothing when the
    /// edit did not take place (the user has been told why).
    virtual std::optional<std::string> setProperty(int listIndex, int row, const std::string& text) = 0;
    /// Reshapes the building that the sheet shows after its roof type changed, and refills the sheet.
    virtual void switchRoofType() = 0;
};

/// The running simulator, in degrees. A read gives nothing when it fails; a write may throw RuntimeError for
/// a value that the simulator cannot hold.
struct PositionLink {
    std::function<std::optional<double>(Coordinate)> read;
    std::function<void(Coordinate, double)> write;
};

/// The simulator link as the sheet uses it. `exchange` must outlive the result.
[[nodiscard]] PositionLink positionLink(FSUIPCFunctions& exchange);

struct PropertyRow {
    std::string name;
    std::string value;

    bool operator==(const PropertyRow&) const = default;
};

/// One edit in place, from opening the editor to its commit or cancel. It remembers which placement and row
/// it belongs to: by the time of the commit another row may be current, or another placement on show.
struct EditSession {
    int listIndex = -1;
    int row = -1;
    std::string name;
    std::string oldText; ///< what the cell held when editing began
    std::string text;    ///< what the editor holds now
    bool changed = false;
    EditorChoice editor;
};

/// The window of the sheet, told what to show.
class SheetView {
public:
    virtual ~SheetView() = default;
    virtual void rowsCleared() = 0;
    /// `isCurrent` says that the new row is the current one; more rows may follow.
    virtual void rowAdded(const PropertyRow& row, bool isCurrent) = 0;
    virtual void valueChanged(int row, const std::string& value) = 0;
    /// `walk` is set when Tab moved the row, which has its own way of scrolling. Row -1 is none.
    virtual void currentRowChanged(int row, std::optional<WalkDirection> walk) = 0;
    /// Lay the editor over the cell, fill it and give it the focus.
    virtual void editorOpened(const EditSession& session) = 0;
    virtual void editorTextReplaced(const std::string& text) = 0;
    /// Settle a number that is still being typed; may call spinChanged().
    virtual void settleEditor() = 0;
    virtual void editorClosed() = 0;
};

/// The property sheet without its window frmObjProp: rows, current row, the edit in place and what becomes of
/// it. Each edit is written once or dropped once, and only into the placement it was begun on.
class PropertyEditor : public PropertySheet {
public:
    PropertyEditor(PropertyTarget& target, SceneryDocument& document, PositionLink simulator,
                   ErrorFunctions& errors);

    /// Without a view the sheet can be filled and read, but not edited.
    void showIn(SheetView* view);

    void clearPropList(int listIndex) override;
    void addPropList(const std::string& name, const std::string& value) override;
    [[nodiscard]] int getXMLListCount() const override { return listIndex_; }
    void commitOpenEditor() override { setNewData(); }

    [[nodiscard]] const std::vector<PropertyRow>& rows() const { return rows_; }
    /// -1 for none.
    [[nodiscard]] int currentRow() const { return currentRow_; }
    [[nodiscard]] bool isEditing() const { return session_.has_value(); }

    /// The user went to another row; an edit open elsewhere is committed first.
    void setCurrentRow(int row);
    /// Makes the row current and opens its editor. Nothing happens where there is no such row.
    void beginEdit(int row);
    /// The text box or the drop-down list holds another text.
    void textEdited(const std::string& text);
    void listOpened();
    /// The spin box changed its text or value. Written at once, unless it is what the cell holds or the text
    /// is still on its way to a number within the limits.
    void spinChanged(int value, const std::string& text);

    /// Commits the open editor and closes it; without a change it is closed only.
    void setNewData();
    /// Closes the open editor, which keeps what was written and drops what was not.
    void cancelEdit();
    /// Handles a character key that was pressed in the grid or in an editor; `shiftAlone` says that Shift and
    /// no other modifier was down. False when the character is the control's own business.
    bool processKeyPress(int keyAscii, bool shiftAlone);
    /// Reads the current row's coordinate from the simulator (0) or writes it there (1); does nothing on
    /// other rows.
    void mCoorEntry_Click(int index);
    /// Commits an open editor, then writes the property of that name of the placement on show. False when
    /// there is none or it was not written.
    bool writeNamed(const std::string& name, const std::string& text);

private:
    [[nodiscard]] bool hasRow(int row) const;
    [[nodiscard]] int activeRow() const { return session_ ? session_->row : currentRow_; }
    void commit();
    void writePending();
    void walk(WalkDirection direction);
    void readCoordinate(int row, Coordinate coordinate);
    void writeCoordinate(int row, Coordinate coordinate);
    bool writeCell(int listIndex, int row, const std::string& text);
    void showValue(int row, const std::string& value);
    void moveTo(int row, std::optional<WalkDirection> walk);
    void documentChanged(const DocumentChange& change);

    PropertyTarget& target_;
    PositionLink simulator_;
    ErrorFunctions& errors_;
    SheetView* view_ = nullptr;

    int listIndex_ = -1;
    std::vector<PropertyRow> rows_;
    int currentRow_ = -1;
    std::string rememberedName_; ///< of the current row, to find it again after a refill
    std::optional<EditSession> session_;
    bool writing_ = false;
    Connection documentChanged_;
};

} // namespace quillset
