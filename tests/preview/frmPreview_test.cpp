#include "preview/frmPreview.h"

#include "base/error_functions.h"
#include "preview/texture_loader.h"
#include "sample_context.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QImage>
#include <QMenu>
#include <QTest>

namespace quillset {

class PreviewWindowTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void picturesFillTheTopLeftSquare();
    void layoutFollowsTheDockingState();
    void rightButtonOffersRotation();
    void withoutOpenGlPicturesStillWork();

private:
    test::ScriptedDialogs dialogs_;
    ErrorFunctions errors_{dialogs_, [] {}, [] {}};
    test::SampleContext context_;
    test::TemporaryFolder program_;
};

// As in the docking host: a child, so that no window manager's frame adds to its outer size.
struct Docked {
    Docked(const PreviewContext& context, ErrorFunctions& errors, const std::string& programFolder)
        : window(context, errors, {programFolder}, &host) {
        host.resize(500, 500);
    }
    QWidget host;
    frmPreview window;
};

static QWidget* pictureAreaOf(const frmPreview& window) {
    return window.findChild<QWidget*>(QStringLiteral("picPreview"));
}

void PreviewWindowTest::init() {
    QImage red(4, 2, QImage::Format_RGB32);
    red.fill(Qt::red);
    program_.write("pics/readme", "");
    QVERIFY(red.save(QString::fromStdString(program_.file("pics/abc.bmp"))));
    context_.dockState = 0;
    dialogs_ = {};
}

void PreviewWindowTest::picturesFillTheTopLeftSquare() {
    Docked docked(context_, errors_, program_.path());
    frmPreview& window = docked.window;
    QWidget* const area = pictureAreaOf(window);
    window.resize(410, 213);
    docked.host.show();
    const QColor background = area->grab().toImage().pixelColor(0, 0);

    window.loadPreviewPicture("ABC");
    const QImage shown = area->grab().toImage();
    QCOMPARE(shown.size(), QSize(400, 200));
    QCOMPARE(shown.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(199, 199), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(201, 199), background);

    window.loadPreviewPicture("none");
    QCOMPARE(area->grab().toImage().pixelColor(0, 0), background);
    program_.write("pics/broken.bmp", "BM, but no more");
    window.loadPreviewPicture("abc");
    window.loadPreviewPicture("broken");
    QCOMPARE(area->grab().toImage().pixelColor(0, 0), background);
}

void PreviewWindowTest::layoutFollowsTheDockingState() {
    context_.dockState = 3;
    Docked docked(context_, errors_, program_.path());
    frmPreview& window = docked.window;
    window.resize(300, 200);
    docked.host.show();
    // 1 pixel is 15 twips: 75 -> 5, 400 -> 27, 150 -> 10, 500 -> 33.
    QCOMPARE(pictureAreaOf(window)->geometry(), QRect(5, 27, 290, 167));
    window.resize(300, 33);
    QCOMPARE(pictureAreaOf(window)->geometry(), QRect(5, 27, 290, 167));
    context_.dockState = 1;
    window.resize(320, 200);
    QCOMPARE(pictureAreaOf(window)->geometry(), QRect(27, 7, 287, 187));
}

void PreviewWindowTest::rightButtonOffersRotation() {
    Docked docked(context_, errors_, program_.path());
    frmPreview& window = docked.window;
    window.resize(300, 200);
    docked.host.show();
    QMenu* const menu = window.findChild<QMenu*>(QStringLiteral("mRotate"));
    QAction* const rotate = window.findChild<QAction*>(QStringLiteral("mRotatePreview"));
    QCOMPARE(rotate->text(), QStringLiteral("Rotate Preview"));
    QTest::mouseClick(pictureAreaOf(window), Qt::LeftButton);
    QVERIFY(!menu->isVisible());
    QTest::mouseClick(pictureAreaOf(window), Qt::RightButton);
    QVERIFY(menu->isVisible());
    QVERIFY(rotate->isChecked());
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QVERIFY(!menu->isVisible());
    QTest::mouseClick(pictureAreaOf(window), Qt::RightButton);
    QVERIFY(!rotate->isChecked());
    menu->close();
    QTest::mousePress(pictureAreaOf(window), Qt::RightButton);
    QTest::mouseRelease(pictureAreaOf(window), Qt::RightButton, {}, QPoint(-20, 5));
    QVERIFY2(!menu->isVisible(), "released elsewhere");
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(pictureAreaOf(window), &menuKey);
    QVERIFY(menu->isVisible());
    menu->close();
}

void PreviewWindowTest::withoutOpenGlPicturesStillWork() {
    Docked docked(context_, errors_, program_.path());
    docked.window.initializeBuildingPreview(dialogs_, {program_.path(), program_.path()});
    const Message expected{"Could not initialize OpenGL, dynamic preview will not work", "Quillset XML",
                           MessageButtons::ok, MessageIcon::information};
    QVERIFY(dialogs_.messages == std::vector<Message>{expected});
    QVERIFY(!docked.window.openGlReady());
    QVERIFY(!program_.has("temp.bmp"));
    docked.window.resize(200, 200);
    docked.host.show();
    docked.window.loadPreviewPicture("abc");
    QCOMPARE(pictureAreaOf(docked.window)->grab().toImage().pixelColor(5, 5), QColor(Qt::red));
}

} // namespace quillset

QTEST_MAIN(quillset::PreviewWindowTest)
#include "frmPreview_test.moc"
