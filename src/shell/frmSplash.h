#pragma once

#include <QLabel>
#include <QWidget>

namespace quillset {

/// The window shown while the program starts: title, version, and what is being done.
class frmSplash : public QWidget {
    Q_OBJECT
public:
    frmSplash();

    void setSplashText(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* text_;
};

} // namespace quillset
