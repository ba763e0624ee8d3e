#include "document/placement_model.h"

#include "document/placement_icons.h"

namespace quillset {

namespace {

QString shown(const std::string& text) {
    // One line a row, also where a comment has several.
    return QString::fromStdString(text).simplified();
}

} // namespace

PlacementModel::PlacementModel(ObjectList& list, QObject* parent)
    : QAbstractTableModel(parent)
    , list_(list)
    , rows_(list.rowCount())
    , aboutToChange_(list.rowsAboutToChange.connect([this](const RowChange& change) { begin(change); }))
    , changed_(list.rowsChanged.connect([this](const RowChange& change) { end(change); })) {}

int PlacementModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int PlacementModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns);
}

QVariant PlacementModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto kind = list_.kindOfRow(index.row() + 1);
    if (role == staleRole)
        return !kind;
    if (role == Qt::DecorationRole && index.column() == nameColumn && kind)
        return placementIcon(*kind);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const RowTexts texts = list_.row(index.row() + 1);
    switch (index.column()) {
    case nameColumn:
        return shown(texts.name);
    case latitudeColumn:
        return shown(texts.latitude);
    case longitudeColumn:
        return shown(texts.longitude);
    default:
        return shown(texts.comment);
    }
}

QVariant PlacementModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case nameColumn:
        return QStringLiteral("Name");
    case latitudeColumn:
        return QStringLiteral("Latitude");
    case longitudeColumn:
        return QStringLiteral("Longitude");
    case commentColumn:
        return QStringLiteral("Comment");
    default:
        return {};
    }
}

void PlacementModel::begin(const RowChange& change) {
    changing_ = true;
    const int first = change.first - 1;
    switch (change.kind) {
    case RowChange::Kind::inserted:
        beginInsertRows({}, first, first + change.count - 1);
        return;
    case RowChange::Kind::removed:
        beginRemoveRows({}, first, first + change.count - 1);
        return;
    case RowChange::Kind::reset:
        beginResetModel();
        return;
    case RowChange::Kind::changed:
        return;
    }
}

void PlacementModel::end(const RowChange& change) {
    const int first = change.first - 1;
    switch (change.kind) {
    case RowChange::Kind::inserted:
        rows_ += change.count;
        endInsertRows();
        break;
    case RowChange::Kind::removed:
        rows_ -= change.count;
        endRemoveRows();
        break;
    case RowChange::Kind::reset:
        rows_ = list_.rowCount();
        endResetModel();
        break;
    case RowChange::Kind::changed:
        if (change.count > 0)
            emit dataChanged(index(first, 0), index(first + change.count - 1, columns - 1));
        break;
    }
    changing_ = false;
}

} // namespace quillset
