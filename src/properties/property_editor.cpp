#include "properties/property_editor.h"

#include "base/error_functions.h"
#include "base/number_text.h"
#include "document/scenery_document.h"

#include <utility>

namespace quillset {

namespace {

constexpr std::string_view formName = "frmObjProp";
constexpr int tab = 9;
constexpr int carriageReturn = 13;
constexpr int escape = 27;

/// Sets a flag for as long as it lives, also when an exception passes.
class Raised {
public:
    explicit Raised(bool& flag)
        : flag_(flag)
        , before_(std::exchange(flag, true)) {}
    ~Raised() { flag_ = before_; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

private:
    bool& flag_;
    bool before_;
};

bool concerns(const DocumentChange& change, int listIndex) {
    switch (change.kind) {
    case DocumentChange::Kind::models:
        return false;
    case DocumentChange::Kind::inserted:
    case DocumentChange::Kind::removed:
        return static_cast<int>(change.first) <= listIndex;
    case DocumentChange::Kind::changed:
        return listIndex >= static_cast<int>(change.first) &&
               listIndex < static_cast<int>(change.first + change.count);
    default:
        return true;
    }
}

} // namespace

PositionLink positionLink(FSUIPCFunctions& exchange) {
    // A refused write needs no word here: the status bar shows the state of the link.
    return {[&exchange](Coordinate coordinate) { return exchange.read(coordinate); },
            [&exchange](Coordinate coordinate, double degrees) { exchange.write(coordinate, degrees); }};
}

PropertyEditor::PropertyEditor(PropertyTarget& target, SceneryDocument& document, PositionLink simulator,
                               ErrorFunctions& errors)
    : target_(target)
    , simulator_(std::move(simulator))
    , errors_(errors)
    , documentChanged_(
          document.changed.connect([this](const DocumentChange& change) { documentChanged(change); })) {}

void PropertyEditor::showIn(SheetView* view) {
    session_.reset();
    view_ = view;
}

bool PropertyEditor::hasRow(int row) const {
    return row >= 0 && row < static_cast<int>(rows_.size());
}

void PropertyEditor::clearPropList(int listIndex) {
    cancelEdit();
    if (hasRow(currentRow_))
        rememberedName_ = rows_[static_cast<std::size_t>(currentRow_)].name;
    listIndex_ = listIndex;
    rows_.clear();
    currentRow_ = -1;
    if (view_)
        view_->rowsCleared();
}

void PropertyEditor::addPropList(const std::string& name, const std::string& value) {
    rows_.push_back({name, value});
    const bool isCurrent = currentRow_ < 0 && (rememberedName_.empty() || rememberedName_ == name);
    if (isCurrent)
        currentRow_ = static_cast<int>(rows_.size()) - 1;
    if (view_)
        view_->rowAdded(rows_.back(), isCurrent);
}

void PropertyEditor::moveTo(int row, std::optional<WalkDirection> walk) {
    currentRow_ = row;
    if (view_)
        view_->currentRowChanged(row, walk);
}

void PropertyEditor::setCurrentRow(int row) {
    if (row == currentRow_ || !hasRow(row))
        return;
    if (session_ && session_->row != row)
        setNewData();
    if (hasRow(row)) // the commit may have refilled the sheet
        moveTo(row, std::nullopt);
}

void PropertyEditor::beginEdit(int row) {
    if (!view_ || !hasRow(row) || (session_ && session_->row == row))
        return;
    setNewData();
    setCurrentRow(row);
    if (currentRow_ != row)
        return;
    const PropertyRow& cell = rows_[static_cast<std::size_t>(row)];
    session_ = {listIndex_, row, cell.name, cell.value, cell.value, false, editorFor(cell.name)};
    const EditSession opened = *session_; // giving it the focus may already close it again
    view_->editorOpened(opened);
}

void PropertyEditor::textEdited(const std::string& text) {
    if (!session_ || session_->editor.kind == EditorKind::spin)
        return;
    session_->text = text;
    session_->changed = true;
}

void PropertyEditor::listOpened() {
    if (session_ && session_->editor.kind == EditorKind::list)
        session_->changed = true;
}

void PropertyEditor::spinChanged(int value, const std::string& text) {
    if (!session_ || session_->editor.kind != EditorKind::spin)
        return;
    if (text.empty() || leadingNumber(text) < session_->editor.limits.minimum)
        return;
    const std::string valueText = std::to_string(value);
    if (valueText == rows_[static_cast<std::size_t>(session_->row)].value)
        return;
    errors_.trapped("spn_prop_Change", formName,
                    [&] { writeCell(session_->listIndex, session_->row, valueText); });
}

void PropertyEditor::setNewData() {
    errors_.trapped("setNewData", formName, [this] { commit(); });
}

void PropertyEditor::commit() {
    if (!session_ || writing_)
        return;
    view_->settleEditor();
    // The session ends before anything is written: closing the editor takes its focus, which commits again.
    const EditSession edit = *std::exchange(session_, std::nullopt);
    view_->editorClosed();
    if (!edit.changed || !writeCell(edit.listIndex, edit.row, edit.text))
        return;
    if (edit.name == "roofType" && edit.text != edit.oldText) {
        const Raised writing(writing_);
        target_.switchRoofType();
    }
}

void PropertyEditor::writePending() {
    if (session_ && std::exchange(session_->changed, false))
        writeCell(session_->listIndex, session_->row, session_->text);
}

void PropertyEditor::cancelEdit() {
    if (!std::exchange(session_, std::nullopt))
        return;
    view_->editorClosed();
}

bool PropertyEditor::processKeyPress(int keyAscii, bool shiftAlone) {
    bool handled = true;
    errors_.trapped("processKeyPress", formName, [&] {
        switch (keyAscii) {
        case carriageReturn:
            return setNewData();
        case tab:
            handled = !rows_.empty();
            return walk(shiftAlone ? WalkDirection::up : WalkDirection::down);
        case escape:
            return cancelEdit();
        case 'r':
        case 'w':
            if (hasRow(activeRow()) &&
                coordinateOfProperty(rows_[static_cast<std::size_t>(activeRow())].name))
                return mCoorEntry_Click(keyAscii == 'r' ? 0 : 1);
            break;
        default:
            break;
        }
        handled = false;
    });
    return handled;
}

void PropertyEditor::walk(WalkDirection direction) {
    const bool wasEditing = isEditing();
    setNewData();
    if (rows_.empty())
        return;
    const int row = rowAfterWalk(currentRow_, static_cast<int>(rows_.size()), direction);
    if (row != currentRow_)
        moveTo(row, direction);
    if (wasEditing)
        beginEdit(row);
}

void PropertyEditor::mCoorEntry_Click(int index) {
    // Its own trap: a longitude that the simulator cannot hold is no reason to end the program.
    errors_.trapped("mCoorEntry_Click", formName, [&] {
        const int row = activeRow();
        if (!hasRow(row))
            return;
        const auto coordinate = coordinateOfProperty(rows_[static_cast<std::size_t>(row)].name);
        if (!coordinate)
            return;
        if (index == 0)
            readCoordinate(row, *coordinate);
        else
            writeCoordinate(row, *coordinate);
    });
}

void PropertyEditor::readCoordinate(int row, Coordinate coordinate) {
    const std::optional<double> degrees = simulator_.read(coordinate);
    if (!degrees)
        return;
    const std::string text = coordinateText(*degrees);
    if (!writeCell(session_ ? session_->listIndex : listIndex_, row, text) || !session_)
        return;
    session_->text = text;
    view_->editorTextReplaced(text);
    session_->changed = false;
}

void PropertyEditor::writeCoordinate(int row, Coordinate coordinate) {
    writePending();
    simulator_.write(coordinate, leadingNumber(rows_[static_cast<std::size_t>(row)].value));
}

bool PropertyEditor::writeNamed(const std::string& name, const std::string& text) {
    setNewData();
    for (int row = 0; hasRow(row); ++row) {
        if (rows_[static_cast<std::size_t>(row)].name == name)
            return writeCell(listIndex_, row, text);
    }
    return false;
}

bool PropertyEditor::writeCell(int listIndex, int row, const std::string& text) {
    const std::string before = rows_[static_cast<std::size_t>(row)].value;
    showValue(row, text);
    std::optional<std::string> stored;
    {
        const Raised writing(writing_);
        stored = target_.setProperty(listIndex, row, text);
    }
    if (listIndex == listIndex_)
        showValue(row, stored.value_or(before));
    return stored.has_value();
}

void PropertyEditor::showValue(int row, const std::string& value) {
    if (!hasRow(row) || rows_[static_cast<std::size_t>(row)].value == value)
        return;
    rows_[static_cast<std::size_t>(row)].value = value;
    if (view_)
        view_->valueChanged(row, value);
}

void PropertyEditor::documentChanged(const DocumentChange& change) {
    // Whoever changes the document commits the open editor first. Where that was missed, dropping the edit is
    // the safe end: its placement may be another one now.
    if (session_ && !writing_ && concerns(change, session_->listIndex))
        cancelEdit();
}

} // namespace quillset
