#pragma once

#include <QLabel>

namespace quillset {

enum class Bevel { none, inset, raised };

/// One panel of the status bar. It takes clicks also when it looks switched off.
class StatusPanel : public QLabel {
    Q_OBJECT
public:
    explicit StatusPanel(QWidget* parent = nullptr);

    void setBevel(Bevel bevel);
    /// Grey text when off.
    void setSwitchedOn(bool on);

signals:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace quillset
