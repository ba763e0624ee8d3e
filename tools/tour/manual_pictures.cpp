#include "manual_pictures.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTest>

namespace quillset::tour {

namespace {

QByteArray placement(const char* comment, const char* position, const QByteArray& content) {
    return QByteArray("<!--") + comment + "-->\n<SceneryObject " + position +
           " pitch=\"0.0\" bank=\"0.0\" altitudeIsAgl=\"TRUE\" imageComplexity=\"NORMAL\">" + content +
           "</SceneryObject>\n";
}

QByteArray object(const char* guid) {
    return QByteArray("<LibraryObject name=\"") + guid + "\" scale=\"1.0\"/>";
}

QByteArray warehouse() {
    return "<GenericBuilding scale=\"1.0\" bottomTexture=\"18\" windowTexture=\"32\" topTexture=\"18\" "
           "roofTexture=\"25\"><RectangularBuilding roofType=\"RIDGE\" sizeX=\"60\" sizeZ=\"40\" "
           "sizeBottomY=\"6\" textureIndexBottomX=\"512\" textureIndexBottomZ=\"256\" sizeWindowY=\"24\" "
           "textureIndexWindowX=\"768\" textureIndexWindowY=\"768\" textureIndexWindowZ=\"512\" "
           "sizeTopY=\"4\" "
           "textureIndexTopX=\"512\" textureIndexTopZ=\"256\" textureIndexRoofX=\"512\" "
           "textureIndexRoofZ=\"512\" sizeRoofY=\"14\" gableTexture=\"18\" "
           "textureIndexGableY=\"256\" textureIndexGableZ=\"512\"/></GenericBuilding>";
}

QByteArray tank() {
    return "<GenericBuilding scale=\"1.0\" bottomTexture=\"18\" windowTexture=\"32\" topTexture=\"18\" "
           "roofTexture=\"25\"><MultiSidedBuilding buildingSides=\"16\" smoothing=\"TRUE\" sizeX=\"30\" "
           "sizeZ=\"30\" sizeBottomY=\"6\" textureIndexBottomX=\"512\" sizeWindowY=\"20\" "
           "textureIndexWindowX=\"512\" textureIndexWindowY=\"512\" sizeTopY=\"4\" textureIndexTopX=\"512\" "
           "sizeRoofY=\"5\" textureIndexRoofX=\"256\" textureIndexRoofY=\"256\" textureIndexRoofZ=\"256\"/>"
           "</GenericBuilding>";
}

QByteArray harbour() {
    const auto at = [](const char* lat, const char* lon, const char* heading) {
        return QByteArray("lat=\"") + lat + "\" lon=\"" + lon + "\" alt=\"0M\" heading=\"" + heading + "\"";
    };
    return "<FSData version=\"9.0\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
           "xsi:noNamespaceSchemaLocation=\"bglcomp.xsd\">\n" +
           placement("Light on the north mole", at("52.9672", "4.7831", "0"),
                     object("BE7FA03648CD6133C3BDA3B335ABE639")) +
           placement("Warehouse 1", at("52.96418", "4.78604", "112"), warehouse()) +
           placement("Warehouse 2", at("52.96391", "4.78692", "112"), warehouse()) +
           placement("Fuel tank", at("N52 57.795", "E4 47.331", "0"), tank()) +
           placement("Water tower", at("52.96012", "4.79188", "0"),
                     object("9F3D627848E0B0824A8DEE8DDF6F91FA")) +
           placement("Sailing boat, visitors' jetty", at("52.96302", "4.78415", "205"),
                     object("C545A29D11D2E2EC1000849C2AE60C5A")) +
           placement("Sailing boat at anchor", at("52.96551", "4.78012", "64"),
                     object("C545A29C11D2E2EC1000849C2AE60C5A")) +
           placement("Green light, south mole", at("52.96483", "4.78177", "0"),
                     "<Effect effectName=\"fx_qs_beacon_green.fx\" effectParams=\"\"/>") +
           placement("Ferry", at("52.96121", "4.78555", "17"), object("F468350B4EEF1C1BF676C29E9489A49E")) +
           "</FSData>\n";
}

} // namespace

ManualPictures::ManualPictures(Editor& editor, const QString& results, const QString& pictures)
    : editor_(editor)
    , results_(QDir(results).absolutePath())
    , pictures_(QDir(pictures).absolutePath())
    , robot_(results_ + QStringLiteral("/pictures")) {
    QDir().mkpath(pictures_);
}

bool ManualPictures::start() {
    bool started = false;
    robot_.withDialogs([&] { started = editor_.start(); },
                       {[&](QWidget* dialog) { robot_.pressButton(dialog, QStringLiteral("OK")); }});
    return started;
}

void ManualPictures::run() {
    take("start-page", &editor_.window());
    openHarbour();
    take("main-window", &editor_.window());
    take("preview", dock("frmPreview"));
    catalogue();
    listMenu();
    properties();
    conversion();
    compileLog();
    colours();
}

void ManualPictures::openHarbour() {
    const QString path = results_ + QStringLiteral("/Harbour.xml");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(harbour()) < 0)
        throw TourError("cannot write " + path.toStdString());
    file.close();
    robot_.withDialogs([&] { robot_.key(Qt::Key_O, Qt::ControlModifier); },
                       {[&](QWidget* dialog) { robot_.chooseFile(dialog, path); }});
    robot_.waitFor([&] { return editor_.session().document().placementCount() > 0; },
                   QStringLiteral("the harbour"));
    clickRow(2);
    QTest::qWait(1500); // the building turns its better side to the front
}

