#pragma once

#include "catalogue/catalogue_tree.h"

#include <QWidget>

#include <functional>
#include <set>
#include <string>
#include <vector>

class QLineEdit;

namespace quillset {

class ObjectTreeModel;
class ObjectTreeView;

/// The catalogue window: a tree named ObjTree of everything that can be placed, under a search line. The
/// selection is that of the `CatalogueTree`, in both directions. Everything passed by reference must outlive
/// the window.
class frmObjTree : public QWidget {
    Q_OBJECT
public:
    /// `listState` tells what the object list allows at the moment it is called.
    frmObjTree(CatalogueTree& tree, ErrorFunctions& errors, std::function<ListState()> listState,
               QWidget* parent = nullptr);

    /// Moves the keyboard to the search line and selects its text.
    void focusSearch();
    [[nodiscard]] QSize sizeHint() const override;

signals:
    /// The key of a command was typed while that command was enabled.
    void addNewBeforeWanted();
    void addNewEndWanted();
    /// The context menu of the selected node is wanted there (global position).
    void contextMenuWanted(const QPoint& position);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Places the controls; an error in it is the window's "Form_Resize".
    virtual void arrange();

private:
    void buildSearchLine();
    void buildTreeView();
    void followCatalogue();
    bool searchKey(int key);
    void chooseFirstMatch();
    void choose(const QModelIndex& index);
    void openNodes();
    void showSelection();

    CatalogueTree& tree_;
    ErrorFunctions& errors_;
    std::function<ListState()> listState_;
    ObjectTreeModel* model_;
    QLineEdit* txt_search_;
    ObjectTreeView* ObjTree_;
    /// Keys of the nodes that the user has opened, for the time after a scan or a search.
    std::set<std::string> expanded_;
    /// Nodes are opened and closed by program, not by the user.
    bool filling_ = false;
    std::vector<Connection> connections_;
};

} // namespace quillset
