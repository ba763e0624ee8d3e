// The edits that start from the list: each checks first, records its snapshot, changes the document and acts
// on the selection.
#include "document/object_list.h"

#include "base/activity_line.h"
#include "base/error_functions.h"
#include "document/new_placement.h"
#include "document/placement_move.h"
#include "document/placement_removal.h"
#include "document/roof_types.h"
#include "document/undo_journal.h"

namespace quillset {

bool ObjectList::setProperty(int placementIndex, int propertyIndex, const std::string& text) {
    if (placementIndex < 0 || propertyIndex < 0)
        return false;
    bool done = false;
    errors_.trapped("setProperty", objectListForm, [&] {
        const auto placement = static_cast<std::size_t>(placementIndex);
        const std::vector<PropertyEntry> table = propertyTable(document_, placement);
        const auto property = static_cast<std::size_t>(propertyIndex);
        if (property >= table.size())
            throw RuntimeError(ErrorNumber::subscriptOutOfRange);
        if (!record(UndoKind::changeParameter, "setProperty"))
            return;
        writeProperty(document_, placement, table[property], text);
        done = true;
    });
    return done;
}

bool ObjectList::addNewObject(const std::string& key, double latitude, double longitude, bool insertBefore) {
    if (!document_.isOpen())
        return false;
    commitEdits();
    const auto before = insertBefore ? selectedPlacement() : std::nullopt;
    const NewPlacement placement{key, latitude, longitude, readHeading_()};
    if (!record(UndoKind::addObject, "addNewObject"))
        return false;
    selectRow(rowOf(addPlacement(document_, placement, before)));
    XMLListClick();
    return true;
}

std::size_t ObjectList::addNewObjects(std::span<const NewPlacement> placements,
                                      const std::function<bool(std::size_t added)>& goOn) {
    if (!document_.isOpen())
        return 0;
    commitEdits();
    // Asked for once: a simulator that answers slowly would be waited for at every point.
    const double heading = readHeading_();
    // From the first placement on: making each snapshot's text anew would cost the square of their number.
    std::optional<GrowingXml> text;
    std::size_t added = 0;
    std::optional<std::size_t> last;
    for (const NewPlacement& placement : placements) {
        if (!goOn(added) || !record(UndoKind::addObject, "addNewObject", text ? &*text : nullptr))
            break;
        last = addPlacement(document_, {placement.key, placement.latitude, placement.longitude, heading},
                            std::nullopt);
        ++added;
        if (text)
            text->append(document_.placement(*last).previous_sibling());
        else
            text.emplace(document_.growingSerialisation());
    }
    if (last) {
        selectRow(rowOf(*last));
        XMLListClick();
    }
    return added;
}

bool ObjectList::UpdateObject(const std::string& key) {
    commitEdits();
    const auto placement = selectedPlacement();
    if (!placement || !record(UndoKind::changeParameter, "UpdateObject"))
        return false;
    updatePlacementKey(document_, *placement, key);
    XMLListClick();
    return true;
}

bool ObjectList::removeObject() {
    commitEdits();
    const auto placement = selectedPlacement();
    if (!placement)
        return false;
    const std::string text = removalText(*placement);
    if (!record(UndoKind::removeObject, "removeObject"))
        return false;
    removePlacement(document_, *placement);
    activity_.show(text);
    XMLListClick();
    return true;
}

/// Names everything that goes: a node before the placement that is no comment, and the placements within
/// either.
std::string ObjectList::removalText(std::size_t placement) const {
    const Removal removal = removalOf(document_, placement);
    const std::string selected = catalogue_.selectedText();
    std::string text = "Object " + (selected.empty() ? row(rowOf(placement)).name : selected) + " removed";
    if (!removal.before.empty())
        text += ", and with it the " + removal.before + " before it";
    constexpr std::size_t mostNames = 5;
    std::size_t named = 0;
    for (std::size_t other = removal.first; other < removal.first + removal.count; ++other) {
        if (other == placement)
            continue;
        if (named == mostNames)
            return text + ", ...";
        text += (named++ == 0 ? ", objects: " : ", ") + nameOf(document_.placement(other));
    }
    return text;
}

bool ObjectList::moveUp() {
    commitEdits();
    const auto placement = selectedPlacement();
    return placement && follow(movePlacementUp(document_, *placement));
}

bool ObjectList::moveDown() {
    commitEdits();
    const auto placement = selectedPlacement();
    return placement && follow(movePlacementDown(document_, *placement));
}

bool ObjectList::follow(std::optional<std::size_t> movedTo) {
    if (!movedTo)
        return false;
    click(rowOf(*movedTo));
    return true;
}

bool ObjectList::switchRoofType() {
    const int shown = sheet_ ? sheet_->getXMLListCount() : -1;
    if (shown < 0 || static_cast<std::size_t>(shown) >= document_.placementCount() ||
        !record(UndoKind::changeParameter, "switchRoofType"))
        return false;
    reshapeRoof(document_, static_cast<std::size_t>(shown));
    XMLListClick();
    return true;
}

void ObjectList::commitEdits() {
    if (sheet_)
        sheet_->commitOpenEditor();
}

bool ObjectList::record(UndoKind kind, const char* procedure, const GrowingXml* serialised) {
    try {
        if (!document_.hasRoot())
            throw RuntimeError(ErrorNumber::objectNotSet, "The document has no root element to edit");
        if (serialised != nullptr)
            journal_.record(kind, *serialised);
        else
            journal_.record(kind);
        return true;
    } catch (const RuntimeError& error) {
        errors_.report(error.number(), error.what(), procedure, objectListForm);
        return false;
    }
}

} // namespace quillset
