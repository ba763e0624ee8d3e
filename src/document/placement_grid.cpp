#include "document/placement_grid.h"

#include "document/placement_model.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <algorithm>

namespace quillset {

namespace {

QColor quietText(const QPalette& palette) {
    QColor quiet = palette.color(QPalette::Text);
    quiet.setAlphaF(0.6F);
    return quiet;
}

/// Draws stale rows in a quiet colour, and shows the full text of a cell as a tool tip only where the cell
/// cuts it.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.data(PlacementModel::staleRole).toBool())
            option->palette.setColor(QPalette::Text, quietText(option->palette));
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() == QEvent::ToolTip && sizeHint(option, index).width() <= option.rect.width()) {
            QToolTip::hideText();
            return true;
        }
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
};

} // namespace

PlacementGrid::PlacementGrid(QWidget* parent)
    : QTableView(parent) {
    setItemDelegate(new RowDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setFrameShape(NoFrame);
    setHorizontalScrollMode(ScrollPerPixel);
    setCornerButtonEnabled(false);
    // Rows of one fixed height: a view that measures rows would ask for the texts of all of them.
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    const int rowHeight = fontMetrics().height() * 3 / 2;
    verticalHeader()->setDefaultSectionSize(rowHeight);
    horizontalHeader()->setMinimumHeight(rowHeight);
    setIconSize(QSize(fontMetrics().height(), fontMetrics().height()));
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setContextMenuPolicy(Qt::PreventContextMenu);
}

void PlacementGrid::showRows(QAbstractItemModel* rows) {
    setModel(rows);
    const int character = fontMetrics().averageCharWidth();
    setColumnWidth(0, 30 * character);
    setColumnWidth(1, 18 * character);
    setColumnWidth(2, 18 * character);
}

void PlacementGrid::setCurrentRow(int row) {
    const QScopedValueRollback<bool> guard(settingRow_, true);
    const QModelIndex wanted = row < 0 ? QModelIndex() : model()->index(row, 0);
    if (!wanted.isValid()) {
        selectionModel()->clear();
        return;
    }
    selectionModel()->setCurrentIndex(wanted,
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    // Sideways the view stays where the user put it.
    scrollTo(model()->index(row, std::max(0, columnAt(viewport()->width() / 2))));
}

void PlacementGrid::keyPressEvent(QKeyEvent* event) {
    // Lower case only, and not once more for a key that is held down: each removes a placement at once.
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (plain && event->text() == QLatin1String("r")) {
        if (!event->isAutoRepeat())
            emit removeTyped();
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void PlacementGrid::keyboardSearch(const QString&) {
    // Deliberate: characters are commands here.
}

void PlacementGrid::mousePressEvent(QMouseEvent* event) {
    if (!indexAt(event->pos()).isValid()) {
        event->accept(); // below the rows: the selection stays
        return;
    }
    reported_ = false;
    QTableView::mousePressEvent(event);
    // A press on the row that is current already counts as well: the catalogue may stand elsewhere.
    if (!reported_ && currentIndex().isValid())
        emit rowChosen(currentIndex().row());
}

void PlacementGrid::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex at = byKey ? currentIndex() : indexAt(event->pos());
    if (!at.isValid())
        return;
    if (byKey)
        scrollTo(at);
    else if (at.row() != currentIndex().row())
        selectRow(at.row());
    emit menuWanted(byKey ? viewport()->mapToGlobal(visualRect(at).bottomLeft()) : event->globalPos());
}

void PlacementGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!emptyText || (model() && model()->rowCount() > 0))
        return;
    QPainter painter(viewport());
    painter.setPen(quietText(palette()));
    const int margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, emptyText());
}

QModelIndex PlacementGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    // Home and End go to the first and last row; columns mean nothing to the selection.
    if (action == MoveHome || action == MoveEnd)
        return model()->index(action == MoveHome ? 0 : model()->rowCount() - 1, 0);
    return QTableView::moveCursor(action, modifiers);
}

QItemSelectionModel::SelectionFlags PlacementGrid::selectionCommand(const QModelIndex& index,
                                                                    const QEvent*) const {
    // Without this Ctrl+click would take the selection away.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate);
}

void PlacementGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (settingRow_ || !current.isValid() || current.row() == previous.row())
        return;
    reported_ = true;
    emit rowChosen(current.row());
}

} // namespace quillset
