#include "preview/building_renderer.h"

#include "preview/texture_file.h"
#include "sample_buildings.h"
#include "texture_maker/texture_maker.h"

#include <QBuffer>
#include <QTest>

#include <algorithm>
#include <array>

namespace quillset {

using test::buildingFrom;

static const QSize frameSize(400, 300);

static Building parsed(const std::string& xml) {
    return buildingFrom(xml).value();
}

class BuildingRendererTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void bitmapsAgreeWithTheToolkit();
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

void BuildingRendererTest::missingTexturesAreNeutral() {
    const Building building = parsed("<GenericBuilding bottomTexture='84' roofTexture='36'>"
                                     "<RectangularBuilding sizeX='30' sizeZ='30' sizeBottomY='40'/>"
                                     "</GenericBuilding>");
    const QImage frame = renderer_->draw(building, 0.0F, frameSize);
    const QColor neutral(neutralColour.red, neutralColour.green, neutralColour.blue);
    QCOMPARE(frame.pixelColor(frame.rect().center()), neutral);
    QCOMPARE(frame.pixelColor(frame.width() / 2, 30), neutral); // the roof
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
    QVERIFY(renderer_->draw(parsed(bad[0]), 0.0F, QSize()).isNull());
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
