#include "document/object_list.h"

#include "base/error_functions.h"

#include <algorithm>
#include <string_view>

namespace quillset {

namespace {

/// The element of a placement of no known kind that tells most about it: not the switches and offsets that
/// may stand before the thing placed, nor placements within.
std::string foreignName(const pugi::xml_node& placement) {
    for (const pugi::xml_node& child : placement.children()) {
        const std::string_view name = child.name();
        if (!name.empty() && name != "BiasXYZ" && name != "SceneryObject" && !name.starts_with("No"))
            return std::string(name);
    }
    return {};
}

/// The rows of the list that a change of the document means; `stale` rows stand before the placements.
RowChange rowChangeOf(const DocumentChange& change, int stale) {
    const int first = stale + 1 + static_cast<int>(change.first);
    const int count = static_cast<int>(change.count);
    switch (change.kind) {
    case DocumentChange::Kind::inserted:
        return {RowChange::Kind::inserted, first, count};
    case DocumentChange::Kind::removed:
        return {RowChange::Kind::removed, first, count};
    case DocumentChange::Kind::changed:
        return {RowChange::Kind::changed, first, count};
    default:
        return {RowChange::Kind::reset, 1, 0};
    }
}

bool changesRows(const DocumentChange& change) {
    // A new document leaves the rows as they are: those of the old one stay in view.
    return change.kind != DocumentChange::Kind::created && change.kind != DocumentChange::Kind::models;
}

} // namespace

ObjectList::ObjectList(SceneryDocument& document, UndoJournal& journal, PlacementCatalogue& catalogue,
                       ActivityLine& activity, ErrorFunctions& errors, std::function<double()> readHeading)
    : document_(document)
    , journal_(journal)
    , catalogue_(catalogue)
    , activity_(activity)
    , errors_(errors)
    , readHeading_(std::move(readHeading))
    , aboutToChange_(document.aboutToChange.connect([this](const DocumentChange& c) { beforeChange(c); }))
    , changed_(document.changed.connect([this](const DocumentChange& c) { afterChange(c); })) {}

int ObjectList::rowCount() const {
    return staleRowCount() + static_cast<int>(document_.placementCount());
}

int ObjectList::rowOf(std::size_t placement) const {
    return staleRowCount() + 1 + static_cast<int>(placement);
}

std::optional<std::size_t> ObjectList::placementOfRow(int row) const {
    if (row <= staleRowCount() || row > rowCount())
        return std::nullopt;
    return static_cast<std::size_t>(row - 1 - staleRowCount());
}

RowTexts ObjectList::row(int row) const {
    if (const auto placement = placementOfRow(row))
        return textsOf(*placement);
    if (row >= 1 && row <= staleRowCount())
        return stale_[static_cast<std::size_t>(row - 1)];
    return {};
}

std::optional<PlacementKind> ObjectList::kindOfRow(int row) const {
    const auto placement = placementOfRow(row);
    return placement ? std::optional(placementKind(document_.placement(*placement))) : std::nullopt;
}

RowTexts ObjectList::textsOf(std::size_t index) const {
    const pugi::xml_node placement = document_.placement(index);
    return {nameOf(placement), placement.attribute("lat").value(), placement.attribute("lon").value(),
            placementComment(placement)};
}

std::string ObjectList::nameOf(const pugi::xml_node& placement) const {
    switch (placementKind(placement)) {
    case PlacementKind::libraryObject:
    case PlacementKind::effect:
        return catalogue_.getObjectName(placementKey(placement));
    case PlacementKind::genericBuilding: {
        const pugi::xml_node building = buildingElement(placement);
        return building ? building.name() : placementChild(placement).name();
    }
    case PlacementKind::other:
        break;
    }
    return foreignName(placement);
}

void ObjectList::selectRow(int row) {
    const int rows = rowCount();
    const int wanted = std::clamp(row, std::min(1, rows), rows);
    if (wanted == selectedRow_)
        return;
    selectedRow_ = wanted;
    selectionChanged.notify(wanted);
}

void ObjectList::click(int row) {
    selectRow(row);
    XMLListClick();
}

void ObjectList::fillXMLList() {
    rowsAboutToChange.notify({RowChange::Kind::reset, 1, 0});
    stale_.clear();
    finishReset();
}

void ObjectList::updateXMLList() {
    fillXMLList();
    XMLListClick();
}

void ObjectList::XMLListClick() {
    commitEdits();
    const auto placement = selectedPlacement();
    const bool shown = errors_.trapped("XMLListClick", objectListForm, [&] {
        if (placement)
            showPlacement(*placement);
    });
    // A sheet that could not be filled must not go on showing, and writing to, another placement.
    if (!placement || !shown)
        clearSheet();
}

void ObjectList::showPlacement(std::size_t placement) {
    properties_ = propertyTable(document_, placement);
    if (sheet_) {
        sheet_->clearPropList(static_cast<int>(placement));
        for (const PropertyEntry& property : properties_)
            sheet_->addPropList(property.name, property.value);
    }
    if (const std::string key = placementKey(document_.placement(placement)); !key.empty())
        catalogue_.setObjTreeItem(key);
}

void ObjectList::refreshNames() {
    const RowChange all{RowChange::Kind::changed, 1, rowCount()};
    rowsAboutToChange.notify(all);
    rowsChanged.notify(all);
}

ListCommands ObjectList::setXMLListMenuOptions() const {
    const auto placement = selectedPlacement();
    ListCommands commands;
    commands.moveUp = placement && *placement > 0;
    commands.moveDown = placement && *placement + 1 < document_.placementCount();
    commands.removeObject = commands.updateObject = placement.has_value();
    commands.addEnd = document_.isOpen();
    commands.addBefore = placement.has_value();
    return commands;
}

bool ObjectList::currentXMLIsLibraryObject() const {
    return kindOfRow(selectedRow_) == PlacementKind::libraryObject;
}

bool ObjectList::currentXMLIsEffect() const {
    return kindOfRow(selectedRow_) == PlacementKind::effect;
}

void ObjectList::beforeChange(const DocumentChange& change) {
    if (change.kind == DocumentChange::Kind::created) {
        nextStale_.clear();
        for (int row = 1; row <= rowCount(); ++row)
            nextStale_.push_back(this->row(row));
    }
    // First, so that nothing in the sheet can be written to a placement that is another one then.
    if (change.kind == DocumentChange::Kind::created || change.kind == DocumentChange::Kind::closed ||
        change.kind == DocumentChange::Kind::replaced)
        clearSheet();
    editIsNested_ = change.kind == DocumentChange::Kind::removed && isNested(change.first);
    if (changesRows(change))
        rowsAboutToChange.notify(rowChangeOf(change, staleRowCount()));
}

void ObjectList::afterChange(const DocumentChange& change) {
    const RowChange rows = rowChangeOf(change, staleRowCount());
    switch (change.kind) {
    case DocumentChange::Kind::created:
        stale_ = std::move(nextStale_);
        return;
    case DocumentChange::Kind::closed:
    case DocumentChange::Kind::replaced:
        stale_.clear();
        finishReset();
        return;
    case DocumentChange::Kind::inserted:
        addXMLListItem(rows.first);
        refreshAround(change.first, 1);
        return;
    case DocumentChange::Kind::removed:
        removeXMLListItem(rows.first, rows.count);
        refreshAround(change.first, 0);
        return;
    case DocumentChange::Kind::changed:
        rowsChanged.notify(rows);
        refreshAround(change.first, change.count);
        return;
    case DocumentChange::Kind::models:
        return;
    }
}

bool ObjectList::isNested(std::size_t placement) const {
    return document_.placement(placement).parent() != document_.root();
}

/// The node before a placement is its comment, so the row below an edit may show something else, too. An edit
/// within other elements can show in the rows of any of them.
void ObjectList::refreshAround(std::size_t first, std::size_t count) {
    if (editIsNested_ || (count > 0 && isNested(first))) {
        refreshNames();
        return;
    }
    const int below = rowOf(first + count);
    if (below > rowCount())
        return;
    rowsAboutToChange.notify({RowChange::Kind::changed, below, 1});
    rowsChanged.notify({RowChange::Kind::changed, below, 1});
}

/// The selected row number stays where it can. The view has lost its own selection.
void ObjectList::finishReset() {
    selectedRow_ = std::clamp(selectedRow_, std::min(1, rowCount()), rowCount());
    rowsChanged.notify({RowChange::Kind::reset, 1, 0});
    selectionChanged.notify(selectedRow_);
}

void ObjectList::addXMLListItem(int row) {
    if (selectedRow_ >= row)
        ++selectedRow_;
    rowsChanged.notify({RowChange::Kind::inserted, row, 1});
    selectionChanged.notify(selectedRow_);
}

void ObjectList::removeXMLListItem(int row, int count) {
    if (selectedRow_ >= row)
        selectedRow_ = std::min(std::max(row, selectedRow_ - count), rowCount());
    rowsChanged.notify({RowChange::Kind::removed, row, count});
    selectionChanged.notify(selectedRow_);
}

void ObjectList::clearSheet() {
    properties_.clear();
    if (sheet_)
        sheet_->clearPropList(-1);
}

} // namespace quillset
