#pragma once

#include "catalogue/catalogue_filter.h"
#include "catalogue/catalogue_tree.h"

#include <QAbstractItemModel>
#include <QIcon>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quillset {

/// The catalogue tree as the view sees it: the node "root" at the top, below it what the search shows.
class ObjectTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit ObjectTreeModel(CatalogueTree& tree, QObject* parent = nullptr);

    /// Shows only what matches the text; the selected node stays shown.
    void setSearchText(const std::string& text);
    [[nodiscard]] const CatalogueFilter& filter() const { return filter_; }
    /// Shows the selected node even though the search hides it.
    void showSelected();

    /// Invalid for a node that is not shown.
    [[nodiscard]] QModelIndex indexOf(NodeId id) const;
    [[nodiscard]] std::optional<NodeId> nodeOf(const QModelIndex& index) const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void applyFilter();
    void beginAdding(const NodesAdded& rows);
    void endAdding();
    [[nodiscard]] static QString toolTip(const CatalogueNode& node);

    const CatalogueTree& tree_;
    CatalogueFilter filter_;
    std::string searchText_;
    std::map<NodeKind, QIcon> icons_;
    std::vector<Connection> connections_;
};

} // namespace quillset
