#include "editor_run.h"

#include "document/frmXMLList.h"

#include <QAbstractItemView>
#include <QDockWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

#include <algorithm>
#include <filesystem>
#include <optional>

using namespace quillset;
using namespace quillset::test;

class EditorTest : public QObject {
    Q_OBJECT
private slots:
    void init() {
        folder_.emplace();
        writeProgramFiles(*folder_);
    }

    void newAddAndSaveByKeys();
    void listKeysActInTheListOnly();
    void theKeyboardReachesEveryWindow();
    void everyTrapIsWhereItBelongs_data();
    void everyTrapIsWhereItBelongs();
    void layoutComesBack();
    void theWindowOpensWhicheverSettingIsMissing();
    void dockablePanelToggles();
    void recentFilesKeepTheirAmpersands();
    void closingTheMainWindowAsksNothing();
    void aCompileMessageLeadsToItsPlacement();

private:
    std::optional<TemporaryFolder> folder_;
};

void EditorTest::newAddAndSaveByKeys() {
    EditorRun run(*folder_);
    QVERIFY(run.started);
    MDIForm1& window = run.editor->window();
    QVERIFY(!window.documentArea().showsDocument());
    QVERIFY(!run.action("mSave")->isEnabled());

    run.dialogs.paths = {folder_->file("one.xml")};
    QTest::keyClick(window.windowHandle(), Qt::Key_N, Qt::ControlModifier);
    QVERIFY(window.documentArea().showsDocument());
    QCOMPARE(window.documentArea().caption().toStdString(), folder_->file("one.xml"));
    QVERIFY(run.list()->hasFocus());
    QVERIFY2(!run.action("mAddNewEnd")->isEnabled(), "nothing is selected in the catalogue");

    run.editor->session().catalogue().setObjTreeItem("rectangular");
    QVERIFY(run.action("mAddNewEnd")->isEnabled());
    QVERIFY2(!run.action("mAddNewBefore")->isEnabled(), "there is no row to add before");
    QTest::keyClick(window.windowHandle(), Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(run.list()->model()->rowCount(), 1);
    QCOMPARE(
        run.editor->session().activity().text().substr(run.editor->session().activity().text().find(']')),
        std::string("] Rectangular building added"));
    QTest::keyClick(window.windowHandle(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(folder_->has("one.xml"));
    QCOMPARE(run.action("mUndo")->text(), QStringLiteral("Undo add object"));
    QTest::keyClick(window.windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(run.list()->model()->rowCount(), 0);
    QVERIFY(!run.action("mUndo")->isEnabled());
    QVERIFY(run.dialogs.messages.empty());
}

void EditorTest::listKeysActInTheListOnly() {
    EditorRun run(*folder_, document(*folder_, "a.xml", 3));
    run.editor->window().activateWindow();
    run.list()->setFocus();
    QTest::keyClick(run.list(), Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(run.editor->session().list().selectedRow(), 2);
    QTest::keyClick(run.list(), Qt::Key_Delete);
    QCOMPARE(run.editor->session().document().placementCount(), std::size_t(2));
    QWidget* const tree = run.widget("ObjTree");
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_Delete);
    QTest::keyClick(tree, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(run.editor->session().document().placementCount(), std::size_t(2));
    QVERIFY(run.dialogs.messages.empty());
}

void EditorTest::theKeyboardReachesEveryWindow() {
    EditorRun run(*folder_, document(*folder_, "a.xml", 1));
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        return QApplication::focusWidget()->objectName();
    };
    run.list()->setFocus();
    for (const char* const next : {"picPreview", "ObjProp", "ObjTree", "XMLList"})
        QCOMPARE(press(Qt::Key_F6), QLatin1String(next));
    QCOMPARE(press(Qt::Key_F6, Qt::ShiftModifier), QStringLiteral("ObjTree"));
    QCOMPARE(press(Qt::Key_Backtab, Qt::ShiftModifier), QStringLiteral("txt_search"));
    QCOMPARE(press(Qt::Key_Tab), QStringLiteral("ObjTree"));
    for (int tabs = 0; tabs < 20 && press(Qt::Key_Tab) != QLatin1String("panel2"); ++tabs)
        if (QApplication::focusWidget()->objectName() == QLatin1String("ObjProp"))
            press(Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(press(Qt::Key_Tab), QStringLiteral("txt_search"));
    run.widget("ObjTree")->setFocus();
    for (const bool floats : {true, false}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, Qt::ControlModifier);
        QTRY_VERIFY(run.widget("ObjTree")->hasFocus());
        QCOMPARE(run.editor->window().docks().layout(QStringLiteral("frmObjTree")).docked, !floats);
    }
}

void EditorTest::everyTrapIsWhereItBelongs_data() {
    QTest::addColumn<QString>("procedure");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("trigger");
    QTest::addColumn<bool>("ends");
    const auto row = [](const char* procedure, const char* form, const char* trigger, bool ends) {
        QTest::addRow("%s of %s", procedure, form)
            << QString::fromLatin1(procedure) << QString::fromLatin1(form) << QString::fromLatin1(trigger)
            << ends;
    };
    row("Form_Resize", "frmObjTree", "resize", true);
    row("Form_Resize", "frmObjProp", "resize", true);
    row("Form_Resize", "frmPreview", "resize", true);
    row("Form_Resize", "frmXMLList", "resize", true);
    row("MDIForm_Resize", "MDIForm1", "resize window", true);
    row("mObjects_click", "MDIForm1", "open menu mObjects", true);
    row("mOpen_Click", "MDIForm1", "mOpen", true);
    row("mRemoveObject_Click", "MDIForm1", "mRemoveObject", true);
    row("mRescanTree_Click", "MDIForm1", "mRescanTree", true);
    row("mAddNewBefore_Click", "MDIForm1", "mAddNewBefore", true);
    row("mAddNewEnd_Click", "MDIForm1", "mAddNewEnd", true);
    row("mUpdateObject_Click", "MDIForm1", "mUpdateObject", true);
    row("addNewUserLibrary", "frmObjTree", "mAddLib", true);
    row("ObjProp_MouseUp", "frmObjProp", "click property", true);
    row("processKeyPress", "frmObjProp", "key property", true);
    row("setNewData", "frmObjProp", "commit property", true);
    row("setProperty", "frmXMLList", "set property", true);
    row("MDIForm_Unload", "MDIForm1", "close window", false);
    row("mNew_Click", "MDIForm1", "mNew", false);
    row("mSave_Click", "MDIForm1", "mSave", false);
    row("mSaveAs_Click", "MDIForm1", "mSaveAs", false);
    row("mUndo_Click", "MDIForm1", "mUndo", false);
    row("mMoveUp_Click", "MDIForm1", "mMoveUp", false);
    row("mMoveDown_Click", "MDIForm1", "mMoveDown", false);
}

void EditorTest::everyTrapIsWhereItBelongs() {
    QFETCH(const QString, procedure);
    QFETCH(const QString, form);
    QFETCH(const QString, trigger);
    QFETCH(const bool, ends);
    EditorRun run(*folder_, document(*folder_, "a.xml", 3));
    MDIForm1& window = run.editor->window();
    run.editor->session().list().moveDown();
    run.editor->session().list().setProperty(1, 1, "9");
    QApplication::processEvents();
    bool injected = false;
    run.editor->session().errors().setBeforeEach([&](std::string_view where, std::string_view of) {
        if (injected || where != procedure.toStdString() || of != form.toStdString())
            return;
        injected = true;
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    });
    auto* const sheet = window.findChild<QAbstractItemView*>(QStringLiteral("ObjProp"));
    const QPoint value = sheet->visualRect(sheet->model()->index(1, 1)).center();
    if (trigger == QLatin1String("resize")) {
        QWidget* const tool = run.widget(form.toLatin1().constData());
        tool->resize(tool->width() + 30, tool->height() + 30);
    } else if (trigger == QLatin1String("resize window")) {
        window.resize(window.width() - 40, window.height() - 40);
    } else if (trigger.startsWith(QLatin1String("open menu"))) {
        emit window.commands().menu("mObjects")->aboutToShow();
    } else if (trigger == QLatin1String("click property")) {
        QTest::mouseClick(sheet->viewport(), Qt::LeftButton, Qt::NoModifier, value);
    } else if (trigger == QLatin1String("key property")) {
        sheet->setFocus();
        QTest::keyClick(sheet, Qt::Key_W);
    } else if (trigger == QLatin1String("commit property") || trigger == QLatin1String("set property")) {
        QTest::mouseClick(sheet->viewport(), Qt::LeftButton, Qt::NoModifier, value);
        QTest::keyClicks(window.findChild<QWidget*>(QStringLiteral("txt_prop")), QStringLiteral("5"));
        QTest::keyClick(window.findChild<QWidget*>(QStringLiteral("txt_prop")), Qt::Key_Return);
    } else if (trigger == QLatin1String("close window")) {
        window.close();
    } else {
        run.dialogs.answers = {Answer::no};
        run.dialogs.paths = {folder_->file("library.xml")};
        run.editor->session().catalogue().setObjTreeItem("AA02");
        run.action(trigger.toLatin1().constData())->trigger();
    }
    QApplication::processEvents();
    QVERIFY2(injected, "the procedure did not run under its trap");
    const std::string report = "Error 9 (Subscript out of range) in procedure " + procedure.toStdString() +
                               " of Form " + form.toStdString();
    const auto told = std::count_if(run.dialogs.messages.begin(), run.dialogs.messages.end(),
                                    [&](const Message& message) { return message.text == report; });
    QCOMPARE(told, 1);
    QCOMPARE(run.ended, ends ? 1 : 0);
}

void EditorTest::layoutComesBack() {
    {
        EditorRun run(*folder_);
        QVERIFY2(run.widget("frmPreview")->height() > 150, "the first start leaves it room");
        DockHost& docks = run.editor->window().docks();
        docks.apply(QStringLiteral("frmObjTree"), {4, true, true});
        docks.apply(QStringLiteral("frmObjProp"), {2, true, false});
        docks.apply(QStringLiteral("frmPreview"), {3, false, true});
        run.editor->window().close();
        QVERIFY(run.dialogs.messages.empty());
    }
    EditorRun again(*folder_);
    DockHost& docks = again.editor->window().docks();
    QCOMPARE(docks.layout(QStringLiteral("frmObjTree")), (WindowLayout{4, true, true}));
    QCOMPARE(docks.layout(QStringLiteral("frmObjProp")), (WindowLayout{2, true, false}));
    QCOMPARE(docks.layout(QStringLiteral("frmPreview")).docked, false);
    again.action("mObjectProperties")->trigger();
    QVERIFY(docks.layout(QStringLiteral("frmObjProp")).visible);
}

void EditorTest::theWindowOpensWhicheverSettingIsMissing() {
    for (const char* const setting : {"<FsPath>x</FsPath>", "<MDLPath/>"}) {
        folder_->write("program/config.xml", std::string("<Configuration>") + setting + "</Configuration>");
        EditorRun run(*folder_);
        QVERIFY2(run.started, setting);
        for (const char* const name : {"frmObjTree", "frmPreview", "frmObjProp"})
            QVERIFY2(run.editor->window().docks().layout(QLatin1String(name)).align != 0, name);
    }
}

void EditorTest::dockablePanelToggles() {
    EditorRun run(*folder_);
    QWidget* const panel = run.widget("panel2");
    QDockWidget* const dock = run.editor->window().docks().dock(QStringLiteral("frmObjTree"));
    QVERIFY(dock->features().testFlag(QDockWidget::DockWidgetMovable));
    QTest::mouseClick(run.widget("panel1"), Qt::LeftButton);
    QVERIFY2(dock->features().testFlag(QDockWidget::DockWidgetMovable), "another panel does nothing");
    QTest::mouseClick(panel, Qt::LeftButton);
    QVERIFY(!dock->features().testFlag(QDockWidget::DockWidgetMovable));
    QTest::mouseClick(panel, Qt::LeftButton);
    QVERIFY2(dock->features().testFlag(QDockWidget::DockWidgetMovable),
             "a panel that is off takes clicks too");
}

void EditorTest::recentFilesKeepTheirAmpersands() {
    EditorRun run(*folder_, document(*folder_, "salt & pepper.xml", 1));
    QAction* const first = run.action("mLastFile(0)");
    QVERIFY(first->isVisible());
    QVERIFY(first->text().endsWith(QLatin1String("salt && pepper.xml")));
    QVERIFY(!run.action("mLastFile(1)")->isVisible());
    run.dialogs.answers = {Answer::no};
    first->trigger();
    QCOMPARE(run.editor->session().document().placementCount(), std::size_t(1));
}

void EditorTest::closingTheMainWindowAsksNothing() {
    EditorRun run(*folder_, document(*folder_, "a.xml", 1));
    run.editor->session().list().removeObject();
    QVERIFY(folder_->has("program/undo0000.xml"));
    run.editor->window().close();
    QVERIFY(run.dialogs.messages.empty());
    QVERIFY(folder_->has("program/config.xml"));
    QVERIFY(!folder_->has("program/undo0000.xml"));
}

void EditorTest::aCompileMessageLeadsToItsPlacement() {
    EditorRun run(*folder_, document(*folder_, "a.xml", 3));
    const std::string source = run.editor->session().document().serialise();
    const std::string message =
        "compile.xml(1," + std::to_string(source.rfind("<LibraryObject") + 1) + "): error: no such object";
#ifdef Q_OS_WIN
    folder_->write("program/bglcomp.bat", "@echo " + message + "\r\n");
#else
    const std::string compiler = folder_->write("program/bglcomp", "#!/bin/sh\necho '" + message + "'\n");
    std::filesystem::permissions(toPath(compiler), std::filesystem::perms::owner_all);
#endif
    bool seen = false;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        auto* const log = run.editor->window().findChild<QPlainTextEdit*>(QStringLiteral("txt_compile_log"));
        auto* const close = run.editor->window().findChild<QPushButton*>(QStringLiteral("cmdClose"));
        if (!log->isVisible() || !close->isEnabled())
            return;
        watch.stop();
        QTextCursor cursor = log->document()->find(QStringLiteral("error"));
        seen = !cursor.isNull();
        cursor.clearSelection();
        log->setTextCursor(cursor);
        QTest::keyClick(log, Qt::Key_Return);
        QTest::mouseClick(close, Qt::LeftButton);
    });
    watch.start(20);
    run.dialogs.paths = {folder_->file("a.bgl")};
    QCOMPARE(run.editor->session().list().selectedRow(), 1);
    run.action("mCompile")->trigger();
    QVERIFY2(seen, "the message is in the log");
    QCOMPARE(run.editor->session().list().selectedRow(), 3);
}

QTEST_MAIN(EditorTest)
#include "editor_test.moc"
