#include "shell/status_panel.h"

#include <QStyleOptionToolButton>

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

SwitchPanel::SwitchPanel(QWidget* parent)
    : QToolButton(parent) {
    setCheckable(true);
    setChecked(true);
    setFocusPolicy(Qt::TabFocus);
}

void SwitchPanel::initStyleOption(QStyleOptionToolButton* option) const {
    QToolButton::initStyleOption(option);
    if (!isChecked())
        option->palette.setColor(QPalette::ButtonText, option->palette.color(QPalette::PlaceholderText));
}

} // namespace quillset
