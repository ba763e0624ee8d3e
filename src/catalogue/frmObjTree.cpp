#include "catalogue/frmObjTree.h"

#include "base/error_functions.h"
#include "catalogue/object_tree_model.h"
#include "catalogue/object_tree_view.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>

#include <utility>

namespace quillset {

namespace {

constexpr const char* formName = "frmObjTree";

} // namespace

frmObjTree::frmObjTree(CatalogueTree& tree, ErrorFunctions& errors, std::function<ListState()> listState,
                       QWidget* parent)
    : QWidget(parent)
    , tree_(tree)
    , errors_(errors)
    , listState_(std::move(listState))
    , model_(new ObjectTreeModel(tree, this))
    , txt_search_(new QLineEdit(this))
    , ObjTree_(new ObjectTreeView(this)) {
    setObjectName(QStringLiteral("frmObjTree"));
    setWindowTitle(QStringLiteral("Object tree"));
    buildSearchLine();
    buildTreeView();
    followCatalogue();
    openNodes();
}

void frmObjTree::buildSearchLine() {
    txt_search_->setObjectName(QStringLiteral("txt_search"));
    txt_search_->setPlaceholderText(QStringLiteral("Search objects"));
    txt_search_->setAccessibleName(QStringLiteral("Search objects"));
    txt_search_->setToolTip(QStringLiteral("Show only objects with these words in their names (Ctrl+F); "
                                           "Esc shows all again"));
    txt_search_->setClearButtonEnabled(true);
    if (auto* const clear = txt_search_->findChild<QToolButton*>())
        clear->setAccessibleName(QStringLiteral("Clear the search"));
    txt_search_->installEventFilter(this);
    connect(txt_search_, &QLineEdit::textChanged, this,
            [this](const QString& text) { model_->setSearchText(text.toStdString()); });
    auto* const shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, &frmObjTree::focusSearch);
}

void frmObjTree::buildTreeView() {
    ObjTree_->setObjectName(QStringLiteral("ObjTree"));
    ObjTree_->setAccessibleName(QStringLiteral("Object tree"));
    ObjTree_->setAccessibleDescription(
        QStringLiteral("Everything that can be placed; p adds the selected object before the selected row of "
                       "the object list, e at its end"));
    ObjTree_->setModel(model_);
    // Not the current node: the keyboard's arrival alone makes the root current, but chooses nothing.
    connect(ObjTree_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected) { choose(selected.indexes().value(0)); });
    connect(ObjTree_, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        if (!filling_ && !model_->filter().active())
            expanded_.emplace(tree_.nodes().at(*model_->nodeOf(index)).key);
    });
    connect(ObjTree_, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        if (!filling_ && !model_->filter().active())
            expanded_.erase(std::string(tree_.nodes().at(*model_->nodeOf(index)).key));
    });
    // Enabled or not is asked anew: the menu that shows it may not have been opened for a while.
    connect(ObjTree_, &ObjectTreeView::addBeforeTyped, this, [this] {
        if (tree_.setTreeMenuOptions(listState_()).addNewBefore)
            emit addNewBeforeWanted();
    });
    connect(ObjTree_, &ObjectTreeView::addEndTyped, this, [this] {
        if (tree_.setTreeMenuOptions(listState_()).addNewEnd)
            emit addNewEndWanted();
    });
    connect(ObjTree_, &QWidget::customContextMenuRequested, this, [this](const QPoint& position) {
        emit contextMenuWanted(ObjTree_->viewport()->mapToGlobal(position));
    });
}

void frmObjTree::followCatalogue() {
    connect(model_, &QAbstractItemModel::modelReset, this, &frmObjTree::openNodes);
    connections_.push_back(tree_.selectionChanged.connect([this] {
        model_->showSelected();
        showSelection();
    }));
}

void frmObjTree::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    errors_.trapped("Form_Resize", formName, [this] { arrange(); });
}

QSize frmObjTree::sizeHint() const {
    return {36 * fontMetrics().averageCharWidth(), 30 * fontMetrics().height()};
}

// No focus proxy: on its way forward Tab would go to the tree at once, past the search line.
void frmObjTree::focusInEvent(QFocusEvent* event) {
    ObjTree_->setFocus(event->reason());
}

void frmObjTree::arrange() {
    const int lineHeight = txt_search_->sizeHint().height();
    txt_search_->setGeometry(0, 0, width(), lineHeight);
    ObjTree_->setGeometry(0, lineHeight, width(), qMax(0, height() - lineHeight));
}

void frmObjTree::focusSearch() {
    txt_search_->setFocus(Qt::ShortcutFocusReason);
    txt_search_->selectAll();
}

bool frmObjTree::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txt_search_ && event->type() == QEvent::KeyPress &&
        searchKey(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QWidget::eventFilter(watched, event);
}

bool frmObjTree::searchKey(int key) {
    switch (key) {
    case Qt::Key_Escape:
        if (txt_search_->text().isEmpty())
            ObjTree_->setFocus(Qt::OtherFocusReason);
        txt_search_->clear();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        chooseFirstMatch();
        return true;
    case Qt::Key_Down:
        ObjTree_->setFocus(Qt::OtherFocusReason);
        return true;
    default:
        return false;
    }
}

void frmObjTree::chooseFirstMatch() {
    const std::optional<NodeId> first = model_->filter().firstMatch();
    if (!first)
        return;
    ObjTree_->setCurrentIndex(model_->indexOf(*first));
    ObjTree_->setFocus(Qt::OtherFocusReason);
}

void frmObjTree::choose(const QModelIndex& index) {
    const std::optional<NodeId> id = model_->nodeOf(index);
    if (id)
        errors_.trapped("ObjTree_NodeClick", formName, [&] { tree_.select(*id); });
}

void frmObjTree::openNodes() {
    filling_ = true;
    if (model_->filter().active()) {
        ObjTree_->expandAll();
    } else {
        ObjTree_->expand(model_->indexOf(0));
        for (const std::string& key : expanded_)
            if (const std::optional<NodeId> id = tree_.nodes().find(key))
                ObjTree_->expand(model_->indexOf(*id));
    }
    filling_ = false;
    const bool nothing = model_->filter().active() && !model_->filter().firstMatch();
    ObjTree_->setHint(nothing ? QStringLiteral("No object has this name") : QString());
    showSelection();
}

void frmObjTree::showSelection() {
    const std::optional<NodeId> selected = tree_.selectedId();
    const QModelIndex index = selected ? model_->indexOf(*selected) : QModelIndex();
    if (!index.isValid() || ObjTree_->selectionModel()->isSelected(index))
        return;
    ObjTree_->setCurrentIndex(index); // opens the nodes above and scrolls
}

} // namespace quillset
