#pragma once

#include "preview/building.h"
#include "preview/picture_files.h"
#include "preview/turntable.h"

#include <QWidget>

#include <memory>
#include <optional>
#include <string>

class QAction;
class QMenu;
class QTimer;

namespace quillset {

class BuildingRenderer;
class Dialogs;
class ErrorFunctions;
class PictureBox;
class PreviewContext;
struct TextureFolders;

/// The preview window: the stored picture of the selected catalogue object, or the selected generic building,
/// turning. Everything passed by reference must outlive it.
class frmPreview : public QWidget {
    Q_OBJECT
public:
    /// `pictureFolders` hold the pictures, each in "pics"; the first one that has a picture wins.
    frmPreview(const PreviewContext& context, ErrorFunctions& errors,
               const std::vector<std::string>& pictureFolders, QWidget* parent = nullptr);
    ~frmPreview() override;

    /// Sets up the drawing of generic buildings, once, at start-up: OpenGL, then all textures, with a message
    /// for each that fails. Without OpenGL it says so, and only pictures are shown.
    void initializeBuildingPreview(Dialogs& dialogs, const TextureFolders& folders);
    [[nodiscard]] bool openGlReady() const { return renderer_ != nullptr; }

    /// Shows the picture of a catalogue key, nothing when there is none.
    void loadPreviewPicture(const std::string& key);
    /// Lays the picture area out by size and docking state; also for a state that changed without a resize.
    void layOut();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildMenu();
    void showMenu(const QPoint& place);
    void onTimer();
    void drawBuilding(const Building& building);
    void redrawResized();

    /// What a frame shows; one that would look the same is not drawn again.
    struct Frame {
        Building building;
        float angle = 0.0F;
        QSize size;

        bool operator==(const Frame&) const = default;
    };

    const PreviewContext& context_;
    ErrorFunctions& errors_;
    PictureFiles pictures_;
    Turntable turntable_;
    std::unique_ptr<BuildingRenderer> renderer_;
    /// The frame on show; nothing while a picture or nothing is.
    std::optional<Frame> frame_;
    PictureBox* picPreview_;
    QMenu* mRotate_ = nullptr;
    QAction* mRotatePreview_ = nullptr;
    QTimer* timer_;
};

} // namespace quillset
