#pragma once

#include "preview/building_mesh.h"
#include "preview/building_view.h"
#include "preview/texture_loader.h"

#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>

#include <array>
#include <memory>
#include <optional>
#include <vector>

class QOpenGLFramebufferObject;
class QOpenGLFunctions_1_1;

namespace quillset {

/// Draws generic buildings with the fixed pipeline of OpenGL 1.1 and keeps the textures for it.
///
/// It draws into a buffer of its own and hands the frame over as a picture, for the preview to show
/// (deliberate: an OpenGL widget loses its textures whenever its window is docked elsewhere, crashes where
/// there is no OpenGL, and makes the whole main window pass through OpenGL for every blink of a cursor).
class BuildingRenderer : public TextureSink {
    struct Key {
        explicit Key() = default;
    };

public:
    /// Sets OpenGL up; nothing when this system cannot draw in such a buffer. Needs no window.
    [[nodiscard]] static std::unique_ptr<BuildingRenderer> create();
    explicit BuildingRenderer(Key);
    ~BuildingRenderer() override;

    /// Keeps a texture for the whole life of the renderer.
    void upload(TextureTable table, int index, const Picture& picture) override;

    /// The building turned by `angle` degrees, on white, fitted into a picture of that size in pixels. A null
    /// picture when the size is empty or OpenGL has failed.
    [[nodiscard]] QImage draw(const Building& building, float angle, const QSize& size);

private:
    struct Texture {
        unsigned name = 0;
        /// Pixels upwards; 0 as long as nothing was uploaded.
        int height = 0;
    };
    struct Scene {
        Building building;
        QSize size;
        BuildingMesh mesh;
        ViewBox view;
    };
    using TextureNames = std::array<std::vector<Texture>, textureTables.size()>;

    [[nodiscard]] bool initialise();
    void generateNames();
    void uploadTo(Texture& texture, const Picture& picture);
    [[nodiscard]] bool prepareBuffer(const QSize& size);
    [[nodiscard]] const Scene& sceneOf(const Building& building, const QSize& size);
    void setFixedState();
    void setView(const ViewBox& view, float angle);
    void drawMesh(const BuildingMesh& mesh);
    void setSurface(const Surface& surface);
    void setTexture(const TexturePlace& place);
    void setColour(const PlainColour& colour);
    [[nodiscard]] const Texture& textureAt(const TexturePlace& place) const;

    QOffscreenSurface surface_;
    QOpenGLContext context_;
    /// Belongs to the context.
    QOpenGLFunctions_1_1* gl_ = nullptr;
    std::unique_ptr<QOpenGLFramebufferObject> buffer_;
    TextureNames textures_;
    Texture plainColour_;
    /// What the last frame showed, which seldom differs from the next one but in its angle.
    std::optional<Scene> scene_;
    QImage frame_;
    QImage shownFrame_;
};

} // namespace quillset
