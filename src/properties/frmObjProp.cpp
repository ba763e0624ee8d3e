#include "properties/frmObjProp.h"

#include "base/error_functions.h"
#include "properties/cell_editors.h"
#include "properties/property_grid.h"
#include "properties/sheet_layout.h"

#include <QAction>
#include <QHideEvent>
#include <QLabel>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>

#include <utility>

namespace quillset {

namespace {

QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QRect toPixels(const SheetRectangle& twips) {
    const auto pixels = [](int length) { return qRound(static_cast<double>(length) / twipsPerLogicalPixel); };
    return {pixels(twips.left), pixels(twips.top), pixels(twips.width), pixels(twips.height)};
}

} // namespace

frmObjProp::frmObjProp(PropertyEditor& editor, ErrorFunctions& errors, std::function<int()> dockStatus,
                       QWidget* parent)
    : QWidget(parent)
    , editor_(editor)
    , errors_(errors)
    , dockStatus_(std::move(dockStatus))
    , grid_(new PropertyGrid(this))
    , editors_(new CellEditors(*grid_->viewport(), editor))
    , label_(new QLabel(this))
    , mCoordinate_(new QMenu(this)) {
    setObjectName(QStringLiteral("frmObjProp"));
    setWindowTitle(QStringLiteral("Object properties"));
    setFocusProxy(grid_);
    label_->setObjectName(QStringLiteral("lbl_prop"));
    label_->setAccessibleDescription(QStringLiteral("Description of the property"));
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    label_->setContentsMargins(2, 2, 2, 0);
    label_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    grid_->setRowHeight(editors_->rowHeight());
    connectGrid();
    buildMenu();
    editor_.showIn(this);
    for (const PropertyRow& row : editor_.rows())
        rowAdded(row, grid_->rowCount() == editor_.currentRow());
}

frmObjProp::~frmObjProp() {
    editor_.showIn(nullptr); // what an open editor holds is dropped: the document may be gone already
}

void frmObjProp::connectGrid() {
    connect(grid_, &QTableWidget::currentCellChanged, this, [this](int row) {
        if (!following_ && row >= 0)
            editor_.setCurrentRow(row);
    });
    connect(grid_, &PropertyGrid::keyPress, this, [this](int& keyAscii, int shift) {
        if (editor_.processKeyPress(keyAscii, shift == 1))
            keyAscii = 0;
    });
    connect(grid_, &PropertyGrid::editWanted, this, [this] { editor_.beginEdit(editor_.currentRow()); });
    connect(grid_, &PropertyGrid::mouseUp, this, &frmObjProp::onMouseUp);
    connect(grid_, &PropertyGrid::menuWanted, this, [this] {
        const QRect cell = grid_->valueCell(editor_.currentRow());
        showMenu(editor_.currentRow(), grid_->viewport()->mapToGlobal(cell.bottomLeft()));
        mCoordinate_->setActiveAction(mCoorEntry_[0]); // the keyboard goes on from there
    });
    connect(grid_, &PropertyGrid::cellsMoved, this, [this] {
        if (editors_->isOpen())
            editors_->place(grid_->valueCell(editor_.currentRow()));
    });
}

void frmObjProp::buildMenu() {
    mCoordinate_->setObjectName(QStringLiteral("mCoordinate"));
    for (int index = 0; index < 2; ++index) {
        QAction* const entry = mCoordinate_->addAction(QString());
        entry->setObjectName(QStringLiteral("mCoorEntry(%1)").arg(index));
        connect(entry, &QAction::triggered, this, [this, index] { editor_.mCoorEntry_Click(index); });
        mCoorEntry_[static_cast<std::size_t>(index)] = entry;
    }
}

void frmObjProp::rowsCleared() {
    const QScopedValueRollback following(following_, true);
    grid_->setRowCount(0);
    if (editor_.getXMLListCount() < 0)
        label_->clear();
}

void frmObjProp::rowAdded(const PropertyRow& row, bool isCurrent) {
    const QScopedValueRollback following(following_, true);
    grid_->addRow(toQt(row.name), toQt(row.value));
    if (!isCurrent)
        return;
    describe(editor_.currentRow());
    // Once all rows are there: laying out a half-filled grid would lose the place the user has scrolled to.
    QTimer::singleShot(0, this, [this] { highlight(editor_.currentRow()); });
}

void frmObjProp::valueChanged(int row, const std::string& value) {
    grid_->setValue(row, toQt(value));
}

void frmObjProp::currentRowChanged(int row, std::optional<WalkDirection> walk) {
    highlight(row);
    QScrollBar* const bar = grid_->verticalScrollBar();
    if (walk)
        bar->setValue(topRowAfterWalk({grid_->rowCount(), bar->value(), grid_->visibleRows()}, row, *walk));
    describe(row);
}

void frmObjProp::highlight(int row) {
    // The view's own scrolling would undo the place that a refill or a walk keeps.
    const QScopedValueRollback following(following_, true);
    grid_->setAutoScroll(false);
    grid_->setCurrentCell(row, PropertyGrid::valueColumn);
    grid_->setAutoScroll(true);
}

void frmObjProp::describe(int row) {
    const auto text = propertyDescription(editor_.rows()[static_cast<std::size_t>(row)].name);
    if (!text)
        return; // deliberate: the last description stays
    label_->setText(toQt(*text));
    label_->setToolTip(QStringLiteral("<p>%1</p>").arg(toQt(*text)));
}

void frmObjProp::editorOpened(const EditSession& session) {
    grid_->scrollTo(grid_->model()->index(session.row, PropertyGrid::valueColumn));
    grid_->setKeysTaken(true);
    editors_->open(session, grid_->valueCell(session.row));
}

void frmObjProp::editorTextReplaced(const std::string& text) {
    editors_->replaceText(toQt(text));
}

void frmObjProp::settleEditor() {
    editors_->settle();
}

void frmObjProp::editorClosed() {
    // Before hiding it: the toolkit would hand its focus to some other window.
    if (editors_->hasFocus())
        grid_->setFocus(Qt::OtherFocusReason);
    editors_->close();
    grid_->setKeysTaken(false);
}

void frmObjProp::onMouseUp(Qt::MouseButton button, int row, int column, const QPoint& globalPlace) {
    errors_.trapped("ObjProp_MouseUp", "frmObjProp", [&] {
        if (button == Qt::RightButton) {
            editor_.setNewData();
            editor_.setCurrentRow(row);
            showMenu(row, globalPlace);
        } else if (button == Qt::LeftButton && row >= 0) {
            editor_.setCurrentRow(row);
            describe(row);
            if (column == PropertyGrid::valueColumn)
                editor_.beginEdit(row);
        }
    });
}

void frmObjProp::showMenu(int row, const QPoint& globalPlace) {
    if (row < 0 || row >= static_cast<int>(editor_.rows().size()))
        return;
    const auto coordinate = coordinateOfProperty(editor_.rows()[static_cast<std::size_t>(row)].name);
    if (!coordinate)
        return;
    const CoordinateCaptions captions = captionsOf(*coordinate);
    mCoorEntry_[0]->setText(toQt(captions.read));
    mCoorEntry_[1]->setText(toQt(captions.write));
    mCoordinate_->popup(globalPlace);
}

void frmObjProp::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) // closed or undocked, not minimised
        editor_.setNewData();
}

void frmObjProp::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        grid_->setRowHeight(editors_->rowHeight());
}

QSize frmObjProp::sizeHint() const {
    // The longest names and a line of description, and the properties that every placement has.
    return {fontMetrics().averageCharWidth() * 48, editors_->rowHeight() * 16};
}

void frmObjProp::resizeEvent(QResizeEvent*) {
    errors_.trapped("Form_Resize", "frmObjProp", [this] { layOut(); });
}

void frmObjProp::layOut() {
    const QSize outer = frameGeometry().size() * twipsPerLogicalPixel;
    const auto layout = sheetLayout(dockStatus_(), outer.width(), outer.height());
    if (!layout)
        return;
    grid_->setGeometry(toPixels(layout->grid));
    label_->setGeometry(toPixels(layout->label));
}

} // namespace quillset
