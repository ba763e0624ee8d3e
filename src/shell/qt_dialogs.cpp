#include "shell/qt_dialogs.h"

#include "base/paths.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMessageBox>

namespace quillset {

namespace {

// A Yes/No question has no Cancel, so neither Escape nor the close box may answer it: "No" can lose work.
class QuestionBox : public QMessageBox {
public:
    QuestionBox(QWidget* parent, bool mustAnswer)
        : QMessageBox(parent)
        , mustAnswer_(mustAnswer) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (mustAnswer_ && event->key() == Qt::Key_Escape)
            event->accept();
        else
            QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override {
        if (mustAnswer_)
            event->ignore();
        else
            QMessageBox::closeEvent(event);
    }

private:
    bool mustAnswer_;
};

QMessageBox::StandardButtons buttonsOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::yesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::yesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::ok:
        break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::information:
        return QMessageBox::Information;
    case MessageIcon::question:
        return QMessageBox::Question;
    case MessageIcon::critical:
        return QMessageBox::Critical;
    case MessageIcon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

void fill(QMessageBox& box, const Message& message) {
    box.setObjectName(QStringLiteral("messageBox"));
    box.setWindowTitle(QString::fromStdString(message.title));
    box.setTextFormat(Qt::PlainText);
    // In one text with the detail: the toolkit's place for it would take a file name for markup.
    const std::string text = message.detail.empty() ? message.text : message.text + "\n\n" + message.detail;
    box.setText(QString::fromStdString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    box.setIcon(iconOf(message.icon));
    box.setStandardButtons(buttonsOf(message.buttons));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
}

Answer answerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return Answer::yes;
    case QMessageBox::No:
        return Answer::no;
    case QMessageBox::Ok:
        return Answer::ok;
    default:
        return Answer::cancel;
    }
}

// "Text (*.a)|*.a|" as the toolkit writes it: "Text (*.a)"; several pairs are joined by ";;".
QString toolkitFilter(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split(u'|', Qt::SkipEmptyParts);
    QStringList descriptions;
    for (int i = 0; i < parts.size(); i += 2)
        descriptions << parts[i];
    descriptions << QFileDialog::tr("All files (*)");
    return descriptions.join(QStringLiteral(";;"));
}

// The name offered wins over the start folder; a start folder that is a file means the file's folder.
QString startOf(const FileRequest& request) {
    if (!request.suggestedName.empty() && !folderOf(request.suggestedName).empty())
        return QString::fromStdString(request.suggestedName);
    std::string folder = request.startFolder;
    if (!folderExists(folder))
        folder = folderOf(folder);
    if (!folderExists(folder))
        folder = QDir::homePath().toStdString();
    return QString::fromStdString(request.suggestedName.empty() ? folder
                                                                : joinPath(folder, request.suggestedName));
}

std::string nativeText(const QString& path) {
    return QDir::toNativeSeparators(path).toStdString();
}

} // namespace

Answer QtDialogs::ask(const Message& message) {
    QuestionBox box(parent_, message.buttons == MessageButtons::yesNo);
    fill(box, message);
    const Answer answer = answerOf(box.exec());
    return message.buttons == MessageButtons::ok ? Answer::ok : answer;
}

Quiet QtDialogs::tellQuietable(const Message& message, const std::string& checkBox) {
    QuestionBox box(parent_, false);
    fill(box, message);
    auto* const quiet = new QCheckBox(QString::fromStdString(checkBox), &box);
    box.setCheckBox(quiet);
    box.exec();
    return quiet->isChecked() ? Quiet::untilNextStart : Quiet::no;
}

std::string QtDialogs::openFile(const FileRequest& request) {
    return nativeText(QFileDialog::getOpenFileName(parent_, QString::fromStdString(request.title),
                                                   startOf(request), toolkitFilter(request.filter)));
}

std::string QtDialogs::saveFile(const FileRequest& request) {
    return nativeText(QFileDialog::getSaveFileName(parent_, QString::fromStdString(request.title),
                                                   startOf(request), toolkitFilter(request.filter), nullptr,
                                                   QFileDialog::DontConfirmOverwrite));
}

std::string QtDialogs::chooseFolder(const std::string& instruction) {
    return nativeText(QFileDialog::getExistingDirectory(parent_, QString::fromStdString(instruction)));
}

} // namespace quillset
