#include "catalogue/object_tree_model.h"

#include "catalogue/object_icons.h"

namespace quillset {

namespace {

QString toQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

ObjectTreeModel::ObjectTreeModel(CatalogueTree& tree, QObject* parent)
    : QAbstractItemModel(parent)
    , tree_(tree) {
    for (int kind = 0; kind <= static_cast<int>(NodeKind::building); ++kind)
        icons_.emplace(static_cast<NodeKind>(kind), objectIcon(static_cast<NodeKind>(kind)));
    applyFilter();
    connections_.push_back(tree.aboutToRebuild.connect([this] { beginResetModel(); }));
    connections_.push_back(tree.rebuilt.connect([this] {
        applyFilter();
        endResetModel();
    }));
    connections_.push_back(tree.aboutToAdd.connect([this](const NodesAdded& rows) { beginAdding(rows); }));
    connections_.push_back(tree.added.connect([this](const NodesAdded&) { endAdding(); }));
}

void ObjectTreeModel::applyFilter() {
    filter_.apply(tree_.nodes(), searchText_, tree_.selectedId());
}

void ObjectTreeModel::setSearchText(const std::string& text) {
    beginResetModel();
    searchText_ = text;
    applyFilter();
    endResetModel();
}

void ObjectTreeModel::showSelected() {
    const std::optional<NodeId> selected = tree_.selectedId();
    if (selected && !filter_.shows(*selected))
        setSearchText(searchText_);
}

void ObjectTreeModel::beginAdding(const NodesAdded& rows) {
    if (filter_.active())
        beginResetModel();
    else
        beginInsertRows(indexOf(rows.parent), static_cast<int>(rows.firstRow),
                        static_cast<int>(rows.firstRow + rows.count - 1));
}

void ObjectTreeModel::endAdding() {
    if (filter_.active()) {
        applyFilter();
        endResetModel();
    } else {
        endInsertRows();
    }
}

QModelIndex ObjectTreeModel::indexOf(NodeId id) const {
    if (!filter_.shows(id))
        return {};
    return createIndex(static_cast<int>(filter_.row(id)), 0, quintptr{id});
}

std::optional<NodeId> ObjectTreeModel::nodeOf(const QModelIndex& index) const {
    return index.isValid() ? std::optional(static_cast<NodeId>(index.internalId())) : std::nullopt;
}

QModelIndex ObjectTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent))
        return {};
    const std::optional<NodeId> above = nodeOf(parent);
    const NodeId id = above ? filter_.children(*above).at(static_cast<std::size_t>(row)) : NodeId{0};
    return createIndex(row, column, quintptr{id});
}

QModelIndex ObjectTreeModel::parent(const QModelIndex& child) const {
    const std::optional<NodeId> id = nodeOf(child);
    if (!id || *id == 0)
        return {};
    return indexOf(tree_.nodes().at(*id).parent);
}

int ObjectTreeModel::rowCount(const QModelIndex& parent) const {
    const std::optional<NodeId> id = nodeOf(parent);
    return id ? static_cast<int>(filter_.children(*id).size()) : 1;
}

int ObjectTreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant ObjectTreeModel::data(const QModelIndex& index, int role) const {
    const std::optional<NodeId> id = nodeOf(index);
    if (!id)
        return {};
    const CatalogueNode& node = tree_.nodes().at(*id);
    switch (role) {
    case Qt::DisplayRole:
        return toQString(node.text);
    case Qt::DecorationRole:
        return icons_.at(node.kind);
    case Qt::ToolTipRole:
        return toolTip(node);
    default:
        return {};
    }
}

QVariant ObjectTreeModel::headerData(int, Qt::Orientation orientation, int role) const {
    // Screen readers tell it, although the header is hidden.
    const bool wanted = orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return wanted ? QVariant(QStringLiteral("Object")) : QVariant();
}

QString ObjectTreeModel::toolTip(const CatalogueNode& node) {
    const QString text = toQString(node.text);
    if (!isPlaceable(node.kind) || node.key == node.text)
        return text.toHtmlEscaped();
    return QStringLiteral("%1<br>%2").arg(text.toHtmlEscaped(), toQString(node.key).toHtmlEscaped());
}

} // namespace quillset
