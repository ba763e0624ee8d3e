#pragma once

#include "build/bgl_compilation.h"
#include "build/console_lines.h"
#include "build/console_text.h"

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace quillset {

/// The compile log: what the compiler prints, in a fixed-width font. Stays hidden for short runs; in a long
/// one it appears by itself and tells what runs and for how long, so that the user can end a compiler that
/// hangs. Text is appended in linear time; the user's selection and place in the text stay, but at the end of
/// the text the view follows the output.
class frmCompile : public QDialog, public CompileLog {
    Q_OBJECT
public:
    explicit frmCompile(QWidget* owner = nullptr);

    /// A run that ends sooner never shows the window before its end.
    std::chrono::milliseconds patience{500};

    void runBegins(const std::string& commandLine) override;
    void append(const std::string& piece) override;
    [[nodiscard]] WaitAnswer wait() override;
    void runEnds(CompileOutcome outcome, const std::string& verdict) override;
    void showModal() override;

signals:
    /// A click or Enter on a line of the log; `column` counts characters from 0.
    void lineActivated(const QString& line, int column);

public slots:
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createText();
    void createFindBar();
    void createButtons();
    void arrange();
    void centreOnScreen();
    void flush();
    void appendEdit(const ConsoleEdit& edit);
    void showRunning();
    void activateLine();
    void openFindBar();
    void findText(bool backward);
    void discardText();

    QLabel* lbl_run_ = nullptr;
    QPlainTextEdit* txt_compile_log_ = nullptr;
    QWidget* findBar_ = nullptr;
    QLineEdit* txt_find_ = nullptr;
    QLabel* lbl_find_ = nullptr;
    QPushButton* cmdEnd_ = nullptr;
    QPushButton* cmdClose_ = nullptr;

    ConsoleTextDecoder decoder_;
    ConsoleLines lines_;
    /// Decoded text that the view has not got yet.
    std::string pending_;
    QElapsedTimer runTime_;
    QString running_;
    bool endRequested_ = false;
    bool busy_ = false;
};

} // namespace quillset
