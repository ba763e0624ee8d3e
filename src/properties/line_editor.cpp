#include "properties/line_editor.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

#include <memory>

namespace quillset {

namespace {

constexpr int tab = 9;

bool isControl(int code) {
    return code < 0x20 || code == 0x7F;
}

bool comesBack(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

} // namespace

int characterCode(const QKeyEvent& event) {
    const bool plain = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
    if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab)
        return plain ? tab : 0;
    if (event.key() == Qt::Key_Delete)
        return 0; // some platforms deliver a character for it
    const QList<uint> characters = event.text().toUcs4();
    return characters.isEmpty() ? 0 : static_cast<int>(characters.first());
}

int shiftState(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) + (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

LineEditor::LineEditor(QWidget* parent)
    : QLineEdit(parent) {}

QString LineEditor::filtered(const QString& text) const {
    if (!accepts_)
        return text;
    QString accepted;
    for (const uint character : text.toUcs4()) {
        const auto code = static_cast<char32_t>(character);
        if (accepts_(code))
            accepted += QString::fromUcs4(&code, 1);
    }
    return accepted;
}

bool LineEditor::event(QEvent* event) {
    // Before the base class: it would let Tab leave the control without a key event.
    if (event->type() == QEvent::KeyPress && keyEvent(static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

/// Tells about the key and filters its character; true when nothing is left to do.
bool LineEditor::keyEvent(QKeyEvent* event) {
    int keyCode = event->key();
    emit keyDown(keyCode, shiftState(*event));
    if (keyCode == 0)
        return true;
    const int typed = characterCode(*event);
    int code = typed;
    if (typed != 0)
        emit keyPress(code);
    if (typed != 0 && code == 0)
        return true;
    if (event->matches(QKeySequence::Paste)) {
        insertFromClipboard();
        return true;
    }
    const auto character = static_cast<char32_t>(code);
    if (!isControl(code) && accepts_ && !accepts_(character))
        return true;
    if (code == typed && keyCode == event->key())
        return false;
    QKeyEvent changed(QEvent::KeyPress, keyCode, event->modifiers(), QString::fromUcs4(&character, 1));
    QLineEdit::event(&changed);
    return true;
}

void LineEditor::inputMethodEvent(QInputMethodEvent* event) {
    QInputMethodEvent accepted(event->preeditString(), event->attributes());
    accepted.setCommitString(filtered(event->commitString()), event->replacementStart(),
                             event->replacementLength());
    QLineEdit::inputMethodEvent(&accepted);
    event->accept();
}

void LineEditor::insertFromClipboard() {
    insert(filtered(QApplication::clipboard()->text()));
}

void LineEditor::contextMenuEvent(QContextMenuEvent* event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    for (QAction* const action : menu->actions()) {
        if (!action->text().startsWith(QLineEdit::tr("&Paste")))
            continue;
        action->disconnect();
        connect(action, &QAction::triggered, this, &LineEditor::insertFromClipboard);
    }
    menu->exec(event->globalPos());
}

void LineEditor::mouseReleaseEvent(QMouseEvent* event) {
    QClipboard* const clipboard = QApplication::clipboard();
    if (event->button() != Qt::MiddleButton || !clipboard->supportsSelection()) {
        QLineEdit::mouseReleaseEvent(event);
        return;
    }
    deselect();
    insert(filtered(clipboard->text(QClipboard::Selection)));
}

void LineEditor::dropEvent(QDropEvent* event) {
    QMimeData dropped;
    dropped.setText(filtered(event->mimeData()->text()));
    QDropEvent accepted(event->position(), event->possibleActions(), &dropped, event->buttons(),
                        event->modifiers());
    accepted.setDropAction(event->dropAction());
    QLineEdit::dropEvent(&accepted);
    event->setDropAction(accepted.dropAction());
    event->setAccepted(accepted.isAccepted());
}

void LineEditor::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!comesBack(event->reason()))
        emit focusGained();
}

void LineEditor::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!comesBack(event->reason()))
        emit focusLost();
}

} // namespace quillset
