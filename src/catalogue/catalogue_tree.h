#pragma once

#include "base/notifier.h"
#include "catalogue/catalogue_nodes.h"
#include "catalogue/catalogue_scan.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillset {

/// What the object list allows at the moment.
struct ListState {
    bool documentOpen = false; ///< and has been read: one without content takes nothing
    /// A placement is selected.
    bool rowSelected = false;
};

/// Which commands of the Objects menu are enabled.
struct TreeMenuOptions {
    bool addNewBefore = false;
    bool addNewEnd = false;
    bool updateObject = false;
    bool addMDL = false;
    bool addMDLFolder = false;
    bool removeMDL = false;

    bool operator==(const TreeMenuOptions&) const = default;
};

/// Children added at the end of a parent's children.
struct NodesAdded {
    NodeId parent = 0;
    std::uint32_t firstRow = 0;
    std::uint32_t count = 0;
};

/// Key and text of a node.
struct CatalogueItem {
    std::string key;
    std::string text;

    bool operator==(const CatalogueItem&) const = default;
};

/// The catalogue of everything that can be placed, with the selected node. Keys are GUID texts, effect file
/// names or the names of the three kinds of generic building; look-ups by key are exact and cost O(1).
/// Holds the root alone until the first scan.
class CatalogueTree {
public:
    CatalogueTree(Dialogs& dialogs, ErrorFunctions& errors)
        : dialogs_(dialogs)
        , errors_(errors) {}

    /// Builds the tree again from all its sources. The selection stays on the same key while it exists. The
    /// former tree stays in place until the new one is complete, also while messages are shown.
    void rescanObjTree(const CatalogueSources& sources);

    /// The text of a node, "!unknown!" when there is none with that key.
    [[nodiscard]] std::string getObjectName(std::string_view key) const;

    /// Selects the node with that key; nothing happens when there is none.
    void setObjTreeItem(std::string_view key);
    /// Selects a node of the present tree.
    void select(NodeId id);
    [[nodiscard]] std::optional<NodeId> selectedId() const { return selected_; }
    [[nodiscard]] std::optional<CatalogueItem> selected() const;

    [[nodiscard]] bool selectedIsGenBuild() const;
    /// An object of the default library, of a user or Rwy12 library, or a local model.
    [[nodiscard]] bool selectedIsLibraryObject() const;
    [[nodiscard]] bool selectedIsEffect() const;
    [[nodiscard]] bool selectedIsLocalModel() const;
    /// Not the root and not a group.
    [[nodiscard]] bool selectedIsPlaceable() const;

    /// The enabled state of the Objects menu for the selection.
    [[nodiscard]] TreeMenuOptions setTreeMenuOptions(const ListState& list) const;

    /// Adds a node under "local" without a scan. Throws RuntimeError: keyNotUnique for a key that is taken,
    /// elementNotFound before the first scan.
    void addLocalModel(const std::string& key, const std::string& text);
    /// The same for many models (the text is the file name of the source file) with one notification. Adds
    /// none when one of the keys is taken.
    void addLocalModels(std::span<const CatalogueModel> models);

    [[nodiscard]] const CatalogueNodes& nodes() const { return nodes_; }

    /// Around the exchange of the whole tree; ids are valid for one tree only.
    Notifier<> aboutToRebuild;
    Notifier<> rebuilt;
    Notifier<const NodesAdded&> aboutToAdd;
    Notifier<const NodesAdded&> added;
    /// Another node is selected, or none any more.
    Notifier<> selectionChanged;

private:
    [[nodiscard]] bool selectedKindIs(NodeKind kind) const;
    void addUnderLocal(std::span<const CatalogueItem> items);

    Dialogs& dialogs_;
    ErrorFunctions& errors_;
    CatalogueNodes nodes_;
    std::optional<NodeId> selected_;
};

} // namespace quillset
