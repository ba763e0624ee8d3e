#include "catalogue/object_tree_view.h"

#include <QKeyEvent>
#include <QPainter>

namespace quillset {

namespace {

constexpr char16_t addBeforeKey = 112; // "p"
constexpr char16_t addEndKey = 101;    // "e"

// The character that a key types; nothing for shortcuts.
char16_t typedCharacter(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers shortcut = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if ((event.modifiers() & shortcut) != Qt::NoModifier || event.text().size() != 1)
        return 0;
    return event.text().front().unicode();
}

} // namespace

ObjectTreeView::ObjectTreeView(QWidget* parent)
    : QTreeView(parent) {
    setHeaderHidden(true);
    setUniformRowHeights(true); // else every row is measured
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

void ObjectTreeView::setHint(const QString& hint) {
    hint_ = hint;
    viewport()->update();
}

void ObjectTreeView::keyPressEvent(QKeyEvent* event) {
    const char16_t typed = typedCharacter(*event);
    if (typed != addBeforeKey && typed != addEndKey) {
        QTreeView::keyPressEvent(event);
        return;
    }
    event->accept();
    if (typed == addBeforeKey)
        emit addBeforeTyped();
    else
        emit addEndTyped();
}

void ObjectTreeView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (hint_.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, hint_);
}

QItemSelectionModel::SelectionFlags ObjectTreeView::selectionCommand(const QModelIndex& index,
                                                                     const QEvent*) const {
    // A click beside the nodes, or with Ctrl on the selected one, must not take the selection away.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::NoUpdate;
}

} // namespace quillset
