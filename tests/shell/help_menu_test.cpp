#include "shell/editor.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTest>

#include <optional>

using namespace quillset;

class HelpMenuTest : public QObject {
    Q_OBJECT

    std::optional<test::TemporaryFolder> folder_;
    test::ScriptedDialogs dialogs_;
    std::unique_ptr<SimulatorServices> simulator_ = systemSimulatorServices();
    std::optional<Editor> editor_;
    QList<QUrl> shown_;

    void choose(const char* command) { editor_->window().commands().action(command)->trigger(); }

public slots:
    void showFile(const QUrl& url) { shown_.append(url); }

private slots:
    void init() {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "showFile");
        folder_.emplace();
        folder_->write("program/generic.xml", "<Objects/>");
        folder_->write("fs/effects/smoke.fx", "[x]");
        const std::string program = folder_->file("program");
        CommandLine options;
        options.fsPath = folder_->file("fs");
        editor_.emplace(EditorEnvironment{options,
                                          {program, program, program},
                                          dialogs_,
                                          *simulator_,
                                          [] { return std::string(); },
                                          [] {}});
        QVERIFY(editor_->start());
        editor_->window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&editor_->window()));
        dialogs_.messages.clear();
        shown_.clear();
    }
    void cleanup() {
        editor_.reset();
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    }

    void f1ShowsTheManual() {
        const std::string page = folder_->write("program/docs/index.html", "<html></html>");
        QTest::keyClick(editor_->window().windowHandle(), Qt::Key_F1);
        QCOMPARE(shown_, QList<QUrl>{QUrl::fromLocalFile(QString::fromStdString(page))});
        QVERIFY(dialogs_.messages.empty());
    }

    void withoutAManualAMessageSaysWhereItBelongs() {
        choose("mManual");
        QVERIFY(shown_.isEmpty());
        QCOMPARE(dialogs_.messages.size(), std::size_t(1));
        QVERIFY(dialogs_.messages[0].text.find(folder_->file("program/docs")) != std::string::npos);
    }

    void copiesDiagnosticsOfThisMachine() {
        QGuiApplication::clipboard()->clear();
        choose("mCopyDiagnostics");
        const QString text = QGuiApplication::clipboard()->text();
        for (const QString& part :
             {QStringLiteral("Quillset XML "), QStringLiteral("Qt: ") + QLatin1String(qVersion()),
              QStringLiteral("Simulator folder: ") + QString::fromStdString(folder_->file("fs")),
              QStringLiteral("FSUIPC module: not found"), QStringLiteral("Scenery: none open")})
            QVERIFY2(text.contains(part), qPrintable(text));
        QVERIFY(text.contains(QRegularExpression(QStringLiteral("Z started Quillset XML .*\n"))));
        QVERIFY(dialogs_.messages.empty());
        QVERIFY(editor_->session().activity().text().ends_with("diagnostics copied to the clipboard"));
    }

    void aboutNamesTheVersionAndTheLicence() {
        choose("mAbout");
        QCOMPARE(dialogs_.messages.size(), std::size_t(1));
        QVERIFY(dialogs_.messages[0].text.find("MIT licence") != std::string::npos);
    }
};

QTEST_MAIN(HelpMenuTest)
#include "help_menu_test.moc"
