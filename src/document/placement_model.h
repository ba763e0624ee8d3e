#pragma once

#include "document/object_list.h"

#include <QAbstractTableModel>

namespace quillset {

/// The rows of the object list for a view. Holds no texts: it asks the list for what is shown. Model row 0 is
/// the list's row 1.
class PlacementModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { nameColumn, latitudeColumn, longitudeColumn, commentColumn, columns };

    /// True for a row of the document before the last New.
    static constexpr int staleRole = Qt::UserRole;

    PlacementModel(ObjectList& list, QObject* parent);

    /// Rows are coming or going just now; the current row that a view moves meanwhile is nobody's choice.
    [[nodiscard]] bool isChanging() const { return changing_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    void begin(const RowChange& change);
    void end(const RowChange& change);

    ObjectList& list_;
    /// What the views know. The list's own count runs ahead of it while rows come and go.
    int rows_ = 0;
    bool changing_ = false;
    Connection aboutToChange_;
    Connection changed_;
};

} // namespace quillset
