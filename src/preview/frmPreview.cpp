#include "preview/frmPreview.h"

#include "base/dialogs.h"
#include "base/error_functions.h"
#include "preview/building_renderer.h"
#include "preview/picture_area.h"
#include "preview/picture_box.h"
#include "preview/preview_context.h"

#include <QAction>
#include <QMenu>
#include <QTimer>

#include <utility>

namespace quillset {

namespace {

int toTwips(int pixels) {
    return pixels * twipsPerPixel;
}

int toPixels(int twips) {
    return qRound(static_cast<double>(twips) / twipsPerPixel);
}

} // namespace

frmPreview::frmPreview(const PreviewContext& context, ErrorFunctions& errors,
                       const std::vector<std::string>& pictureFolders, QWidget* parent)
    : QWidget(parent)
    , context_(context)
    , errors_(errors)
    , pictures_(pictureFolders)
    , picPreview_(new PictureBox(this))
    , timer_(new QTimer(this)) {
    setObjectName(QStringLiteral("frmPreview"));
    setWindowTitle(QStringLiteral("Preview"));
    setFocusProxy(picPreview_);
    picPreview_->setGeometry(0, toPixels(400), width(), height());
    buildMenu();
    connect(picPreview_, &PictureBox::menuWanted, this, &frmPreview::showMenu);
    connect(picPreview_, &PictureBox::resized, this, &frmPreview::redrawResized);
    timer_->setObjectName(QStringLiteral("Timer1"));
    connect(timer_, &QTimer::timeout, this, &frmPreview::onTimer);
    timer_->start(Turntable::tickMilliseconds);
}

frmPreview::~frmPreview() = default;

void frmPreview::buildMenu() {
    mRotate_ = new QMenu(QStringLiteral("Rotate"), this);
    mRotate_->setObjectName(QStringLiteral("mRotate"));
    mRotatePreview_ = mRotate_->addAction(QStringLiteral("Rotate Preview"));
    mRotatePreview_->setObjectName(QStringLiteral("mRotatePreview"));
    mRotatePreview_->setCheckable(true);
    connect(mRotatePreview_, &QAction::triggered, this, [this] { turntable_.toggleRotation(); });
}

void frmPreview::showMenu(const QPoint& place) {
    mRotatePreview_->setChecked(turntable_.rotating());
    mRotate_->popup(place);
}

void frmPreview::initializeBuildingPreview(Dialogs& dialogs, const TextureFolders& folders) {
    std::unique_ptr<BuildingRenderer> renderer = BuildingRenderer::create();
    if (!renderer) {
        dialogs.tell("Could not initialize OpenGL, dynamic preview will not work");
        return;
    }
    // The timer runs on while a message is shown: nothing is drawn before every texture is there.
    loadTextures(folders, dialogs, *renderer);
    renderer_ = std::move(renderer);
}

void frmPreview::loadPreviewPicture(const std::string& key) {
    frame_.reset();
    const std::optional<std::string> file = pictures_.find(key);
    const QImage picture = file ? QImage(QString::fromStdString(*file)) : QImage();
    if (picture.isNull())
        picPreview_->clear();
    else
        picPreview_->showPicture(picture);
}

void frmPreview::resizeEvent(QResizeEvent*) {
    errors_.trapped("Form_Resize", "frmPreview", [this] { layOut(); });
}

void frmPreview::layOut() {
    const QSize outer = frameGeometry().size();
    const std::optional<TwipRect> area = pictureArea(context_.getFormDockStatus("frmPreview"),
                                                     toTwips(outer.width()), toTwips(outer.height()));
    if (area)
        picPreview_->setGeometry(toPixels(area->left), toPixels(area->top), toPixels(area->width),
                                 toPixels(area->height));
}

void frmPreview::onTimer() {
    // An unseen building turns, but costs nothing.
    if (!turntable_.tick(context_) || !renderer_ || !picPreview_->isVisible())
        return;
    if (const std::optional<Building> building = readBuilding(context_.currentBuilding()))
        drawBuilding(*building);
}

void frmPreview::drawBuilding(const Building& building) {
    const Frame wanted{building, turntable_.angle(), picPreview_->size() * picPreview_->devicePixelRatioF()};
    if (frame_ == wanted)
        return;
    const QImage image = renderer_->draw(wanted.building, wanted.angle, wanted.size);
    if (image.isNull())
        return;
    frame_ = wanted;
    picPreview_->showFrame(image);
}

// Also when the timer leaves the frame alone, it must not be stretched.
void frmPreview::redrawResized() {
    if (frame_)
        drawBuilding(Building(frame_->building));
}

} // namespace quillset
