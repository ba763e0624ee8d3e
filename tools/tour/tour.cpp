#include "tour.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTreeView>

namespace quillset::tour {

namespace {

QModelIndex childWithText(const QAbstractItemModel& model, const QModelIndex& parent, const QString& text) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (text.isEmpty() || index.data().toString() == text)
            return index;
    }
    throw TourError("not in the catalogue: " + text.toStdString());
}

} // namespace

Tour::Tour(Editor& editor, const QString& results)
    : editor_(editor)
    , results_(QDir(results).absolutePath())
    , robot_(results_ + QStringLiteral("/pictures")) {}

QString Tour::file(const char* name) const {
    return QDir::toNativeSeparators(results_ + QLatin1Char('/') + QLatin1String(name));
}

QAbstractItemView& Tour::listView() const {
    return dynamic_cast<QAbstractItemView&>(*robot_.find("XMLList"));
}

void Tour::expectRows(int count) const {
    const int shown = listView().model()->rowCount();
    if (shown != count)
        throw TourError("the list shows " + std::to_string(shown) + " rows, not " + std::to_string(count));
}

void Tour::clickRow(int row, Qt::MouseButton button) {
    QAbstractItemView& view = listView();
    const QModelIndex index = view.model()->index(row - 1, 0);
    view.scrollTo(index);
    robot_.click(view.viewport(), view.visualRect(index).center(), button);
}

void Tour::selectInCatalogue(const char* group, const char* text) {
    auto& tree = dynamic_cast<QTreeView&>(*robot_.find("ObjTree"));
    const QAbstractItemModel& model = *tree.model();
    const QModelIndex parent = childWithText(model, model.index(0, 0), QLatin1String(group));
    const QModelIndex index = childWithText(model, parent, QLatin1String(text));
    tree.expand(parent);
    tree.scrollTo(index);
    robot_.settle();
    robot_.click(tree.viewport(), tree.visualRect(index).center());
}

void Tour::run() {
    startPage();
    newDocument();
    addObjects();
    editList();
    contextMenu();
    menus();
    convertCoordinates();
    save();
    exportPoints();
    compile();
    openAgain();
    appearance();
    closeDocument();
}

bool Tour::start() {
    bool started = false;
    robot_.withDialogs([&] { started = editor_.start(); }, {[&](QWidget* dialog) {
                           robot_.picture(QStringLiteral("no-simulator-module"));
                           robot_.pressButton(dialog, QStringLiteral("OK"));
                       }});
    return started;
}

void Tour::startPage() {
    robot_.picture(QStringLiteral("start-page"));
}

void Tour::newDocument() {
    robot_.withDialogs([&] { robot_.key(Qt::Key_N, Qt::ControlModifier); }, {[&](QWidget* dialog) {
                           robot_.picture(QStringLiteral("new-dialog"));
                           robot_.chooseFile(dialog, file("tour.xml"));
                       }});
    robot_.waitFor([&] { return editor_.session().document().isOpen(); }, QStringLiteral("the new document"));
    robot_.picture(QStringLiteral("new-document"));
}

void Tour::addObjects() {
    selectInCatalogue("Default library objects", "acropol");
    robot_.key(Qt::Key_Return, Qt::ControlModifier);
    expectRows(1);
    robot_.picture(QStringLiteral("library-object"));
    selectInCatalogue("Effects", "");
    robot_.chooseCommand(&editor_.window(), "mObjects", "mAddNewEnd");
    expectRows(2);
    for (const char* const building : {"Rectangular building", "Pyramidal building", "MultiSided building"}) {
        selectInCatalogue("Generic building", building);
        robot_.key(Qt::Key_Return, Qt::ControlModifier);
    }
    expectRows(5);
    clickRow(3);
    robot_.waitFor([&] { return robot_.coloursIn(*robot_.find("picPreview")) > 100; },
                   QStringLiteral("the building in the preview"));
    robot_.picture(QStringLiteral("building"));
}

void Tour::editList() {
    clickRow(1);
    selectInCatalogue("Default library objects", "ag_barn");
    robot_.key(Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier);
    expectRows(6);
    robot_.picture(QStringLiteral("added-before"));
    clickRow(2);
    selectInCatalogue("Default library objects", "ag_barn_2");
    robot_.key(Qt::Key_U, Qt::ControlModifier);
    clickRow(2);
    robot_.key(Qt::Key_Down, Qt::AltModifier);
    if (editor_.session().list().selectedRow() != 3)
        throw TourError("the selection does not follow the moved placement");
    robot_.key(Qt::Key_Up, Qt::AltModifier);
    robot_.key(Qt::Key_R);
    expectRows(5);
    robot_.key(Qt::Key_Z, Qt::ControlModifier);
    expectRows(6);
    robot_.picture(QStringLiteral("edited-and-undone"));
}

