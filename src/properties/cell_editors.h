#pragma once

#include "properties/property_editor.h"

#include <QObject>
#include <QRect>

class QWidget;

namespace quillset {

class LineEditor;
class ListEditor;
class SpinBox;

/// The three editors `txt_prop`, `cmb_prop` and `spn_prop`, at most one of them visible, over a cell of the
/// grid. They are children of the grid's viewport, so that the grid clips them.
class CellEditors : public QObject {
    Q_OBJECT
public:
    /// The editors call `editor` for what the user does with them.
    CellEditors(QWidget& viewport, PropertyEditor& editor);

    /// Fills the editor of a session, lays it over the cell, shows it and gives it the focus.
    void open(const EditSession& session, const QRect& cell);
    void close();
    void place(const QRect& cell);
    void replaceText(const QString& text);
    void settle();
    [[nodiscard]] bool isOpen() const { return open_ != nullptr; }
    [[nodiscard]] bool hasFocus() const;
    /// Height that a cell needs for any of them.
    [[nodiscard]] int rowHeight() const;

private:
    void connectKeys(LineEditor* box);
    void fillSpin(const EditSession& session);

    PropertyEditor& editor_;
    LineEditor* txt_prop_;
    ListEditor* cmb_prop_;
    SpinBox* spn_prop_;
    QWidget* open_ = nullptr;
    bool filling_ = false;
    bool shiftAlone_ = false; ///< as the last key-down left it
};

} // namespace quillset
