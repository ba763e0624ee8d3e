#include "preview/building_renderer.h"

#include "preview/building_view.h"
#include "preview/texture_file.h"
#include "sample_buildings.h"
#include "texture_maker/texture_maker.h"

#include <QBuffer>
#include <QTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <set>

namespace quillset {

using test::buildingFrom;

static const QSize frameSize(400, 300);

static Building parsed(const std::string& xml) {
    return buildingFrom(xml).value();
}

/// A place on a building: east, north, up.
struct Place {
    double east, north, up;
};

/// The pixel in which a place appears, worked out by hand from the turn, the tilt and the projection.
static QPointF pixelOf(const Building& building, const Place& place, double turnDegrees) {
    const double turn = turnDegrees * std::numbers::pi / 180;
    const double right = place.east * std::cos(turn) - place.north * std::sin(turn);
    const double away = place.east * std::sin(turn) + place.north * std::cos(turn);
    const double upwards = away * 0.5 + place.up * std::sqrt(3.0) / 2;
    const double aspect = static_cast<double>(frameSize.width()) / frameSize.height();
    const ViewBox box = viewBoxOf(buildMesh(building), aspect);
    return {(right - box.left) / (box.right - box.left) * frameSize.width(),
            (box.top - upwards) / (box.top - box.bottom) * frameSize.height()};
}

static QColor colourAt(const QImage& frame, const QPointF& pixel) {
    return frame.pixelColor(static_cast<int>(pixel.x()), static_cast<int>(pixel.y()));
}

class BuildingRendererTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void bitmapsAgreeWithTheToolkit();
    void backgroundIsWhite();
    void texelsLandWhereTheyBelong_data();
    void texelsLandWhereTheyBelong();
    void lightFollowsTheTurn();
    void smoothingRoundsTheShading();
    void missingTexturesAreNeutral();
    void drawsImpossibleBuildings();
    void looksAsBefore_data();
    void looksAsBefore();

private:
    void uploadMadeTextures();

    std::unique_ptr<BuildingRenderer> renderer_;
};

void BuildingRendererTest::initTestCase() {
    renderer_ = BuildingRenderer::create();
    QVERIFY2(renderer_, "needs OpenGL: run under an X server such as Xvfb");
}

// An independent reader and writer of bitmaps, both ways, with rows that need padding.
void BuildingRendererTest::bitmapsAgreeWithTheToolkit() {
    QImage image(5, 9, QImage::Format_RGB32);
    for (int y = 0; y < 9; ++y)
        for (int x = 0; x < 5; ++x)
            image.setPixelColor(x, y, QColor(40 * x, 25 * y, 10 * x + y));
    for (const QImage::Format format : {QImage::Format_RGB888, QImage::Format_Indexed8}) {
        const QImage written = image.convertToFormat(format);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::WriteOnly) && written.save(&buffer, "BMP"));
        const std::optional<Picture> picture = decodeTexture(bytes.toStdString());
        QVERIFY(picture);
        const QImage back = QImage::fromData(QByteArray::fromStdString(encodeBitmap(*picture)), "BMP");
        QCOMPARE(back.convertToFormat(QImage::Format_RGB32), written.convertToFormat(QImage::Format_RGB32));
    }
    // Of an extended bitmap the toolkit sees the main picture.
    const std::string made = makeTexture(TextureTable::roof, "roof1.bmp");
    const QImage byToolkit = QImage::fromData(QByteArray::fromStdString(made), "BMP");
    const QImage byUs =
        QImage::fromData(QByteArray::fromStdString(encodeBitmap(decodeTexture(made).value())), "BMP");
    QCOMPARE(byUs.convertToFormat(QImage::Format_RGB32), byToolkit.convertToFormat(QImage::Format_RGB32));
}

void BuildingRendererTest::backgroundIsWhite() {
    const QImage frame = renderer_->draw(parsed(test::rectangularXml("")), 30.0F, frameSize);
    QCOMPARE(frame.size(), frameSize);
    for (const QPoint corner : {QPoint(0, 0), QPoint(399, 0), QPoint(0, 299), QPoint(399, 299)})
        QCOMPARE(frame.pixelColor(corner), QColor(Qt::white));
    QVERIFY(renderer_->draw(parsed(test::rectangularXml("")), 0.0F, QSize()).isNull());
}

