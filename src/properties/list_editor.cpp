#include "properties/list_editor.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWheelEvent>

namespace quillset {

ListEditor::ListEditor(QWidget* parent)
    : QComboBox(parent)
    , textBox_(new LineEditor) {
    setEditable(true);
    setLineEdit(textBox_);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    connect(textBox_, &LineEditor::focusLost, this, [this] {
        if (!opening_ && !view()->isVisible())
            emit focusLost();
    });
}

void ListEditor::fill(const QStringList& items, const QString& text) {
    clear();
    addItems(items);
    setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive)); // where the arrow keys start
    setEditText(text);
}

void ListEditor::showPopup() {
    emit dropDown();
    const QScopedValueRollback opening(opening_, true);
    QComboBox::showPopup();
}

bool ListEditor::event(QEvent* event) {
    // The control holds the focus and hands its keys to the text box, but Tab it would take for itself.
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab)
            return QApplication::sendEvent(textBox_, event);
    }
    return QComboBox::event(event);
}

void ListEditor::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

} // namespace quillset
