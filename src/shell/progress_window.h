#pragma once

#include "base/progress.h"

#include <QElapsedTimer>
#include <QPointer>

#include <chrono>

class QProgressDialog;
class QWidget;

namespace quillset {

/// A progress bar with a Cancel button before the main window; appears only when a command takes long, and
/// keeps all other input away from the windows meanwhile.
class ProgressWindow : public Progress {
public:
    /// A command that ends sooner never shows the window.
    std::chrono::milliseconds patience{500};

    void setParent(QWidget* parent) { parent_ = parent; }

    void begin(const std::string& what, std::size_t total) override;
    [[nodiscard]] bool goOn(std::size_t done) override;
    void end() override;

private:
    QPointer<QWidget> parent_;
    QPointer<QProgressDialog> dialog_;
    QElapsedTimer sinceShown_;
};

} // namespace quillset
