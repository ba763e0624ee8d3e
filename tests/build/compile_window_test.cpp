#include "build/frmCompile.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

using namespace quillset;

class CompileWindowTest : public QObject {
    Q_OBJECT
private slots:
    void showsTheTextWhateverThePieces();
    void staysHiddenWhileTheRunIsShort();
    void aHangingCompilerCanBeEnded();
    void closingDiscardsTheText();
    void keepsSelectionAndPlace();
    void activatesLines();
    void findsAndCopiesByKeyboard();
};

namespace {

template <class T>
T* child(const frmCompile& window, const char* name) {
    return window.findChild<T*>(QLatin1String(name));
}

QPlainTextEdit* logOf(const frmCompile& window) {
    return child<QPlainTextEdit>(window, "txt_compile_log");
}

void fill(frmCompile& window, int lines) {
    window.runBegins("bglcomp compile.xml");
    for (int i = 0; i < lines; ++i)
        window.append("line " + std::to_string(i) + "\r\n");
    window.runEnds(CompileOutcome::madeScenery, "made");
}

} // namespace

void CompileWindowTest::showsTheTextWhateverThePieces() {
    frmCompile window;
    QCOMPARE(window.windowTitle(), QStringLiteral("Compile log"));
    window.runBegins("bglcomp compile.xml");
    for (const char* const piece :
         {"Erro", "r in K\xC3", "\xB6ln\r", "\nbad \xFF", " byte", "", "\n50%\r100%"})
        window.append(piece);
    window.runEnds(CompileOutcome::madeNothing, "made no scenery in <b>C:</b>");
#ifdef Q_OS_WIN
    const QString bad = QStringLiteral("ÿ");
#else
    const QString bad = QStringLiteral("\\xFF");
#endif
    QCOMPARE(logOf(window)->toPlainText(), QStringLiteral("Error in Köln\nbad %1 byte\n100%").arg(bad));
    QVERIFY(child<QLabel>(window, "lbl_run")->text().contains(QStringLiteral("no scenery in <b>")));
    QVERIFY(logOf(window)->isReadOnly());
#ifndef Q_OS_WIN // the offscreen platform knows no fixed font there
    const QFontMetrics metrics(logOf(window)->font());
    QCOMPARE(metrics.horizontalAdvance(QLatin1Char('i')), metrics.horizontalAdvance(QLatin1Char('W')));
#endif
}