void ManualPictures::catalogue() {
    auto& search = dynamic_cast<QLineEdit&>(*robot_.find("txt_search"));
    robot_.click(&search);
    robot_.type(QStringLiteral("light"));
    robot_.waitFor([&] { return search.text().size() == 5; }, QStringLiteral("the search"));
    QTest::qWait(500); // the list follows the typing after a moment
    take("catalogue", dock("frmObjTree"));
    search.clear();
    robot_.settle();
}

void ManualPictures::listMenu() {
    clickRow(4, Qt::RightButton);
    auto* const menu = editor_.window().findChild<QMenu*>(QStringLiteral("mXMLList"));
    robot_.waitFor([&] { return menu->isVisible(); }, QStringLiteral("the list's menu"));
    take("object-list", robot_.find("documentArea"));
    menu->close();
    robot_.settle();
}

void ManualPictures::properties() {
    clickRow(2);
    auto& sheet = dynamic_cast<QAbstractItemView&>(*robot_.find("ObjProp"));
    const QAbstractItemModel& model = *sheet.model();
    for (int row = 0; row < model.rowCount(); ++row)
        if (const QModelIndex name = model.index(row, 0); name.data().toString() == QLatin1String("lon")) {
            sheet.scrollTo(name);
            robot_.click(sheet.viewport(), sheet.visualRect(name.siblingAtColumn(1)).center());
        }
    take("properties", dock("frmObjProp"));
    robot_.key(Qt::Key_Escape);
}

void ManualPictures::conversion() {
    robot_.chooseCommand(&editor_.window(), "mEdit", "mCoorConv");
    robot_.typeInto(robot_.find("txt_rd_x"), QStringLiteral("113460"));
    robot_.typeInto(robot_.find("txt_rd_y"), QStringLiteral("553120"));
    QWidget* const window = robot_.find("frmCoorConv");
    take("coordinate-conversion", window);
    window->window()->close();
    robot_.settle();
}

void ManualPictures::compileLog() {
    robot_.withDialogs(
        [&] { robot_.key(Qt::Key_F7); },
        {[&](QWidget* dialog) { robot_.chooseFile(dialog, results_ + QStringLiteral("/Harbour.bgl")); },
         [&](QWidget* window) {
             if (window->findChild<QPlainTextEdit*>(QStringLiteral("txt_compile_log")) == nullptr)
                 throw TourError("the compile log did not come up; is there a compiler?");
             take("compile-log", window);
             robot_.pressButton(window, QStringLiteral("Close"));
         }});
}

void ManualPictures::colours() {
    editor_.window().findChild<QAction*>(QStringLiteral("mAppearance_dark"))->trigger();
    take("dark", &editor_.window());
    editor_.window().findChild<QAction*>(QStringLiteral("mAppearance_light"))->trigger();
    editor_.window().close();
}

void ManualPictures::clickRow(int row, Qt::MouseButton button) {
    auto& list = dynamic_cast<QAbstractItemView&>(*robot_.find("XMLList"));
    robot_.click(list.viewport(), list.visualRect(list.model()->index(row - 1, 0)).center(), button);
    robot_.settle();
}

QWidget* ManualPictures::dock(const char* window) const {
    return editor_.window().docks().dock(QLatin1String(window));
}

void ManualPictures::take(const char* name, const QWidget* widget) {
    robot_.settle();
    const QRect place(widget->mapToGlobal(QPoint(0, 0)), widget->size());
    const QPixmap picture =
        QGuiApplication::primaryScreen()->grabWindow(0, place.x(), place.y(), place.width(), place.height());
    const QString path = QStringLiteral("%1/%2.png").arg(pictures_, QLatin1String(name));
    if (picture.isNull() || !picture.save(path, "PNG", 0))
        throw TourError("cannot write the picture " + path.toStdString());
}

} // namespace quillset::tour
