#include "shell/MDIForm1.h"

#include "shell/command_icons.h"
#include "shell/command_states.h"
#include "shell/theme.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include <array>
#include <utility>

namespace quillset {

namespace {

constexpr const char* form = "MDIForm1";
constexpr std::array toolWindowNames{"frmPreview", "frmObjProp", "frmObjTree"};
constexpr const char* arrangement = "MainWindow";

QString asText(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

MDIForm1::MDIForm1(Session& session, const ToolWindows& windows)
    : session_(session)
    , menus_(buildMenus(*this))
    , docks_(*this)
    , area_(new DocumentArea(windows.frmXMLList, this))
    , activity_(new StatusPanel(this))
    , dockable_(new SwitchPanel(this))
    , link_(new StatusPanel(this)) {
    setObjectName(QStringLiteral("MDIForm1"));
    setWindowTitle(QStringLiteral("Quillset XML"));
    setWindowIcon(programIcon());
    setDockNestingEnabled(true);
    setCentralWidget(area_);
    resize(
        QSize(1280, 820).boundedTo(screen()->availableGeometry().size() * 0.95)); // small or scaled screens
    buildToolBar(*this, menus_);
    buildAppearanceMenu();
    buildStatusBar();
    docks_.add(windows.frmObjTree, tr("Objects"));
    docks_.add(windows.frmPreview, tr("Preview"));
    docks_.add(windows.frmObjProp, tr("Properties"));
    docks_.add(windows.frmCoorConv, QStringLiteral("Coordinate conversion"));
    // The list's commands act on the list alone: Del in the catalogue or in the sheet must not remove a
    // placement.
    for (const char* const name : {"mRemoveObject", "mMoveUp", "mMoveDown"}) {
        menus_.action(name)->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        windows.frmXMLList->addAction(menus_.action(name));
    }
    connectMenus();
    connectSession();
    updateCommands();
}

void MDIForm1::buildStatusBar() {
    statusBar()->setObjectName(QStringLiteral("StatusBar"));
    activity_->setObjectName(QStringLiteral("panel1"));
    activity_->setAccessibleDescription(tr("Last operation"));
    activity_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    dockable_->setObjectName(QStringLiteral("panel2"));
    dockable_->setText(QStringLiteral("Dockable"));
    dockable_->setToolTip(tr("Whether the tool windows can be dragged to another place"));
    connect(dockable_, &SwitchPanel::toggled, this, [this](bool on) { docks_.setDockable(on); });
    link_->setObjectName(QStringLiteral("panel3"));
    statusBar()->addPermanentWidget(activity_, 1);
    statusBar()->addPermanentWidget(dockable_);
    statusBar()->addPermanentWidget(link_);
}

void MDIForm1::buildAppearanceMenu() {
    QMenu* const view = menus_.menu("mView");
    view->addSeparator();
    QMenu* const menu = view->addMenu(tr("&Appearance"));
    menu->setObjectName(QStringLiteral("mAppearance"));
    auto* const group = new QActionGroup(this);
    for (const auto& [text, caption] : {std::pair{QStringLiteral("system"), tr("As the &system")},
                                        {QStringLiteral("light"), tr("&Light")},
                                        {QStringLiteral("dark"), tr("&Dark")}}) {
        QAction* const action = menu->addAction(caption);
        action->setObjectName(QStringLiteral("mAppearance_") + text);
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, name = text] { chooseAppearance(name); });
    }
    connect(menu, &QMenu::aboutToShow, this, [this, group] {
        const QString now = asText(session_.configuration().extra(arrangement, "appearance"));
        for (QAction* const action : group->actions())
            action->setChecked(action->objectName() ==
                               QStringLiteral("mAppearance_") + textOf(appearanceFromText(now)));
    });
}

void MDIForm1::chooseAppearance(const QString& text) {
    session_.configuration().setExtra(arrangement, "appearance", text.toStdString());
    applyAppearance(appearanceFromText(text));
}

void MDIForm1::connectMenus() {
    connect(menus_.menu("mFile"), &QMenu::aboutToShow, this, &MDIForm1::updateCommands);
    connect(menus_.menu("mEdit"), &QMenu::aboutToShow, this, &MDIForm1::prepareEditMenu);
    connect(menus_.menu("mObjects"), &QMenu::aboutToShow, this, &MDIForm1::prepareObjectsMenu);
    connect(menus_.menu("mView"), &QMenu::aboutToShow, this, &MDIForm1::prepareViewMenu);
    const std::array<std::pair<const char*, const char*>, 3> toggles{{{"mObjectTree", "frmObjTree"},
                                                                      {"mObjectProperties", "frmObjProp"},
                                                                      {"mPreviewWindow", "frmPreview"}}};
    for (const auto& [action, window] : toggles) {
        menus_.action(action)->setCheckable(true);
        connect(menus_.action(action), &QAction::triggered, this,
                [this, action = action, window = QLatin1String(window)] { toggleDock(action, window); });
    }
    connect(menus_.action("mNextWindow"), &QAction::triggered, this, [this] { walkWindows(1); });
    connect(menus_.action("mPreviousWindow"), &QAction::triggered, this, [this] { walkWindows(-1); });
    connect(menus_.action("mFloatWindow"), &QAction::triggered, this, [this] { docks_.toggleFloating(); });
    connect(menus_.action("mExit"), &QAction::triggered, this, &QWidget::close);
    for (std::size_t i = 0; i < RecentFiles::limit; ++i) {
        QAction* const action = menus_.actions.value(QStringLiteral("mLastFile(%1)").arg(i));
        connect(action, &QAction::triggered, this, [this, i] { openRecent_(i); });
    }
    connect(area_, &DocumentArea::recentRequested, this,
            [this](int index) { openRecent_(static_cast<std::size_t>(index)); });
}

void MDIForm1::connectSession() {
    connections_.push_back(session_.activity().changed.connect(
        [this](const std::string& text) { activity_->setText(asText(text)); }));
    connections_.push_back(session_.recentFiles().changed.connect([this] { rebuildRecentMenu(); }));
    connections_.push_back(
        session_.document().changed.connect([this](const DocumentChange&) { updateCommands(); }));
    connections_.push_back(session_.list().selectionChanged.connect([this](int) { updateCommands(); }));
    connections_.push_back(session_.catalogue().selectionChanged.connect([this] { updateCommands(); }));
}

void MDIForm1::setCommand(const char* name, std::function<void()> action) {
    connect(menus_.action(name), &QAction::triggered, this, [this, run = std::move(action)] {
        run();
        updateCommands();
    });
}

void MDIForm1::setRecentCommand(std::function<void(std::size_t)> action) {
    openRecent_ = [this, run = std::move(action)](std::size_t index) {
        run(index);
        updateCommands();
    };
}

void MDIForm1::updateCommands() {
    for (const auto& [name, enabled] : commandStates(session_))
        menus_.actions.value(QLatin1String(name.data(), static_cast<qsizetype>(name.size())))
            ->setEnabled(enabled);
    menus_.action("mUndo")->setText(asText(session_.journal().caption()));
}

void MDIForm1::prepareEditMenu() {
    updateCommands();
}

void MDIForm1::prepareObjectsMenu() {
    session_.errors().trapped("mObjects_click", form, [this] { updateCommands(); });
}

void MDIForm1::prepareViewMenu() {
    menus_.action("mObjectTree")->setChecked(docks_.layout(QStringLiteral("frmObjTree")).visible);
    menus_.action("mObjectProperties")->setChecked(docks_.layout(QStringLiteral("frmObjProp")).visible);
    menus_.action("mPreviewWindow")->setChecked(docks_.layout(QStringLiteral("frmPreview")).visible);
}

void MDIForm1::toggleDock(const char* action, const QString& window) {
    QDockWidget* const dock = docks_.dock(window);
    const bool show = dock->isHidden();
    dock->setVisible(show);
    if (show)
        dock->raise();
    menus_.action(action)->setChecked(show);
}

// Round through the windows in view, as they stand from left to right at the first start.
void MDIForm1::walkWindows(int step) {
    QList<QWidget*> windows;
    for (const char* const name : {"frmObjTree", "", "frmPreview", "frmObjProp", "frmCoorConv"}) {
        QDockWidget* const dock = docks_.dock(QLatin1String(name));
        if (dock && !dock->isHidden())
            windows.append(dock->widget());
        else if (!dock)
            windows.append(area_);
    }
    const QWidget* const focused = QApplication::focusWidget();
    const auto holds = [focused](const QWidget* window) {
        return window == focused || window->isAncestorOf(focused);
    };
    const auto now = std::find_if(windows.begin(), windows.end(), holds);
    const qsizetype count = windows.size();
    const qsizetype from = now != windows.end() ? now - windows.begin() : (step > 0 ? -1 : 0);
    QWidget* const next = windows.at((from + step + count) % count);
    if (next != area_)
        next->parentWidget()->raise();
    next->activateWindow();
    next->setFocus(Qt::TabFocusReason);
}

void MDIForm1::dockWindows() {
    for (const char* const name : {"frmObjTree", "frmPreview", "frmObjProp"}) {
        WindowLayout layout = session_.configuration().layout(name);
        layout.visible = true;
        docks_.apply(QLatin1String(name), layout);
    }
    docks_.apply(QStringLiteral("frmCoorConv"), {4, false, false});
    resizeDocks({docks_.dock(QStringLiteral("frmObjTree")), docks_.dock(QStringLiteral("frmObjProp"))},
                {300, 320}, Qt::Horizontal);
    // Else the sheet, which has rows to show, would leave the preview above it no room at all.
    resizeDocks({docks_.dock(QStringLiteral("frmPreview")), docks_.dock(QStringLiteral("frmObjProp"))},
                {280, 440}, Qt::Vertical);
    restoreGeometry(QByteArray::fromBase64(
        QByteArray::fromStdString(session_.configuration().extra(arrangement, "geometry"))));
    restoreState(QByteArray::fromBase64(
        QByteArray::fromStdString(session_.configuration().extra(arrangement, "state"))));
    for (const char* const name : toolWindowNames) {
        // A layout that was edited by hand wins over the arrangement that was stored beside it.
        const WindowLayout wanted = session_.configuration().layout(name);
        const WindowLayout now = docks_.layout(QLatin1String(name));
        if (now.docked != wanted.docked || (wanted.docked && now.align != wanted.align))
            docks_.apply(QLatin1String(name), wanted);
        docks_.dock(QLatin1String(name))->setVisible(wanted.visible);
    }
    docks_.dock(QStringLiteral("frmCoorConv"))->hide(); // also when it was left open
}

void MDIForm1::showConversion() {
    QDockWidget* const dock = docks_.dock(QStringLiteral("frmCoorConv"));
    dock->show();
    if (dock->isFloating() && !conversionShown_)
        dock->move(geometry().center() - dock->rect().center());
    conversionShown_ = true;
    dock->raise();
    dock->activateWindow();
    dock->widget()->setFocus();
}

void MDIForm1::storeArrangement() {
    session_.configuration().setExtra(arrangement, "geometry", saveGeometry().toBase64().toStdString());
    session_.configuration().setExtra(arrangement, "state", saveState().toBase64().toStdString());
}

void MDIForm1::showDocument(const QString& caption) {
    area_->showDocument(caption);
    updateCommands();
}

void MDIForm1::hideDocument() {
    area_->hideDocument();
    updateCommands();
}

void MDIForm1::showContextMenu(const QPoint& globalPlace) {
    updateCommands();
    menus_.menu("mXMLList")->popup(globalPlace);
}

void MDIForm1::setLinkState(const QString& text, Bevel bevel, const QString& explanation) {
    link_->setText(text);
    link_->setBevel(bevel);
    link_->setToolTip(explanation);
}

void MDIForm1::showWaiting(const QString& text) {
    activity_->setText(text.isEmpty() ? asText(session_.activity().text()) : text);
    activity_->repaint();
}

void MDIForm1::rebuildRecentMenu() {
    const std::vector<std::string> paths = session_.recentFiles().paths();
    menus_.action("mNothingLastFile")->setVisible(!paths.empty());
    QStringList shown;
    for (std::size_t i = 0; i < RecentFiles::limit; ++i) {
        QAction* const action = menus_.actions.value(QStringLiteral("mLastFile(%1)").arg(i));
        action->setVisible(i < paths.size());
        if (i >= paths.size())
            continue;
        shown << asText(paths[i]);
        // "&" would mark an access key and vanish from the path.
        action->setText(QString(shown.last()).replace(QLatin1String("&"), QLatin1String("&&")));
    }
    area_->setRecentFiles(shown);
}

void MDIForm1::closeEvent(QCloseEvent* event) {
    if (shutDown_ && !shutDown_())
        event->ignore();
    else
        event->accept();
}

void MDIForm1::paintEvent(QPaintEvent* event) {
    QMainWindow::paintEvent(event);
    // The other widgets paint, and the picture is brought to the screen, before this call returns to the
    // event loop.
    if (firstShown_)
        QTimer::singleShot(0, this, std::exchange(firstShown_, {}));
}

void MDIForm1::resizeEvent(QResizeEvent* event) {
    session_.errors().trapped("MDIForm_Resize", form, [&] { QMainWindow::resizeEvent(event); });
}

} // namespace quillset
