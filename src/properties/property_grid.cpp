#include "properties/property_grid.h"

#include "properties/line_editor.h"
#include "properties/sheet_layout.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

namespace quillset {

namespace {

/// Names end in what tells them apart ("textureIndexWindowX"), so they are shortened in their middle. The
/// whole text of a cell that is too narrow for it is shown as a tooltip.
class ElidingDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        const bool whole = sizeHint(option, index).width() <= view->visualRect(index).width();
        // As plain text: a comment may look like markup.
        const QString text = index.data().toString().toHtmlEscaped();
        QToolTip::showText(event->globalPos(), whole ? QString() : QStringLiteral("<p>%1</p>").arg(text),
                           view);
        return true;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.column() == PropertyGrid::nameColumn)
            option->textElideMode = Qt::ElideMiddle;
    }
};

QTableWidgetItem* cell(const QString& text) {
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return item;
}

} // namespace

PropertyGrid::PropertyGrid(QWidget* parent)
    : QTableWidget(0, 2, parent) {
    setObjectName(QStringLiteral("ObjProp"));
    setAccessibleName(QStringLiteral("Properties of the selected placement"));
    setHorizontalHeaderLabels({QStringLiteral("Property"), QStringLiteral("Value")});
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setMinimumSectionSize(0);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setItemDelegate(new ElidingDelegate(this));
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setTabKeyNavigation(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
    setRowHeight(fontMetrics().height() + 8);
}

void PropertyGrid::addRow(const QString& name, const QString& value) {
    const int row = rowCount();
    insertRow(row);
    setItem(row, nameColumn, cell(name));
    QTableWidgetItem* const valueItem = cell(value);
    valueItem->setData(Qt::AccessibleDescriptionRole, name); // the keyboard walks through the values alone
    setItem(row, valueColumn, valueItem);
}

void PropertyGrid::setValue(int row, const QString& value) {
    item(row, valueColumn)->setText(value);
}

void PropertyGrid::setRowHeight(int pixels) {
    verticalHeader()->setMinimumSectionSize(pixels);
    verticalHeader()->setDefaultSectionSize(pixels);
}

int PropertyGrid::visibleRows() const {
    return viewport()->height() / verticalHeader()->defaultSectionSize();
}

QRect PropertyGrid::valueCell(int row) const {
    return visualRect(model()->index(row, valueColumn));
}

bool PropertyGrid::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        // Here, not in keyPressEvent(): the base class would let Tab leave the grid without a key event.
        auto* const key = static_cast<QKeyEvent*>(event);
        int code = keysTaken_ ? 0 : characterCode(*key);
        if (code != 0)
            emit keyPress(code, shiftState(*key));
        if (code == 0 && !keysTaken_ && characterCode(*key) != 0)
            return true;
    }
    return QTableWidget::event(event);
}

void PropertyGrid::keyPressEvent(QKeyEvent* event) {
    const bool tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (tab && event->modifiers().testFlag(Qt::ControlModifier)) {
        // Tab itself walks through the rows; this is the way out of the sheet for the keyboard.
        focusNextPrevChild(event->key() == Qt::Key_Tab);
        return;
    }
    if (keysTaken_)
        return;
    if (event->key() == Qt::Key_F2)
        emit editWanted();
    else
        QTableWidget::keyPressEvent(event);
}

void PropertyGrid::mouseReleaseEvent(QMouseEvent* event) {
    QTableWidget::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    emit mouseUp(event->button(), index.row(), index.column(), event->globalPosition().toPoint());
}

void PropertyGrid::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit menuWanted();
}

void PropertyGrid::scrollContentsBy(int dx, int dy) {
    QTableWidget::scrollContentsBy(dx, dy);
    emit cellsMoved();
}

void PropertyGrid::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    // Of the width that the scroll bar leaves: a value must not end below it.
    const ColumnWidths widths = columnWidths(viewport()->width());
    setColumnWidth(nameColumn, widths.name);
    setColumnWidth(valueColumn, widths.value);
    emit cellsMoved();
}

} // namespace quillset
