#pragma once

#include "properties/SpinBox.h"
#include "properties/frmObjProp.h"
#include "properties/line_editor.h"
#include "properties/list_editor.h"
#include "properties/open_sheet.h"
#include "properties/property_grid.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace quillset::test {

/// The sheet in a window beside another control, as the user works with it.
struct SheetWindow : OpenSheet {
    SheetWindow() {
        host.resize(600, 640);
        sheet->setGeometry(0, 0, 400, 640);
        elsewhere->setGeometry(420, 0, 150, 30);
        host.show();
        host.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&host));
    }

    void selectPlacement(int row) { list.click(row); }
    /// Clicks the value cell (or the name cell) of a property.
    void clickRow(const char* name, int column = PropertyGrid::valueColumn,
                  Qt::MouseButton button = Qt::LeftButton) {
        const QModelIndex index = grid().model()->index(rowOf(name), column);
        grid().scrollTo(index);
        QTest::mouseClick(grid().viewport(), button, {}, grid().visualRect(index).center());
    }
    /// Opens the editor of a property of placement `row` and gives its text box.
    LineEditor& open(const char* name, int row = 2) {
        selectPlacement(row);
        clickRow(name);
        return *focusedBox();
    }
    /// A key press as the window system delivers it; the control with the focus gets it.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(host.windowHandle(), key, modifiers);
    }
    void type(const char* characters) {
        for (; *characters; ++characters)
            QTest::keyClick(host.windowHandle(), *characters);
    }
    [[nodiscard]] LineEditor* focusedBox() const {
        QWidget* const focused = QApplication::focusWidget();
        const auto* const combo = qobject_cast<ListEditor*>(focused);
        return combo ? combo->textBox() : qobject_cast<LineEditor*>(focused);
    }
    [[nodiscard]] PropertyGrid& grid() const {
        return *sheet->findChild<PropertyGrid*>(QStringLiteral("ObjProp"));
    }
    [[nodiscard]] QWidget& editorWidget(const char* name) const {
        return *sheet->findChild<QWidget*>(QString::fromUtf8(name));
    }
    [[nodiscard]] ListEditor& comboBox() const { return static_cast<ListEditor&>(editorWidget("cmb_prop")); }
    [[nodiscard]] SpinBox& spinBox() const { return static_cast<SpinBox&>(editorWidget("spn_prop")); }
    [[nodiscard]] QString description() const {
        return sheet->findChild<QLabel*>(QStringLiteral("lbl_prop"))->text();
    }
    [[nodiscard]] QString cell(const char* name) const {
        return grid().item(rowOf(name), PropertyGrid::valueColumn)->text();
    }
    /// Names of the editors on show.
    [[nodiscard]] QStringList visibleEditors() const {
        QStringList visible;
        for (const char* name : {"txt_prop", "cmb_prop", "spn_prop"}) {
            if (editorWidget(name).isVisible())
                visible += QString::fromUtf8(name);
        }
        return visible;
    }

    int dockStatus = 0;
    QWidget host;
    frmObjProp* sheet = new frmObjProp(
        editor, errors, [this] { return dockStatus; }, &host);
    QLineEdit* elsewhere = new QLineEdit(&host);
};

} // namespace quillset::test
