#pragma once

#include "document/object_list.h"

#include <QWidget>

namespace quillset {

class ErrorFunctions;
class PlacementGrid;
class PlacementModel;

/// The object list window: a grid named XMLList over the placements of the open document. Shell owns what
/// happens around it: its caption, the context menu and the question on closing.
class frmXMLList : public QWidget {
    Q_OBJECT
public:
    frmXMLList(ObjectList& list, ErrorFunctions& errors, QWidget* parent = nullptr);

signals:
    /// The context menu of the selected row is wanted there (global position).
    void contextMenuWanted(const QPoint& position, const ListCommands& commands);
    /// The user wants to close the window; it stays until somebody hides it.
    void closeWanted();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QString emptyText() const;

    ObjectList& list_;
    ErrorFunctions& errors_;
    PlacementModel* model_;
    PlacementGrid* grid_;
    Connection selection_;
};

} // namespace quillset
