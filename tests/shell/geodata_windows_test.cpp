// The conversion window within the editor, and the progress of an import.
#include "document/placement.h"
#include "editor_run.h"
#include "shell/progress_window.h"

#include <QApplication>
#include <QDockWidget>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

using namespace quillset;
using test::EditorRun;
using test::TemporaryFolder;

class GeodataWindowsTest : public QObject {
    Q_OBJECT
private slots:
    void init() {
        folder_.emplace();
        test::writeProgramFiles(*folder_);
    }

    void theConvertedPositionGoesToTheSelectedPlacement() {
        EditorRun run(*folder_,
                      folder_->write("a.xml", "<FSData><!--first--><SceneryObject lat=\"1\" lon=\"2\"/>"
                                              "<!--second--><SceneryObject alt=\"0\" lon=\"4\" lat=\"3\">"
                                              "<LibraryObject name=\"A\"/></SceneryObject></FSData>"));
        run.editor->session().list().click(2);
        convert(run, "121000", "487000");
        const SceneryDocument& document = run.editor->session().document();
        QCOMPARE(document.placement(1).attribute("lat").value(), "52.3698269751196");
        QCOMPARE(document.placement(1).attribute("lon").value(), "4.88797016841449");
        QCOMPARE(placementComment(document.placement(1)), std::string("second"));
        QCOMPARE(document.placement(0).attribute("lat").value(), "1");
        QCOMPARE(run.editor->session().list().row(2).latitude, std::string("52.3698269751196"));
        QCOMPARE(run.editor->session().journal().count(), std::size_t(2));
    }

    void theWindowFloatsAndIsHiddenAtEveryStart() {
        {
            EditorRun run(*folder_);
            QVERIFY(!dock(run)->isVisible());
            run.action("mCoorConv")->trigger();
            QVERIFY(dock(run)->isVisible());
            QVERIFY(dock(run)->isFloating());
            QTRY_COMPARE(QApplication::focusWidget(), run.widget("txt_rd_x"));
            run.editor->window().close();
        }
        EditorRun run(*folder_);
        QVERIFY(!dock(run)->isVisible());
    }

    void aLongCommandShowsItsProgressAndIsCancelled() {
        QWidget window;
        window.show();
        ProgressWindow progress;
        progress.setParent(&window);
        progress.patience = std::chrono::hours(1);
        progress.begin("Adding points", 100);
        QVERIFY2(progress.goOn(1) && window.findChildren<QProgressDialog*>().size() == 1,
                 "a short one is not shown");
        QVERIFY(!window.findChild<QProgressDialog*>()->isVisible());
        progress.end();

        progress.patience = std::chrono::milliseconds(0);
        progress.begin("Adding points", 100);
        QVERIFY(progress.goOn(1));
        auto* const dialog = window.findChildren<QProgressDialog*>().last();
        QVERIFY(dialog->isVisible());
        QVERIFY2(dialog->isModal(), "the document must not change meanwhile");
        QCOMPARE(dialog->value(), 1);
        QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
        QVERIFY(!progress.goOn(2));
        progress.end();
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QVERIFY2(!dialog->isVisible(), "it would stand behind the message of the result");
    }

private:
    static QDockWidget* dock(EditorRun& run) {
        return run.editor->window().docks().dock(QStringLiteral("frmCoorConv"));
    }
    static void convert(EditorRun& run, const char* x, const char* y) {
        run.action("mCoorConv")->trigger();
        QTest::keyClicks(run.widget("txt_rd_x"), QLatin1String(x));
        QTest::keyClicks(run.widget("txt_rd_y"), QLatin1String(y));
        QTest::mouseClick(run.widget("cmd_write_properties"), Qt::LeftButton);
    }

    std::optional<TemporaryFolder> folder_;
};

QTEST_MAIN(GeodataWindowsTest)
#include "geodata_windows_test.moc"
