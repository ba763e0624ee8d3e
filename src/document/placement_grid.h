#pragma once

#include <QTableView>

#include <functional>

namespace quillset {

/// The grid of the object list: whole rows, always exactly one of them selected while there are rows, a hint
/// in its place while there are none. Reports what the user does and decides nothing.
class PlacementGrid : public QTableView {
    Q_OBJECT
public:
    explicit PlacementGrid(QWidget* parent);

    /// Sets the model and the column widths that go with it.
    void showRows(QAbstractItemModel* rows);
    /// What stands in the place of rows while there are none.
    std::function<QString()> emptyText;
    /// Selects a row (from 0; below 0: none) and brings it into view, without reporting it.
    void setCurrentRow(int row);

signals:
    /// The user chose a row (from 0), maybe the one that was chosen already.
    void rowChosen(int row);
    /// "r" was typed.
    void removeTyped();
    /// The context menu of the current row is wanted there (global position).
    void menuWanted(const QPoint& position);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyboardSearch(const QString& search) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    bool settingRow_ = false; ///< the current row changes by program, not by the user
    bool reported_ = false;   ///< this press has reported its row already
};

} // namespace quillset
