#include "build/frmCompile.h"

#include "build/compile_message.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>

namespace quillset {

namespace {

QFont consoleFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    // Windows names a face of typewriters there, and does not always have it.
    if (font.family().startsWith(QLatin1String("Courier")))
        font.setFamilies({QStringLiteral("Consolas"), QStringLiteral("DejaVu Sans Mono"), font.family()});
    return font;
}

/// Pieces are gathered up to this size: each change of the text has a price of its own.
constexpr std::size_t flushSize = 65536;

QString runTimeText(qint64 milliseconds) {
    const qint64 seconds = milliseconds / 1000;
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

bool namesAPlace(const QTextDocument& log) {
    for (QTextBlock line = log.begin(); line.isValid(); line = line.next()) {
        if (compilePlaceIn(line.text().toStdString()))
            return true;
    }
    return false;
}

} // namespace

frmCompile::frmCompile(QWidget* owner)
    : QDialog(owner) {
    setObjectName(QStringLiteral("frmCompile"));
    setWindowTitle(QStringLiteral("Compile log"));
    createText();
    createFindBar();
    createButtons();
    arrange();
    centreOnScreen();
}

void frmCompile::createText() {
    lbl_run_ = new QLabel(this);
    lbl_run_->setObjectName(QStringLiteral("lbl_run"));
    lbl_run_->setTextFormat(Qt::PlainText); // a folder name may hold markup
    lbl_run_->setWordWrap(true);

    txt_compile_log_ = new QPlainTextEdit(this);
    txt_compile_log_->setObjectName(QStringLiteral("txt_compile_log"));
    txt_compile_log_->setAccessibleName(QStringLiteral("Compiler output"));
    txt_compile_log_->setReadOnly(true);
    txt_compile_log_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    txt_compile_log_->setUndoRedoEnabled(false); // else every appended piece would be kept twice
    txt_compile_log_->setLineWrapMode(QPlainTextEdit::NoWrap);
    txt_compile_log_->setFont(consoleFont());
    txt_compile_log_->setTabChangesFocus(true);
    txt_compile_log_->installEventFilter(this);
    txt_compile_log_->viewport()->installEventFilter(this);
}

void frmCompile::createFindBar() {
    findBar_ = new QWidget(this);
    txt_find_ = new QLineEdit(findBar_);
    txt_find_->setObjectName(QStringLiteral("txt_find"));
    txt_find_->setAccessibleName(QStringLiteral("Text to find in the log"));
    txt_find_->setPlaceholderText(QStringLiteral("Find in the log"));
    lbl_find_ = new QLabel(findBar_);
    auto* const layout = new QHBoxLayout(findBar_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(txt_find_, 1);
    layout->addWidget(lbl_find_);
    findBar_->hide();
    txt_find_->installEventFilter(this);

    const auto addKey = [this](const QKeySequence& keys, auto act) {
        auto* const action = new QAction(this);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, act);
        addAction(action);
    };
    addKey(QKeySequence::Find, [this] { openFindBar(); });
    addKey(QKeySequence(Qt::Key_F3), [this] { findText(false); });
    addKey(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { findText(true); });
    connect(txt_find_, &QLineEdit::textChanged, lbl_find_, &QLabel::clear);
}

void frmCompile::createButtons() {
    cmdEnd_ = new QPushButton(QStringLiteral("&End compiler"), this);
    cmdEnd_->setObjectName(QStringLiteral("cmdEnd"));
    cmdEnd_->setAutoDefault(false);
    cmdEnd_->hide();
    connect(cmdEnd_, &QPushButton::clicked, this, [this] { endRequested_ = true; });
    cmdClose_ = new QPushButton(QStringLiteral("Close"), this);
    cmdClose_->setObjectName(QStringLiteral("cmdClose"));
    cmdClose_->setDefault(true);
    connect(cmdClose_, &QPushButton::clicked, this, &frmCompile::reject);
}

void frmCompile::arrange() {
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdEnd_);
    buttons->addWidget(cmdClose_);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(lbl_run_);
    layout->addWidget(txt_compile_log_, 1);
    layout->addWidget(findBar_);
    layout->addLayout(buttons);

    constexpr int columns = 90;
    constexpr int rows = 28;
    const QFontMetrics metrics(txt_compile_log_->font());
    resize(metrics.horizontalAdvance(QLatin1Char('0')) * columns, metrics.lineSpacing() * rows);
}

void frmCompile::centreOnScreen() {
    const QRect area = screen()->availableGeometry();
    resize(size().boundedTo(area.size()));
    move(area.topLeft() + QPoint((area.width() - width()) / 2, (area.height() - height()) / 2));
}