// Every texel tells its column in red and its row in green; blue tells the table.
static Picture tellingPicture(int table) {
    Picture picture{256, 256, {}};
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            for (const int channel : {100 + 50 * table, y, x})
                picture.pixels.push_back(static_cast<std::uint8_t>(channel));
    return picture;
}

void BuildingRendererTest::texelsLandWhereTheyBelong_data() {
    QTest::addColumn<QString>("roof");
    QTest::addColumn<double>("turn");
    QTest::addColumn<QList<double>>("place");
    QTest::addColumn<QList<int>>("texel"); // table, column, row
    const QString flat = QStringLiteral("roofType='FLAT'");
    const QString pointed = QStringLiteral("sizeRoofY='20' textureIndexGableZ='256' gableTexture='%1' "
                                           "faceTexture='%1' roofType='");
    const QString ridge = pointed.arg(19) + QStringLiteral("RIDGE'");
    const QString slant = pointed.arg(18) + QStringLiteral("SLANT'");
    const QString peaked = pointed.arg(18) + QStringLiteral("PEAKED' textureIndexRoofY='256'");
    // Footprint 40 (X) by 30 (Z), storeys 10, 80, 10: the window storey repeats 2 times across, 4 times up.
    QTest::newRow("window south, lower left tile")
        << flat << 0.0 << QList<double>{-15, -15, 20} << QList<int>{1, 64, 128};
    QTest::newRow("window south, upper right tile")
        << flat << 0.0 << QList<double>{10, -15, 75} << QList<int>{1, 128, 64};
    QTest::newRow("window east") << flat << 270.0 << QList<double>{20, -9.375, 15} << QList<int>{1, 96, 64};
    QTest::newRow("window north") << flat << 180.0 << QList<double>{15, 15, 20} << QList<int>{1, 64, 128};
    QTest::newRow("window west, seen from the corner")
        << flat << 120.0 << QList<double>{-20, 9.375, 15} << QList<int>{1, 96, 64};
    QTest::newRow("bottom, lower half") << flat << 0.0 << QList<double>{10, -15, 5} << QList<int>{0, 192, 64};
    QTest::newRow("top, lower half") << flat << 0.0 << QList<double>{-10, -15, 97.5} << QList<int>{0, 64, 96};
    QTest::newRow("flat roof") << flat << 0.0 << QList<double>{10, -7.5, 100} << QList<int>{2, 192, 64};
    QTest::newRow("flat roof, turned")
        << flat << 200.0 << QList<double>{10, -7.5, 100} << QList<int>{2, 192, 64};
    QTest::newRow("ridge roof") << ridge << 0.0 << QList<double>{10, -7.5, 110} << QList<int>{2, 192, 128};
    QTest::newRow("ridge gable, upper half")
        << ridge << 270.0 << QList<double>{20, 0, 110} << QList<int>{0, 128, 192};
    QTest::newRow("slant roof") << slant << 0.0 << QList<double>{10, 0, 110} << QList<int>{2, 192, 128};
    QTest::newRow("slant gable") << slant << 270.0 << QList<double>{20, 7.5, 110} << QList<int>{0, 192, 64};
    QTest::newRow("slant face") << slant << 180.0 << QList<double>{10, 15, 110} << QList<int>{0, 64, 64};
    QTest::newRow("peaked roof") << peaked << 0.0 << QList<double>{0, -7.5, 110} << QList<int>{2, 128, 128};
}

void BuildingRendererTest::texelsLandWhereTheyBelong() {
    QFETCH(QString, roof);
    QFETCH(double, turn);
    QFETCH(QList<double>, place);
    QFETCH(QList<int>, texel);
    renderer_->upload(TextureTable::wall, 5, tellingPicture(0));    // codes 18 and 19
    renderer_->upload(TextureTable::window, 28, tellingPicture(1)); // code 32
    renderer_->upload(TextureTable::roof, 21, tellingPicture(2));   // code 25
    const Building building = parsed(test::rectangularXml(roof.toStdString()));
    const QImage frame = renderer_->draw(building, static_cast<float>(turn), frameSize);
    const QColor shown = colourAt(frame, pixelOf(building, {place[0], place[1], place[2]}, turn));
    QCOMPARE(shown.blue(), 100 + 50 * texel[0]);
    // One pixel covers up to 9 texels here.
    QVERIFY2(std::abs(shown.red() - texel[1]) <= 9 && std::abs(shown.green() - texel[2]) <= 9,
             qPrintable(QStringLiteral("column %1, row %2").arg(shown.red()).arg(shown.green())));
}

