#include "shell/editor.h"

#include "build/compile_message.h"
#include "build/frmCompile.h"
#include "catalogue/frmObjTree.h"
#include "document/frmXMLList.h"
#include "document/placement.h"
#include "document/placement_ranges.h"
#include "geodata/frmCoorConv.h"
#include "preview/frmPreview.h"
#include "preview/texture_loader.h"
#include "properties/frmObjProp.h"
#include "shell/command_states.h"
#include "shell/shut_down.h"
#include "shell/theme.h"

#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QLocale>
#include <QSysInfo>
#include <QTimer>

#include <cstdlib>

namespace quillset {

namespace {

pugi::xml_node genericBuilding(const pugi::xml_node& placement) {
    return placementKind(placement) == PlacementKind::genericBuilding ? placementChild(placement)
                                                                      : pugi::xml_node();
}

} // namespace

Editor::Editor(const EditorEnvironment& environment)
    : options_(environment.options)
    , files_(systemFileOperations())
    , guids_(systemGuidMaker())
    , processes_(systemProcessStarter())
    , simulator_(environment.simulator)
    , position_(simulator_)
    , link_(simulator_)
    , session_(sessionEnvironment(environment))
    , documentCommands_(session_)
    , objectCommands_(session_)
    , registrationCommands_(session_)
    , helpCommands_(session_, [this] { return link_.status().text + ": " + link_.status().explanation; })
    , geodataCommands_(session_, progress_)
    , propertyTarget_(session_.document(), session_.list())
    , propertyEditor_(propertyTarget_, session_.document(), positionLink(position_), session_.errors()) {
    session_.list().showPropertiesIn(&propertyEditor_);
    makeWindows();
    connectCommands();
    connectGeodata();
    connectWindows();
    connectSimulator();
}

Editor::~Editor() = default;

SessionEnvironment Editor::sessionEnvironment(const EditorEnvironment& environment) {
    return {environment.dialogs,
            clock_,
            *files_,
            *guids_,
            environment.programFiles,
            environment.registeredSimulatorFolder,
            [this] { return position_.readLatitude(); },
            [this] { return position_.readLongitude(); },
            [this] { return position_.readHeading(); },
            [this] { link_.stop(); },
            environment.endProgram};
}

void Editor::makeWindows() {
    ErrorFunctions& errors = session_.errors();
    tree_ = new frmObjTree(session_.catalogue(), errors, [this] { return listState(session_); });
    preview_ = new frmPreview(*this, errors, session_.files().pictureFolders());
    properties_ = new frmObjProp(propertyEditor_, errors, [this] { return getFormDockStatus("frmObjProp"); });
    list_ = new frmXMLList(session_.list(), errors);
    const auto write = [this](const std::string& name, const std::string& text) {
        propertyEditor_.writeNamed(name, text);
    };
    auto* const conversion = new frmCoorConv(write, QLocale::system().decimalPoint());
    window_ =
        std::make_unique<MDIForm1>(session_, ToolWindows{tree_, preview_, properties_, conversion, list_});
    progress_.setParent(window_.get());
    auto* const log = new frmCompile(window_.get());
    compileCommand_.emplace(session_, *processes_, *log);
    QObject::connect(log, &frmCompile::lineActivated, window_.get(),
                     [this](const QString& line, int) { followCompileMessage(line); });
}

void Editor::connectCommands() {
    const auto document = [this](const char* name, void (DocumentCommands::*command)()) {
        window_->setCommand(name, [this, command] { (documentCommands_.*command)(); });
    };
    document("mNew", &DocumentCommands::newDocument);
    document("mOpen", &DocumentCommands::open);
    document("mSave", &DocumentCommands::save);
    document("mSaveAs", &DocumentCommands::saveAs);
    document("mClose", &DocumentCommands::close);
    document("mUndo", &DocumentCommands::undo);
    const auto object = [this](const char* name, void (ObjectCommands::*command)()) {
        window_->setCommand(name, [this, command] { (objectCommands_.*command)(); });
    };
    object("mAddNewBefore", &ObjectCommands::addNewBefore);
    object("mAddNewEnd", &ObjectCommands::addNewEnd);
    object("mUpdateObject", &ObjectCommands::updateObject);
    object("mRemoveObject", &ObjectCommands::removeObject);
    object("mMoveUp", &ObjectCommands::moveUp);
    object("mMoveDown", &ObjectCommands::moveDown);
    object("mRescanTree", &ObjectCommands::rescanTree);
    const auto registration = [this](const char* name, void (RegistrationCommands::*command)()) {
        window_->setCommand(name, [this, command] { (registrationCommands_.*command)(); });
    };
    registration("mAddLib", &RegistrationCommands::addUserLibrary);
    registration("mRwy12Library", &RegistrationCommands::addRwy12Library);
    registration("mAddMDL", &RegistrationCommands::addModel);
    registration("mAddMDLFolder", &RegistrationCommands::addModelFolder);
    registration("mRemoveMDL", &RegistrationCommands::removeModel);
    const auto help = [this](const char* name, void (HelpCommands::*command)()) {
        window_->setCommand(name, [this, command] { (helpCommands_.*command)(); });
    };
    help("mManual", &HelpCommands::openManual);
    help("mCopyDiagnostics", &HelpCommands::copyDiagnostics);
    help("mAbout", &HelpCommands::about);
    window_->setCommand("mCompile", [this] { compileCommand_->compile(); });
    window_->setRecentCommand([this](std::size_t index) { documentCommands_.openRecent(index); });
    window_->setShutDown([this] {
        finish();
        return true;
    });
}

void Editor::connectGeodata() {
    window_->setCommand("mExportSHP", [this] { geodataCommands_.exportShapefile(); });
    window_->setCommand("mImportSHP", [this] { geodataCommands_.importPoints(); });
    window_->setCommand("mCoorConv", [this] { window_->showConversion(); });
}

void Editor::connectWindows() {
    DocumentArea& area = window_->documentArea();
    QObject::connect(&area, &DocumentArea::newRequested, window_->commands().action("mNew"),
                     &QAction::trigger);
    QObject::connect(&area, &DocumentArea::openRequested, window_->commands().action("mOpen"),
                     &QAction::trigger);
    QObject::connect(&area, &DocumentArea::closeRequested, window_->commands().action("mClose"),
                     &QAction::trigger);
    QObject::connect(list_, &frmXMLList::closeWanted, window_->commands().action("mClose"),
                     &QAction::trigger);
    QObject::connect(list_, &frmXMLList::contextMenuWanted, window_.get(),
                     [this](const QPoint& place, const ListCommands&) { window_->showContextMenu(place); });
    QObject::connect(tree_, &frmObjTree::addNewBeforeWanted, window_->commands().action("mAddNewBefore"),
                     &QAction::trigger);
    QObject::connect(tree_, &frmObjTree::addNewEndWanted, window_->commands().action("mAddNewEnd"),
                     &QAction::trigger);
    QObject::connect(tree_, &frmObjTree::contextMenuWanted, window_.get(),
                     [this](const QPoint& place) { window_->commands().menu("mObjects")->popup(place); });
    connections_.push_back(documentCommands_.documentShown.connect([this](const std::string& path) {
        if (path.empty())
            window_->hideDocument();
        else
            window_->showDocument(QString::fromStdString(path));
    }));
    connections_.push_back(documentCommands_.working.connect([this](const std::string& what) {
        setBusyCursor(!what.empty());
        window_->showWaiting(QString::fromStdString(what));
    }));
    connections_.push_back(session_.catalogue().selectionChanged.connect([this] {
        if (const std::optional<CatalogueItem> item = session_.catalogue().selected())
            preview_->loadPreviewPicture(item->key);
    }));
}

void Editor::connectSimulator() {
    connections_.push_back(link_.changed.connect([this](const LinkStatus& status) {
        window_->setLinkState(QString::fromStdString(status.text),
                              status.bevel == PanelBevel::inset ? Bevel::inset : Bevel::raised,
                              QString::fromStdString(status.explanation));
        session_.log().write("simulator link: " + status.text + ": " + status.explanation);
    }));
    connections_.push_back(link_.waiting.connect([this](Waiting waiting) { showWaiting(waiting); }));
    // One interval after the tick before has returned: ticks that had to wait must not pile up.
    timer_.setSingleShot(true);
    timer_.setInterval(LinkMonitor::interval);
    QObject::connect(&timer_, &QTimer::timeout, window_.get(), [this] {
        link_.tick();
        timer_.start();
    });
}

void Editor::showWaiting(Waiting waiting) {
    setBusyCursor(waiting != Waiting::no);
    if (waiting == Waiting::no)
        window_->showWaiting({});
    else if (waiting == Waiting::unanswered)
        window_->showWaiting(QString::fromLatin1(waitingText));
}

void Editor::setBusyCursor(bool busy) {
    if (busy == busyCursor_)
        return;
    busyCursor_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void Editor::followCompileMessage(const QString& line) {
    const std::optional<CompilePlace> place = compilePlaceIn(line.toStdString());
    if (!place)
        return;
    const PlacementRanges ranges(compileCommand_->source());
    if (const std::optional<std::size_t> placement = ranges.placementAt(place->line, place->column))
        session_.list().click(session_.list().staleRowCount() + static_cast<int>(*placement) + 1);
}

bool Editor::start() {
    session_.log().write("started Quillset XML " QUILLSET_VERSION ", Qt " + std::string(qVersion()) + ", " +
                         QSysInfo::prettyProductName().toStdString());
    StartUpOptions options;
    options.fsPath = options_.fsPath;
    if (const char* const folder = std::getenv("windir"))
        options.windowsFolder = folder;
    if (startUp(session_, *this, options) == StartUpOutcome::programEnds)
        return false;
    // A simulator that does not answer would hold up the window's first picture.
    window_->setFirstShown([this] {
        link_.start();
        timer_.start();
    });
    window_->show();
    timer_.start(); // a window that stays out of sight gets its link too
    if (!options_.file.empty())
        documentCommands_.openFile(options_.file);
    return true;
}

void Editor::finish() {
    session_.log().write("ends");
    session_.commitEdits();
    window_->storeArrangement();
    shutDown(session_, [this](const std::string& name) {
        return window_->docks().layout(QString::fromStdString(name));
    });
}

void Editor::showSplash() {
    applyAppearance(Appearance::system);
    splash_ = std::make_unique<frmSplash>();
    splash_->show();
    QApplication::processEvents();
}

void Editor::setSplashText(const std::string& text) {
    splash_->setSplashText(QString::fromStdString(text));
}

void Editor::closeSplash() {
    splash_.reset();
}

void Editor::dockWindows() {
    applyAppearance(appearanceFromText(
        QString::fromStdString(session_.configuration().extra("MainWindow", "appearance"))));
    window_->dockWindows();
    // A tool window lays itself out by its side, which can change without its size.
    const auto follow = [this](const char* name, auto* toolWindow) {
        const QDockWidget* const dock = window_->docks().dock(QLatin1String(name));
        QObject::connect(dock, &QDockWidget::dockLocationChanged, toolWindow,
                         [toolWindow] { toolWindow->layOut(); });
        QObject::connect(dock, &QDockWidget::topLevelChanged, toolWindow,
                         [toolWindow] { toolWindow->layOut(); });
    };
    follow("frmPreview", preview_);
    follow("frmObjProp", properties_);
}

void Editor::initialisePreview() {
    preview_->initializeBuildingPreview(
        session_.dialogs(), {.simulator = session_.configuration().fsPath(), .work = session_.files().undo});
}

bool Editor::documentOpen() const {
    return session_.document().isOpen();
}

std::string Editor::currentKind() const {
    return session_.list().row(session_.list().selectedRow()).name;
}

bool Editor::selectedIsGenBuild() const {
    return session_.catalogue().selectedIsGenBuild();
}

pugi::xml_node Editor::currentBuilding() const {
    const std::optional<std::size_t> selected = session_.list().selectedPlacement();
    return selected ? genericBuilding(session_.document().placement(*selected)) : pugi::xml_node();
}

int Editor::getFormDockStatus(std::string_view formName) const {
    return window_->docks().dockStatus(
        QString::fromUtf8(formName.data(), static_cast<qsizetype>(formName.size())));
}

} // namespace quillset
