#pragma once

#include "properties/property_editor.h"

#include <QWidget>

#include <array>
#include <functional>

class QAction;
class QLabel;
class QMenu;

namespace quillset {

class CellEditors;
class PropertyGrid;

/// The property sheet's window: the grid `ObjProp` with its editors laid over the value cells, and below it
/// `lbl_prop`, the description of the current property. Everything passed by reference must outlive it.
class frmObjProp : public QWidget, private SheetView {
    Q_OBJECT
public:
    /// `dockStatus` gives the docking host's code for this window: 0 floating, 1 top, 2 bottom, 3 left,
    /// 4 right.
    frmObjProp(PropertyEditor& editor, ErrorFunctions& errors, std::function<int()> dockStatus,
               QWidget* parent = nullptr);
    ~frmObjProp() override;

    /// Lays grid and label out by size and docking state; also for a state that changed without a resize.
    void layOut();
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void rowsCleared() override;
    void rowAdded(const PropertyRow& row, bool isCurrent) override;
    void valueChanged(int row, const std::string& value) override;
    void currentRowChanged(int row, std::optional<WalkDirection> walk) override;
    void editorOpened(const EditSession& session) override;
    void editorTextReplaced(const std::string& text) override;
    void settleEditor() override;
    void editorClosed() override;

    void connectGrid();
    void buildMenu();
    void highlight(int row);
    void describe(int row);
    void onMouseUp(Qt::MouseButton button, int row, int column, const QPoint& globalPlace);
    void showMenu(int row, const QPoint& globalPlace);

    PropertyEditor& editor_;
    ErrorFunctions& errors_;
    std::function<int()> dockStatus_;
    PropertyGrid* grid_;
    CellEditors* editors_;
    QLabel* label_;
    QMenu* mCoordinate_;
    std::array<QAction*, 2> mCoorEntry_{};
    bool following_ = false; ///< the grid is being told, not the user telling
};

} // namespace quillset