void Tour::contextMenu() {
    clickRow(4, Qt::RightButton);
    auto* const menu = editor_.window().findChild<QMenu*>(QStringLiteral("mXMLList"));
    robot_.waitFor([&] { return menu->isVisible(); }, QStringLiteral("the list's menu"));
    robot_.picture(QStringLiteral("context-menu"));
    menu->close();
}

void Tour::menus() {
    auto* const bar = editor_.window().menuBar();
    for (const char* const name : {"mFile", "mEdit", "mObjects", "mView", "mHelp"}) {
        auto* const menu = editor_.window().findChild<QMenu*>(QLatin1String(name));
        robot_.click(bar, bar->actionGeometry(menu->menuAction()).center());
        robot_.waitFor([&] { return menu->isVisible(); }, QLatin1String(name));
        robot_.picture(QStringLiteral("menu-") + QLatin1String(name + 1).toString().toLower());
        menu->close();
        robot_.settle();
    }
}

void Tour::convertCoordinates() {
    clickRow(1);
    robot_.chooseCommand(&editor_.window(), "mEdit", "mCoorConv");
    robot_.typeInto(robot_.find("txt_rd_x"), QStringLiteral("121000"));
    robot_.typeInto(robot_.find("txt_rd_y"), QStringLiteral("487000"));
    robot_.click(robot_.find("cmd_write_properties"));
    robot_.picture(QStringLiteral("coordinates-converted"));
    if (editor_.session().list().row(1).latitude != "52.3698269751196")
        throw TourError("the converted latitude is not in the list");
    robot_.find("frmCoorConv")->window()->close();
    robot_.settle();
}

void Tour::exportPoints() {
    robot_.withDialogs([&] { robot_.chooseCommand(&editor_.window(), "mFile", "mExportSHP"); },
                       {[&](QWidget* dialog) { robot_.chooseFile(dialog, file("tour.shp")); }});
    robot_.waitFor([&] { return QFile::exists(file("tour.prj")); }, QStringLiteral("the exported points"));
    robot_.picture(QStringLiteral("exported"));
}

void Tour::save() {
    robot_.key(Qt::Key_S, Qt::ControlModifier);
    robot_.waitFor([&] { return QFile::exists(file("tour.xml")); }, QStringLiteral("the saved file"));
    robot_.picture(QStringLiteral("saved"));
}

void Tour::compile() {
    QString log;
    robot_.withDialogs([&] { robot_.key(Qt::Key_F7); },
                       {[&](QWidget* dialog) { robot_.chooseFile(dialog, file("tour.bgl")); },
                        [&](QWidget* window) {
                            auto* const text =
                                window->findChild<QPlainTextEdit*>(QStringLiteral("txt_compile_log"));
                            if (text == nullptr)
                                throw TourError("the compile log did not come up; is there a compiler?");
                            robot_.picture(QStringLiteral("compile-log"));
                            log = text->toPlainText();
                            robot_.pressButton(window, QStringLiteral("Close"));
                        }});
    QFile saved(file("compile.log"));
    if (!saved.open(QIODevice::WriteOnly) || saved.write(log.toUtf8()) < 0)
        throw TourError("cannot write the compile log");
    robot_.picture(QStringLiteral("compiled"));
}

void Tour::openAgain() {
    robot_.withDialogs([&] { robot_.key(Qt::Key_W, Qt::ControlModifier); },
                       {[&](QWidget* dialog) { robot_.pressButton(dialog, QStringLiteral("No")); }});
    robot_.picture(QStringLiteral("recent-files"));
    robot_.withDialogs([&] { robot_.key(Qt::Key_O, Qt::ControlModifier); },
                       {[&](QWidget* dialog) { robot_.chooseFile(dialog, file("tour.xml")); }});
    robot_.waitFor([&] { return editor_.session().document().isOpen(); },
                   QStringLiteral("the opened document"));
    expectRows(6);
}

void Tour::appearance() {
    QAction* const dark = editor_.window().findChild<QAction*>(QStringLiteral("mAppearance_dark"));
    dark->trigger();
    robot_.picture(QStringLiteral("dark"));
    editor_.window().findChild<QAction*>(QStringLiteral("mAppearance_light"))->trigger();
    robot_.picture(QStringLiteral("light"));
}

void Tour::closeDocument() {
    robot_.withDialogs([&] { robot_.key(Qt::Key_W, Qt::ControlModifier); }, {[&](QWidget* dialog) {
                           robot_.picture(QStringLiteral("save-question"));
                           robot_.pressButton(dialog, QStringLiteral("Yes"));
                       }});
    editor_.window().close();
}

} // namespace quillset::tour
