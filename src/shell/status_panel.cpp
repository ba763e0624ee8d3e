#include "shell/status_panel.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace quillset {

StatusPanel::StatusPanel(QWidget* parent)
    : QLabel(parent) {
    setContentsMargins(6, 0, 6, 0);
    setTextFormat(Qt::PlainText);
}

void StatusPanel::setBevel(Bevel bevel) {
    switch (bevel) {
    case Bevel::none:
        setFrameStyle(QFrame::NoFrame);
        break;
    case Bevel::inset:
        setFrameStyle(QFrame::Panel | QFrame::Sunken);
        break;
    case Bevel::raised:
        setFrameStyle(QFrame::Panel | QFrame::Raised);
        break;
    }
}

void StatusPanel::setSwitchedOn(bool on) {
    setForegroundRole(on ? QPalette::WindowText : QPalette::PlaceholderText);
}

void StatusPanel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit clicked();
}

void StatusPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return)
        emit clicked();
    else
        QLabel::keyPressEvent(event);
}

} // namespace quillset
