#pragma once

#include "properties/line_editor.h"

#include <QComboBox>

namespace quillset {

/// A drop-down list whose text may also be typed. It completes nothing, and the mouse wheel goes past it to
/// the view behind: both would change a value by accident.
class ListEditor : public QComboBox {
    Q_OBJECT
public:
    explicit ListEditor(QWidget* parent = nullptr);

    [[nodiscard]] LineEditor* textBox() const { return textBox_; }
    /// Fills the list anew and shows `text`, whether the list holds it or not.
    void fill(const QStringList& items, const QString& text);
    void showPopup() override;

signals:
    /// Before the list opens.
    void dropDown();
    /// The focus went to another control, the list of this one not counted.
    void focusLost();

protected:
    bool event(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    LineEditor* textBox_;
    bool opening_ = false;
};

} // namespace quillset
