#pragma once

#include "base/dialogs.h"

#include <QPointer>
#include <QWidget>

class QMessageBox;

namespace quillset {

/// The real dialogs, owned by the main window once there is one.
class QtDialogs : public Dialogs {
public:
    void setParent(QWidget* parent) { parent_ = parent; }

    Answer ask(const Message& message) override;
    Quiet tellQuietable(const Message& message, const std::string& checkBox) override;
    std::string openFile(const FileRequest& request) override;
    std::string saveFile(const FileRequest& request) override;
    std::string chooseFolder(const std::string& instruction) override;

private:
    QPointer<QWidget> parent_;
};

} // namespace quillset
