#pragma once

#include "base/progress.h"

#include <QElapsedTimer>
#include <QPointer>

class QProgressDialog;
class QWidget;

namespace quillset {

/// A progress bar with a Cancel button before the main window; appears only when a command takes longer than
/// half a second, and keeps all other input away from the windows meanwhile.
class ProgressWindow : public Progress {
public:
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
