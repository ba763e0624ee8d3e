#pragma once

#include <QLabel>
#include <QToolButton>

namespace quillset {

enum class Bevel { none, inset, raised };

/// One panel of the status bar that shows a text.
class StatusPanel : public QLabel {
    Q_OBJECT
public:
    explicit StatusPanel(QWidget* parent = nullptr);

    void setBevel(Bevel bevel);
};

/// A panel that is switched on and off: sunk when on; when off, raised with a grey text, and it takes clicks
/// all the same.
class SwitchPanel : public QToolButton {
    Q_OBJECT
public:
    explicit SwitchPanel(QWidget* parent = nullptr);

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override;
};

} // namespace quillset
