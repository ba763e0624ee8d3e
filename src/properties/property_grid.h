#pragma once

#include <QTableWidget>

#include <optional>

namespace quillset {

/// The grid `ObjProp`: names in column 0, values in column 1. Rows are shown here and kept elsewhere.
class PropertyGrid : public QTableWidget {
    Q_OBJECT
public:
    static constexpr int nameColumn = 0;
    static constexpr int valueColumn = 1;

    explicit PropertyGrid(QWidget* parent);

    void addRow(const QString& name, const QString& value);
    void setValue(int row, const QString& value);
    void setRowHeight(int pixels);
    /// Rows that are shown whole.
    [[nodiscard]] int visibleRows() const;
    [[nodiscard]] QRect valueCell(int row) const;
    /// While an editor is open the keys that it leaves unused must not move the grid's current row.
    void setKeysTaken(bool taken) { keysTaken_ = taken; }

signals:
    /// The view was scrolled or the cells got other places.
    void cellsMoved();
    /// A key with a character, before the grid acts on it; a receiver sets the code to 0 to swallow it.
    void keyPress(int& keyAscii, int shift);
    /// F2: the user wants to edit the current row.
    void editWanted();
    /// A mouse button was released over a row, or at row -1 and column -1 outside of all rows.
    void mouseUp(Qt::MouseButton button, int row, int column, const QPoint& globalPlace);
    /// The keyboard's key for the context menu.
    void menuWanted();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Typing searches nothing here: letters are commands.
    void keyboardSearch(const QString&) override {}
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool keysTaken_ = false;
};

} // namespace quillset