// Light comes from the viewer: 0.8 everywhere and up to 0.75 more on what faces him, cut at 1.
void BuildingRendererTest::lightFollowsTheTurn() {
    const Building building =
        parsed("<GenericBuilding bottomTexture='2' roofTexture='3'><RectangularBuilding sizeX='30' "
               "sizeZ='30' sizeBottomY='40'/></GenericBuilding>");
    for (const int turn : {0, 60, 75, 80, 85}) {
        const QImage frame = renderer_->draw(building, static_cast<float>(turn), frameSize);
        const double facing = std::sqrt(3.0) / 2 * std::cos(turn * std::numbers::pi / 180);
        const double expected = std::min(1.0, 0.8 + 0.75 * facing) * 255;
        const QColor south = colourAt(frame, pixelOf(building, {0, -15, 20}, turn));
        QVERIFY2(std::abs(south.red() - expected) <= 1.0, qPrintable(QString::number(south.red())));
        QCOMPARE(south.green(), 0);
        QCOMPARE(colourAt(frame, pixelOf(building, {0, 0, 40}, turn)), QColor(0, 0, 255));
    }
}

static std::size_t shadesOf(const QImage& frame) {
    std::set<QRgb> shades;
    for (int x = 0; x < frame.width(); ++x)
        shades.insert(frame.pixel(x, frame.height() / 2));
    return shades.size();
}

void BuildingRendererTest::smoothingRoundsTheShading() {
    const std::string sides =
        "<MultiSidedBuilding buildingSides='12' sizeX='40' sizeZ='40' sizeBottomY='40' ";
    const std::string open = "<GenericBuilding bottomTexture='0' roofTexture='0'>" + sides;
    const Building flat = parsed(open + "smoothing='FALSE'/></GenericBuilding>");
    const Building smooth = parsed(open + "smoothing='TRUE'/></GenericBuilding>");
    const std::size_t flatShades = shadesOf(renderer_->draw(flat, 8.0F, frameSize));
    const std::size_t smoothShades = shadesOf(renderer_->draw(smooth, 8.0F, frameSize));
    QVERIFY2(flatShades <= 6, qPrintable(QString::number(flatShades)));
    QVERIFY2(smoothShades >= 10, qPrintable(QString::number(smoothShades)));
}

void BuildingRendererTest::missingTexturesAreNeutral() {
    const Building building = parsed("<GenericBuilding bottomTexture='84' roofTexture='36'>"
                                     "<RectangularBuilding sizeX='30' sizeZ='30' sizeBottomY='40'/>"
                                     "</GenericBuilding>");
    const QImage frame = renderer_->draw(building, 0.0F, frameSize);
    const QColor neutral(neutralColour.red, neutralColour.green, neutralColour.blue);
    QCOMPARE(colourAt(frame, pixelOf(building, {0, -15, 20}, 0)), neutral);
    QCOMPARE(colourAt(frame, pixelOf(building, {0, 0, 40}, 0)), neutral);
}

void BuildingRendererTest::drawsImpossibleBuildings() {
    const std::string bad[] = {
        "<GenericBuilding><RectangularBuilding/></GenericBuilding>",
        "<GenericBuilding scale='1e300'><MultiSidedBuilding buildingSides='1e9' sizeX='1e9' sizeZ='1e9' "
        "sizeBottomY='1e9' sizeRoofY='1e9'/></GenericBuilding>",
        test::rectangularXml("roofType='SLANT' sizeRoofY='1' faceTexture='18' textureIndexFaceY='65535'"),
    };
    for (const std::string& xml : bad) {
        const QImage frame = renderer_->draw(parsed(xml), 10.0F, QSize(3, 200));
        QCOMPARE(frame.size(), QSize(3, 200));
        QCOMPARE(frame.pixelColor(0, 0), QColor(Qt::white));
    }
}

/// The textures that the pictures below show.
static constexpr std::array<std::string_view, 10> usedTextures{
    "br_apt1_2.bmp", "gr_apt1_2.bmp",  "ap_tb1_2.bmp",    "br_apt1w.bmp",       "wh_w4.bmp",
    "dkgray.bmp",    "tileroof_1.bmp", "shingleroof.bmp", "corrugatedroof.bmp", "lightgravelroof.bmp"};

