#include "preview/frmPreview.h"

#include "base/error_functions.h"
#include "preview/texture_loader.h"
#include "sample_buildings.h"
#include "sample_context.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"
#include "texture_maker/texture_maker.h"

#include <QAction>
#include <QImage>
#include <QTest>
#include <QTimer>

namespace quillset {

/// The window with the building preview at work, on a document with one plain building.
class PreviewBuildingTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();
    void turnsByItselfUntilStopped();
    void editsShowAtOnce();
    void aPictureGivesWayToTheBuilding();
    void resizingKeepsTheShape();

private:
    [[nodiscard]] QImage shown() const { return area_->grab().toImage(); }
    [[nodiscard]] int coloured() const;
    void setBuilding(const char* size, const char* colour);
    void toggleRotation() { window_->findChild<QAction*>(QStringLiteral("mRotatePreview"))->trigger(); }
    /// Returns after the timer has fired `count` more times.
    void waitForTicks(int count) const;

    test::ScriptedDialogs dialogs_;
    ErrorFunctions errors_{dialogs_, [] {}, [] {}};
    test::SampleContext context_;
    test::TemporaryFolder program_;
    std::unique_ptr<QWidget> host_;
    frmPreview* window_ = nullptr;
    QWidget* area_ = nullptr;
};

void PreviewBuildingTest::initTestCase() {
    const std::string texture = makeTexture(TextureTable::roof, "dkgray.bmp");
    for (const TextureTable table : textureTables)
        for (const std::string_view name : textureFiles(table))
            program_.write("texture/" + std::string(name), texture);
}

void PreviewBuildingTest::init() {
    context_.open = true;
    context_.kind = "RectangularBuilding";
    context_.genBuildSelected = true;
    dialogs_.messages.clear();
    setBuilding("40", "2");
    host_ = std::make_unique<QWidget>();
    window_ = new frmPreview(context_, errors_, std::vector{program_.path()}, host_.get());
    host_->resize(400, 300);
    window_->resize(310, 213);
    area_ = window_->findChild<QWidget*>(QStringLiteral("picPreview"));
    window_->initializeBuildingPreview(dialogs_, {program_.path(), program_.path()});
    QVERIFY2(window_->openGlReady(), "needs OpenGL: run under an X server such as Xvfb");
    host_->show();
}

void PreviewBuildingTest::cleanup() {
    host_.reset();
}

void PreviewBuildingTest::setBuilding(const char* size, const char* colour) {
    context_.document.load_string("<GenericBuilding><RectangularBuilding sizeZ='4' sizeBottomY='4'/>"
                                  "</GenericBuilding>");
    pugi::xml_node building = context_.document.child("GenericBuilding");
    building.append_attribute("bottomTexture") = colour;
    building.append_attribute("roofTexture") = colour;
    building.first_child().append_attribute("sizeX") = size;
}

int PreviewBuildingTest::coloured() const {
    const QImage image = shown();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y).saturation() > 100 ? 1 : 0;
    return count;
}

void PreviewBuildingTest::waitForTicks(int count) const {
    int ticks = 0;
    const QTimer* const timer = window_->findChild<QTimer*>(QStringLiteral("Timer1"));
    const auto connection = connect(timer, &QTimer::timeout, [&ticks] { ++ticks; });
    QTRY_VERIFY(ticks >= count);
    disconnect(connection);
}

void PreviewBuildingTest::turnsByItselfUntilStopped() {
    QVERIFY(dialogs_.messages.empty()); // all textures were there
    QTRY_VERIFY(coloured() > 500);
    const QImage first = shown();
    QTRY_VERIFY(shown() != first);
    toggleRotation();
    waitForTicks(1);
    const QImage stopped = shown();
    waitForTicks(3);
    QCOMPARE(shown(), stopped);
    toggleRotation();
    QTRY_VERIFY(shown() != stopped);
}

void PreviewBuildingTest::editsShowAtOnce() {
    toggleRotation();
    QTRY_VERIFY(coloured() > 500);
    const QImage before = shown();
    QVERIFY(before.pixelColor(before.rect().center()).red() > 200);
    context_.document.child("GenericBuilding").attribute("bottomTexture") = "7";
    context_.document.child("GenericBuilding").attribute("roofTexture") = "3";
    waitForTicks(2);
    const QImage after = shown();
    QCOMPARE(after.pixelColor(after.rect().center()), QColor(Qt::blue));
    context_.document.child("GenericBuilding").remove_children();
    waitForTicks(2);
    QCOMPARE(shown(), after);
}

void PreviewBuildingTest::aPictureGivesWayToTheBuilding() {
    toggleRotation();
    QTRY_VERIFY(coloured() > 500);
    window_->loadPreviewPicture("rectangular");
    QCOMPARE(coloured(), 0);
    QTRY_VERIFY(coloured() > 500);
}

// Also while the timer has nothing to draw, the frame on show follows the size of its area.
void PreviewBuildingTest::resizingKeepsTheShape() {
    toggleRotation();
    QTRY_VERIFY(coloured() > 500);
    context_.genBuildSelected = false;
    const int before = coloured();
    window_->resize(310, 413);
    const double ratio = static_cast<double>(coloured()) / before;
    QVERIFY2(ratio > 0.97 && ratio < 1.03, "the width decides here, and it has not changed");
}

} // namespace quillset

QTEST_MAIN(quillset::PreviewBuildingTest)
#include "frmPreview_building_test.moc"
