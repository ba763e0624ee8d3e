#include "catalogue/catalogue_tree.h"

#include "base/paths.h"

#include <unordered_set>
#include <utility>

namespace quillset {

void CatalogueTree::rescanObjTree(const CatalogueSources& sources) {
    CatalogueNodes fresh = scanCatalogue(sources, dialogs_, errors_);
    const std::optional<NodeId> kept = selected_ ? fresh.find(nodes_.at(*selected_).key) : std::nullopt;
    const bool lost = selected_ && !kept;
    aboutToRebuild.notify();
    nodes_ = std::move(fresh);
    selected_ = kept;
    rebuilt.notify();
    if (lost)
        selectionChanged.notify();
}

std::string CatalogueTree::getObjectName(std::string_view key) const {
    const std::optional<NodeId> found = nodes_.find(key);
    return std::string(found ? nodes_.at(*found).text : "!unknown!");
}

void CatalogueTree::setObjTreeItem(std::string_view key) {
    if (const std::optional<NodeId> found = nodes_.find(key))
        select(*found);
}

void CatalogueTree::select(NodeId id) {
    if (selected_ == id || id >= nodes_.size())
        return;
    selected_ = id;
    selectionChanged.notify();
}

std::optional<CatalogueItem> CatalogueTree::selected() const {
    if (!selected_)
        return std::nullopt;
    const CatalogueNode& node = nodes_.at(*selected_);
    return CatalogueItem{std::string(node.key), std::string(node.text)};
}

bool CatalogueTree::selectedKindIs(NodeKind kind) const {
    return selected_ && nodes_.at(*selected_).kind == kind;
}

bool CatalogueTree::selectedIsGenBuild() const {
    return selectedKindIs(NodeKind::building);
}

bool CatalogueTree::selectedIsLibraryObject() const {
    return selectedKindIs(NodeKind::defaultObject) || selectedKindIs(NodeKind::userObject) ||
           selectedIsLocalModel();
}

bool CatalogueTree::selectedIsEffect() const {
    return selectedKindIs(NodeKind::effect);
}

bool CatalogueTree::selectedIsLocalModel() const {
    return selectedKindIs(NodeKind::localModel);
}

bool CatalogueTree::selectedIsPlaceable() const {
    return selected_ && isPlaceable(nodes_.at(*selected_).kind);
}

TreeMenuOptions CatalogueTree::setTreeMenuOptions(const ListState& list) const {
    const bool placeable = selectedIsPlaceable() && list.documentOpen;
    TreeMenuOptions options;
    options.addNewBefore = placeable && list.rowSelected;
    options.addNewEnd = placeable;
    options.updateObject = placeable && list.rowSelected;
    options.addMDL = list.documentOpen;
    options.addMDLFolder = list.documentOpen;
    options.removeMDL = selectedIsLocalModel();
    return options;
}

void CatalogueTree::addLocalModel(const std::string& key, const std::string& text) {
    const CatalogueItem item{key, text};
    addUnderLocal({&item, 1});
}

void CatalogueTree::addLocalModels(std::span<const CatalogueModel> models) {
    std::vector<CatalogueItem> items;
    items.reserve(models.size());
    for (const CatalogueModel& model : models)
        items.push_back({model.name, std::string(fileNameOf(model.sourceFile))});
    addUnderLocal(items);
}

void CatalogueTree::addUnderLocal(std::span<const CatalogueItem> items) {
    const std::optional<NodeId> group = nodes_.find("local");
    if (!group)
        throw RuntimeError(ErrorNumber::elementNotFound);
    // Checked before anything is announced: observers must not wait for rows that never come.
    std::unordered_set<std::string_view> keys;
    for (const CatalogueItem& item : items)
        if (!nodes_.mayAdd(NodeKind::localModel, item.key) || !keys.insert(item.key).second)
            throw RuntimeError(ErrorNumber::keyNotUnique);
    if (items.empty())
        return;
    const NodesAdded rows{*group, static_cast<std::uint32_t>(nodes_.at(*group).children.size()),
                          static_cast<std::uint32_t>(items.size())};
    aboutToAdd.notify(rows);
    for (const CatalogueItem& item : items)
        nodes_.add(*group, NodeKind::localModel, item.key, item.text);
    added.notify(rows);
}

} // namespace quillset
