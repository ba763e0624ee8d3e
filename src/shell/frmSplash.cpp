#include "shell/frmSplash.h"

#include "shell/command_icons.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace quillset {

frmSplash::frmSplash()
    : QWidget(nullptr, Qt::SplashScreen)
    , text_(new QLabel(this)) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QStringLiteral("Quillset XML"));
    setFixedSize(440, 240);

    auto* const picture = new QLabel(this);
    picture->setPixmap(programIcon().pixmap(QSize(72, 72), devicePixelRatioF()));
    auto* const title = new QLabel(QStringLiteral("Quillset XML"), this);
    QFont titleFont = title->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 2.2);
    title->setFont(titleFont);
    auto* const version = new QLabel(QStringLiteral("Version " QUILLSET_VERSION), this);
    version->setObjectName(QStringLiteral("lblVersion"));
    text_->setObjectName(QStringLiteral("lblSplash"));

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(28, 28, 28, 20);
    layout->addWidget(picture);
    layout->addWidget(title);
    layout->addWidget(version);
    layout->addStretch();
    layout->addWidget(text_);
    if (const QScreen* const screen = QApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}

void frmSplash::setSplashText(const QString& text) {
    text_->setText(text);
    // Start-up blocks the event loop: without this the text would be seen only when it is over.
    repaint();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmSplash::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.fillRect(QRect(0, 0, width(), 4), palette().highlight());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace quillset