void frmCompile::runBegins(const std::string& commandLine) {
    discardText();
    running_ = QString::fromStdString(commandLine);
    endRequested_ = false;
    busy_ = true;
    runTime_.start();
    cmdEnd_->setEnabled(true);
    cmdEnd_->show();
    cmdClose_->setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void frmCompile::append(const std::string& piece) {
    pending_ += decoder_.decode(piece);
    if (pending_.size() >= flushSize)
        flush();
}

WaitAnswer frmCompile::wait() {
    // Until the window is up and keeps the others from the user, no event may be handled: a command of the
    // main window could change or drop the document that is being compiled.
    if (!isVisible() && runTime_.elapsed() < patience.count())
        return WaitAnswer::goOn;
    flush();
    showRunning();
    QCoreApplication::processEvents();
    return endRequested_ ? WaitAnswer::endCompiler : WaitAnswer::goOn;
}

void frmCompile::showRunning() {
    lbl_run_->setText(QStringLiteral("Running for %1: %2").arg(runTimeText(runTime_.elapsed()), running_));
    cmdEnd_->setEnabled(!endRequested_);
    if (isVisible())
        return;
    QApplication::restoreOverrideCursor(); // the button must not look out of reach
    setWindowModality(Qt::ApplicationModal);
    centreOnScreen();
    show();
    cmdEnd_->setFocus();
}

void frmCompile::runEnds(CompileOutcome /*outcome*/, const std::string& verdict) {
    if (!isVisible())
        QApplication::restoreOverrideCursor();
    busy_ = false;
    pending_ += decoder_.finish();
    flush();
    cmdEnd_->hide();
    cmdClose_->setEnabled(true);
    lbl_run_->setText(QString::fromStdString(verdict) +
                      (namesAPlace(*txt_compile_log_->document())
                           ? QStringLiteral(" Click a message, or press Enter on it, to select the "
                                            "placement it is about.")
                           : QString()));
    txt_compile_log_->setFocus();
}

void frmCompile::showModal() {
    if (!isVisible())
        centreOnScreen();
    exec();
}

void frmCompile::reject() {
    if (busy_) // the window stays while the compiler runs; its button ends it
        return;
    QDialog::reject();
    discardText();
}

void frmCompile::discardText() {
    decoder_ = {};
    lines_ = {};
    pending_.clear();
    txt_compile_log_->clear();
    lbl_run_->clear();
    findBar_->hide();
}

void frmCompile::flush() {
    if (pending_.empty())
        return;
    appendEdit(lines_.feed(pending_));
    pending_.clear();
}

void frmCompile::appendEdit(const ConsoleEdit& edit) {
    QScrollBar* const bar = txt_compile_log_->verticalScrollBar();
    const bool follows = bar->value() >= bar->maximum();
    const QTextCursor before = txt_compile_log_->textCursor();
    const int anchor = before.anchor();
    const int position = before.position();

    QTextCursor end(txt_compile_log_->document());
    end.movePosition(QTextCursor::End);
    if (edit.replacesLastLine)
        end.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
    end.insertText(QString::fromUcs4(edit.text.data(), static_cast<qsizetype>(edit.text.size())));

    // A cursor at the end of the text is carried along by the insertion: a selection up to there would grow.
    QTextCursor kept = txt_compile_log_->textCursor();
    if (kept.anchor() != anchor || kept.position() != position) {
        const int last = end.position();
        kept.setPosition(std::min(anchor, last));
        kept.setPosition(std::min(position, last), QTextCursor::KeepAnchor);
        txt_compile_log_->setTextCursor(kept);
    }
    if (follows)
        bar->setValue(bar->maximum());
}

bool frmCompile::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txt_compile_log_->viewport() && event->type() == QEvent::MouseButtonRelease) {
        // Pressing the button has put the cursor there; who selects text means something else.
        const bool left = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        if (left && !txt_compile_log_->textCursor().hasSelection())
            activateLine();
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (enter && watched == txt_compile_log_) {
        activateLine();
        return true;
    }
    if (enter && watched == txt_find_) {
        findText(false);
        return true;
    }
    if (key == Qt::Key_Escape && watched == txt_find_) {
        findBar_->hide();
        txt_compile_log_->setFocus();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmCompile::activateLine() {
    const QTextCursor cursor = txt_compile_log_->textCursor();
    emit lineActivated(cursor.block().text(), cursor.positionInBlock());
}

void frmCompile::openFindBar() {
    findBar_->show();
    txt_find_->setFocus();
    txt_find_->selectAll();
}

void frmCompile::findText(bool backward) {
    const QString text = txt_find_->text();
    if (text.isEmpty()) {
        openFindBar();
        return;
    }
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    QTextCursor found = txt_compile_log_->document()->find(text, txt_compile_log_->textCursor(), flags);
    if (found.isNull()) { // once round
        QTextCursor start(txt_compile_log_->document());
        start.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        found = txt_compile_log_->document()->find(text, start, flags);
    }
    lbl_find_->setText(found.isNull() ? QStringLiteral("Not found") : QString());
    if (!found.isNull())
        txt_compile_log_->setTextCursor(found);
}

} // namespace quillset
