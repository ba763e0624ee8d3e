#pragma once

#include <QTreeView>

namespace quillset {

/// The tree control: exactly one node is selected once one was chosen, and the keys "p" and "e" are commands
/// instead of the start of a search by name. Reports what the user does and decides nothing.
class ObjectTreeView : public QTreeView {
    Q_OBJECT
public:
    explicit ObjectTreeView(QWidget* parent);

    /// Shown in the middle of the tree when not empty.
    void setHint(const QString& hint);

signals:
    /// "p" was typed.
    void addBeforeTyped();
    /// "e" was typed.
    void addEndTyped();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    QString hint_;
};

} // namespace quillset
