#include "geodata/frmCoorConv.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <map>
#include <optional>

using namespace quillset;

class FrmCoorConvTest : public QObject {
    Q_OBJECT
private slots:
    void init() {
        written_.clear();
        window_.emplace([this](const std::string& name, const std::string& text) { written_[name] = text; },
                        QStringLiteral(","));
        window_->show();
        window_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&*window_));
    }

    void eachKeystrokeConverts() {
        QCOMPARE(window_->windowTitle(), QStringLiteral("Coordinate conversion"));
        QVERIFY(field("txt_lat")->text().isEmpty());
        QTest::keyClicks(field("txt_rd_y"), QStringLiteral("487000"));
        QStringList latitudes;
        for (const QChar digit : QStringLiteral("121000")) {
            QTest::keyClick(field("txt_rd_x"), digit.toLatin1());
            latitudes << field("txt_lat")->text();
        }
        QCOMPARE(latitudes.removeDuplicates(), 0);
        QCOMPARE(field("txt_lat")->text(), QStringLiteral("52,3698269751196"));
        QCOMPARE(field("txt_lon")->text(), QStringLiteral("4,88797016841449"));
    }

    void theTextsAreWrittenAsTheUserLeftThem() {
        QTest::keyClicks(field("txt_rd_x"), QStringLiteral("155000"));
        QTest::keyClicks(field("txt_rd_y"), QStringLiteral("463000"));
        QTest::keyClick(field("txt_lat"), Qt::Key_End);
        QTest::keyClicks(field("txt_lat"), QStringLiteral(" ?"));
        QVERIFY(written_.empty());
        QTest::mouseClick(window_->findChild<QPushButton*>(QStringLiteral("cmd_write_properties")),
                          Qt::LeftButton);
        QCOMPARE(written_.size(), 2U);
        QCOMPARE(QString::fromStdString(written_["lat"]), QStringLiteral("52.1551732749981 ?"));
        QCOMPARE(QString::fromStdString(written_["lon"]), QStringLiteral("5.38720358836977"));
    }

private:
    QLineEdit* field(const char* name) { return window_->findChild<QLineEdit*>(QLatin1String(name)); }

    std::optional<frmCoorConv> window_;
    std::map<std::string, std::string> written_;
};

QTEST_MAIN(FrmCoorConvTest)
#include "frmCoorConv_test.moc"