void CompileWindowTest::staysHiddenWhileTheRunIsShort() {
    frmCompile window;
    window.patience = std::chrono::hours(1);
    window.runBegins("bglcomp compile.xml");
    window.append("text");
    QCOMPARE(window.wait(), WaitAnswer::goOn);
    QVERIFY(!window.isVisible());
    QVERIFY(QApplication::overrideCursor() != nullptr);
    window.runEnds(CompileOutcome::madeScenery, "made");
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void CompileWindowTest::aHangingCompilerCanBeEnded() {
    frmCompile window;
    window.patience = std::chrono::milliseconds(0);
    window.runBegins("bglcomp compile.xml");
    window.append("Continue? (Y/N) ");
    QCOMPARE(window.wait(), WaitAnswer::goOn);
    QVERIFY(window.isVisible() && window.isModal());
    QCOMPARE(logOf(window)->toPlainText(), QStringLiteral("Continue? (Y/N) "));
    QVERIFY(child<QLabel>(window, "lbl_run")->text().contains(QStringLiteral("bglcomp compile.xml")));
    QVERIFY(!child<QPushButton>(window, "cmdClose")->isEnabled());
    QTest::keyClick(&window, Qt::Key_Escape);
    window.close();
    QVERIFY2(window.isVisible(), "neither Esc nor the close box leaves a running compiler alone");
    auto* const end = child<QPushButton>(window, "cmdEnd");
    QVERIFY(end->hasFocus());
    QTest::keyClick(end, Qt::Key_Space);
    QCOMPARE(window.wait(), WaitAnswer::endCompiler);
    window.runEnds(CompileOutcome::endedByUser, "was ended");
    QVERIFY(!end->isVisible());
    QVERIFY(child<QLabel>(window, "lbl_run")->text().contains(QStringLiteral("was ended")));
}

void CompileWindowTest::closingDiscardsTheText() {
    const auto closers = {
        +[](frmCompile& window) { QTest::keyClick(&window, Qt::Key_Escape); },
        +[](frmCompile& window) {
            QTest::mouseClick(child<QPushButton>(window, "cmdClose"), Qt::LeftButton);
        },
        +[](frmCompile& window) { window.close(); },
    };
    for (const auto close : closers) {
        frmCompile window;
        fill(window, 3);
        QTimer::singleShot(0, &window, [&window, close] {
            QVERIFY(window.isModal());
            const QRect screen = window.screen()->availableGeometry();
            const QPoint off = window.geometry().center() - screen.center();
            QVERIFY2(off.manhattanLength() < 40, "in the middle of the screen");
            close(window);
        });
        window.showModal();
        QVERIFY(!window.isVisible());
        QCOMPARE(logOf(window)->toPlainText(), QString());
    }
}

void CompileWindowTest::keepsSelectionAndPlace() {
    frmCompile window;
    fill(window, 500);
    window.show();
    QTextCursor cursor = logOf(window)->textCursor();
    cursor.setPosition(5);
    cursor.setPosition(17, QTextCursor::KeepAnchor);
    logOf(window)->setTextCursor(cursor);
    logOf(window)->verticalScrollBar()->setValue(100);
    window.append(std::string(70'000, '\n'));
    QCOMPARE(logOf(window)->textCursor().selectionStart(), 5);
    QCOMPARE(logOf(window)->textCursor().selectionEnd(), 17);
    QCOMPARE(logOf(window)->verticalScrollBar()->value(), 100);

    logOf(window)->selectAll();
    const int end = logOf(window)->textCursor().selectionEnd();
    window.append(std::string(70'000, '\n'));
    QCOMPARE(logOf(window)->textCursor().selectionEnd(), end);
}

void CompileWindowTest::activatesLines() {
    frmCompile window;
    fill(window, 20);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSignalSpy activated(&window, &frmCompile::lineActivated);
    QTextCursor cursor(logOf(window)->document()->findBlockByNumber(7));
    cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 3);
    logOf(window)->setTextCursor(cursor);
    QTest::keyClick(logOf(window), Qt::Key_Return);
    QVERIFY2(window.isVisible(), "Enter does not press the default button");
    const QPoint place = logOf(window)->cursorRect(cursor).center();
    QTest::mouseClick(logOf(window)->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(activated.size(), 2);
    QTest::mousePress(logOf(window)->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    logOf(window)->selectAll(); // as by dragging
    QTest::mouseRelease(logOf(window)->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseClick(logOf(window)->viewport(), Qt::RightButton, Qt::NoModifier, place);
    QCOMPARE(activated.size(), 2);
    QCOMPARE(activated[0], (QList<QVariant>{QStringLiteral("line 7"), 3}));
    QCOMPARE(activated[1][0].toString(), QStringLiteral("line 7"));
    const QString way = QStringLiteral("press Enter");
    QVERIFY2(child<QLabel>(window, "lbl_run")->text().contains(way), "\"line 7\" is a place");
    window.runBegins("bglcomp compile.xml");
    window.append("compile.bgl: written, 7 placements\r\n");
    window.runEnds(CompileOutcome::madeScenery, "made");
    QVERIFY(!child<QLabel>(window, "lbl_run")->text().contains(way));
}

void CompileWindowTest::findsAndCopiesByKeyboard() {
    frmCompile window;
    fill(window, 20);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keySequence(&window, QKeySequence::Find);
    auto* const find = child<QLineEdit>(window, "txt_find");
    QVERIFY(find->hasFocus());
    QTest::keyClicks(find, QStringLiteral("LINE 1"));
    QTest::keyClick(find, Qt::Key_Return);
    QCOMPARE(logOf(window)->textCursor().blockNumber(), 1);
    QTest::keyClick(&window, Qt::Key_F3);
    QCOMPARE(logOf(window)->textCursor().blockNumber(), 10);
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(&window, Qt::Key_F3);
    QCOMPARE(logOf(window)->textCursor().blockNumber(), 1); // round the end
    QTest::keyClick(&window, Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(logOf(window)->textCursor().blockNumber(), 19);
    QTest::keyClick(find, Qt::Key_Escape);
    QVERIFY(window.isVisible() && !find->isVisible());
    QVERIFY(logOf(window)->hasFocus());
    QTest::keySequence(logOf(window), QKeySequence::SelectAll);
    QTest::keySequence(logOf(window), QKeySequence::Copy);
    QVERIFY(QApplication::clipboard()->text().startsWith(QStringLiteral("line 0\nline 1\n")));
}

QTEST_MAIN(CompileWindowTest)
#include "compile_window_test.moc"