void BuildingRendererTest::looksAsBefore_data() {
    QTest::addColumn<QString>("xml");
    QTest::addColumn<double>("turn");
    const auto add = [](const char* name, const std::string& xml, double turn) {
        QTest::newRow(name) << QString::fromStdString(xml) << turn;
    };
    const std::string low = " sizeX='40' sizeZ='24' sizeBottomY='8' sizeWindowY='16' sizeTopY='6' "
                            "textureIndexWindowX='512' textureIndexWindowY='256' sizeRoofY='12' "
                            "gableTexture='9' faceTexture='8' ";
    const auto house = [&](const std::string& roofType, const std::string& roofTexture) {
        return "<GenericBuilding bottomTexture='8' windowTexture='4' topTexture='9' roofTexture='" +
               roofTexture + "'><RectangularBuilding roofType='" + roofType + "'" + low +
               "/></GenericBuilding>";
    };
    const std::string fresh = " sizeX='40' sizeZ='40' sizeBottomY='10' sizeWindowY='80' sizeTopY='10' ";
    add("rectangular",
        test::buildingXml("<RectangularBuilding textureIndexWindowX='512' textureIndexWindowY='1024' "
                          "textureIndexWindowZ='512'" +
                          fresh + "/>"),
        -30);
    add("peaked", house("PEAKED", "17"), -35);
    add("ridge", house("RIDGE", "36"), -40);
    add("slant", house("SLANT", "37"), -50);
    add("slant-back", house("SLANT", "37"), 150);
    add("pyramidal",
        test::buildingXml("<PyramidalBuilding sizeTopX='30' sizeTopZ='30' textureIndexWindowY='1024'" +
                          fresh + "/>"),
        25);
    add("multisided",
        test::buildingXml("<MultiSidedBuilding buildingSides='12' textureIndexWindowX='1536' "
                          "textureIndexWindowY='1024'" +
                          fresh + "/>"),
        10);
    add("cone",
        "<GenericBuilding bottomTexture='24' windowTexture='32' topTexture='24' roofTexture='34'>"
        "<MultiSidedBuilding buildingSides='40' smoothing='TRUE' sizeX='30' sizeZ='30' sizeBottomY='10' "
        "textureIndexBottomX='512' sizeWindowY='20' textureIndexWindowX='1024' textureIndexWindowY='512' "
        "sizeRoofY='14' textureIndexRoofX='1024'/></GenericBuilding>",
        10);
}

void BuildingRendererTest::uploadMadeTextures() {
    for (const TextureTable table : textureTables) {
        int index = 0;
        for (const std::string_view name : textureFiles(table))
            if (std::find(usedTextures.begin(), usedTextures.end(), name) != usedTextures.end())
                renderer_->upload(table, index++, decodeTexture(makeTexture(table, name)).value());
            else
                ++index;
    }
}

// The largest difference that remains after a blur over 4 x 4 pixels: edges may lie a fraction of a pixel
// elsewhere, areas may not change.
static int differenceOf(const QImage& a, const QImage& b) {
    if (a.size() != b.size())
        return 255;
    const auto blurred = [](const QImage& image) {
        return image.scaled(image.size() / 4, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_RGB32);
    };
    const QImage first = blurred(a);
    const QImage second = blurred(b);
    int largest = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const QColor one = first.pixelColor(x, y);
            const QColor other = second.pixelColor(x, y);
            largest = std::max({largest, std::abs(one.red() - other.red()),
                                std::abs(one.green() - other.green()), std::abs(one.blue() - other.blue())});
        }
    }
    return largest;
}

// With QUILLSET_KEEP_PICTURES set to a folder, the frames are kept there, to be looked at and committed.
void BuildingRendererTest::looksAsBefore() {
    QFETCH(QString, xml);
    QFETCH(double, turn);
    uploadMadeTextures();
    const QImage frame =
        renderer_->draw(parsed(xml.toStdString()), static_cast<float>(turn), QSize(168, 140));
    const QString name = QString::fromUtf8(QTest::currentDataTag()) + QStringLiteral(".png");
    const QString kept = qEnvironmentVariable("QUILLSET_KEEP_PICTURES");
    if (!kept.isEmpty())
        QVERIFY(frame.save(kept + QStringLiteral("/") + name));
    const QImage expected(QStringLiteral(QUILLSET_TEST_DATA "/preview/") + name);
    QVERIFY2(!expected.isNull(), qPrintable(name));
    const int difference = differenceOf(frame, expected);
    QVERIFY2(difference <= 16, qPrintable(QString::number(difference)));
}

} // namespace quillset

QTEST_MAIN(quillset::BuildingRendererTest)
#include "building_renderer_test.moc"
