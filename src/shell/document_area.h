#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>

namespace quillset {

/// The middle of the main window: the document window (its caption above it, with a close button) while a
/// document is open, else a start page that offers New, Open and the recent files.
class DocumentArea : public QStackedWidget {
    Q_OBJECT
public:
    /// Takes ownership of the document window.
    explicit DocumentArea(QWidget* documentWindow, QWidget* parent = nullptr);

    void showDocument(const QString& caption);
    void hideDocument();
    [[nodiscard]] bool showsDocument() const { return currentIndex() == 1; }
    [[nodiscard]] QString caption() const { return caption_->text(); }
    void setRecentFiles(const QStringList& paths);

signals:
    void closeRequested();
    void newRequested();
    void openRequested();
    void recentRequested(int index);

protected:
    /// The keyboard goes to the list or to the first button of the start page.
    void focusInEvent(QFocusEvent* event) override;

private:
    QWidget* makeStartPage();
    QWidget* makeDocumentPage();

    QWidget* documentWindow_;
    QPushButton* startNew_ = nullptr;
    QLabel* caption_ = nullptr;
    QLabel* recentTitle_ = nullptr;
    QListWidget* recent_ = nullptr;
};

} // namespace quillset
