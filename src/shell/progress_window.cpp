#include "shell/progress_window.h"

#include <QApplication>
#include <QProgressDialog>

namespace quillset {

namespace {

constexpr qint64 refreshTime = 40; // milliseconds between two pictures

} // namespace

void ProgressWindow::begin(const std::string& what, std::size_t total) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    dialog_ = new QProgressDialog(QString::fromStdString(what), QObject::tr("Cancel"), 0,
                                  static_cast<int>(total), parent_);
    dialog_->setObjectName(QStringLiteral("progress"));
    dialog_->setWindowTitle(QStringLiteral("Quillset XML"));
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->setMinimumDuration(static_cast<int>(patience.count()));
    dialog_->setAutoReset(false);
    dialog_->setValue(0);
    sinceShown_.start();
}

bool ProgressWindow::goOn(std::size_t done) {
    // Until the window keeps the others from the user, no event may be handled: a command of the main window
    // could change or drop the document meanwhile.
    const bool shown = dialog_->isVisible();
    if (sinceShown_.elapsed() >= (shown ? refreshTime : patience.count())) {
        if (!shown) {
            QApplication::changeOverrideCursor(Qt::ArrowCursor); // the button must not look out of reach
            dialog_->show();
        }
        dialog_->setValue(static_cast<int>(done));
        QApplication::processEvents();
        sinceShown_.restart();
    }
    return !dialog_->wasCanceled();
}

void ProgressWindow::end() {
    QApplication::restoreOverrideCursor();
    // At once: it is only deleted after the messages that may follow the command.
    dialog_->hide();
    dialog_->deleteLater();
}

} // namespace quillset
