#pragma once

#include <QLineEdit>

#include <functional>

class QKeyEvent;

namespace quillset {

/// Character code of a key press as the key events of the sheet deliver it: 8 Backspace, 9 Tab and Shift+Tab,
/// 13 Enter, 27 Escape, else the character; 0 for a key without one.
[[nodiscard]] int characterCode(const QKeyEvent& event);
/// Shift 1, Control 2, Alt 4, added up; the keypad and group switches do not count.
[[nodiscard]] int shiftState(const QKeyEvent& event);

/// A text box that tells about its keys before it acts on them, and that takes no character that its filter
/// refuses: typed, composed, pasted or dropped.
class LineEditor : public QLineEdit {
    Q_OBJECT
public:
    explicit LineEditor(QWidget* parent = nullptr);

    /// Without a filter every character is taken.
    void setCharacterFilter(std::function<bool(char32_t)> accepts) { accepts_ = std::move(accepts); }

signals:
    /// Before the key acts. A receiver may change the code, or set it to 0 to swallow the key.
    void keyDown(int& keyCode, int shift);
    void keyPress(int& keyAscii);
    void focusGained();
    /// The focus went to another control; not for menus, popups and other programs, from which it comes back.
    void focusLost();

protected:
    bool event(QEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] QString filtered(const QString& text) const;
    bool keyEvent(QKeyEvent* event);
    void insertFromClipboard();

    std::function<bool(char32_t)> accepts_;
};

} // namespace quillset
