#include "editor_run.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QRegularExpression>

using namespace quillset;

class HelpMenuTest : public QObject {
    Q_OBJECT

    std::optional<test::TemporaryFolder> folder_;
    std::optional<test::EditorRun> run_;
    QList<QUrl> shown_;

public slots:
    void showFile(const QUrl& url) { shown_.append(url); }

private slots:
    void init() {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "showFile");
        folder_.emplace();
        test::writeProgramFiles(*folder_);
        run_.emplace(*folder_);
        QVERIFY(run_->started);
        shown_.clear();
    }
    void cleanup() {
        run_.reset();
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    }

    void f1ShowsTheManual() {
        const std::string page = folder_->write("program/docs/index.html", "<html></html>");
        QTest::keyClick(run_->editor->window().windowHandle(), Qt::Key_F1);
        QCOMPARE(shown_, QList<QUrl>{QUrl::fromLocalFile(QString::fromStdString(page))});
        QVERIFY(run_->dialogs.messages.empty());
    }

    void withoutAManualAMessageSaysWhereItBelongs() {
        run_->action("mManual")->trigger();
        QVERIFY(shown_.isEmpty());
        QCOMPARE(run_->dialogs.messages.size(), std::size_t(1));
        QVERIFY(run_->dialogs.messages[0].text.find(folder_->file("program/docs")) != std::string::npos);
    }

    void copiesDiagnosticsOfThisMachine() {
        QGuiApplication::clipboard()->clear();
        run_->action("mCopyDiagnostics")->trigger();
        const QString text = QGuiApplication::clipboard()->text();
        for (const QString& part :
             {QStringLiteral("Quillset XML "), QStringLiteral("Qt: ") + QLatin1String(qVersion()),
              QStringLiteral("Simulator folder: ") + QString::fromStdString(folder_->file("fs")),
              QStringLiteral("FSUIPC module: not found"), QStringLiteral("Scenery: none open")})
            QVERIFY2(text.contains(part), qPrintable(text));
        QVERIFY(text.contains(QRegularExpression(QStringLiteral("Z started Quillset XML .*\n"))));
        QVERIFY(run_->dialogs.messages.empty());
        QVERIFY(run_->editor->session().activity().text().ends_with("diagnostics copied to the clipboard"));
    }

    void aboutNamesTheVersionAndTheLicence() {
        run_->action("mAbout")->trigger();
        QCOMPARE(run_->dialogs.messages.size(), std::size_t(1));
        QVERIFY(run_->dialogs.messages[0].text.find("MIT licence") != std::string::npos);
    }
};

QTEST_MAIN(HelpMenuTest)
#include "help_menu_test.moc"
