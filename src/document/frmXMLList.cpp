#include "document/frmXMLList.h"

#include "base/error_functions.h"
#include "document/placement_grid.h"
#include "document/placement_model.h"

#include <QCloseEvent>

namespace quillset {

frmXMLList::frmXMLList(ObjectList& list, ErrorFunctions& errors, QWidget* parent)
    : QWidget(parent)
    , list_(list)
    , errors_(errors)
    , model_(new PlacementModel(list, this))
    , grid_(new PlacementGrid(this)) {
    setObjectName(QStringLiteral("frmXMLList"));
    grid_->setObjectName(QStringLiteral("XMLList"));
    grid_->setAccessibleName(QStringLiteral("Object list"));
    grid_->setAccessibleDescription(
        QStringLiteral("The placements of the open document, in their order in the file"));
    grid_->emptyText = [this] { return emptyText(); };
    grid_->showRows(model_);
    grid_->setCurrentRow(list_.selectedRow() - 1);
    setFocusProxy(grid_);

    // Connected after the model, so that the rows are in place when the selection follows.
    selection_ = list_.selectionChanged.connect([this](int row) { grid_->setCurrentRow(row - 1); });
    connect(grid_, &PlacementGrid::rowChosen, this, [this](int row) {
        if (!model_->isChanging())
            errors_.trapped("XMLListClick", objectListForm, [&] { list_.click(row + 1); });
    });
    connect(grid_, &PlacementGrid::removeTyped, this,
            [this] { errors_.trapped("removeObject", objectListForm, [&] { list_.removeObject(); }); });
    connect(grid_, &PlacementGrid::menuWanted, this, [this](const QPoint& position) {
        emit contextMenuWanted(position, list_.setXMLListMenuOptions());
    });
}

QString frmXMLList::emptyText() const {
    return list_.canTakePlacements()
               ? QStringLiteral("No placements yet.\nPick something in the catalogue and choose\n"
                                "Objects > Add new object at end of list.")
               : QStringLiteral("This scenery file could not be read: there is nothing to show or to edit.\n"
                                "The file itself is unchanged.");
}

void frmXMLList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    errors_.trapped("Form_Resize", objectListForm, [this] { grid_->setGeometry(rect()); });
}

void frmXMLList::closeEvent(QCloseEvent* event) {
    event->ignore();
    emit closeWanted();
}

} // namespace quillset
