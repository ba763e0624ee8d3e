#include "preview/building_renderer.h"

#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QOpenGLFunctions_1_1>
#include <QOpenGLVersionFunctionsFactory>

#include <cmath>
#include <utility>

namespace quillset {

namespace {

// Names of later versions than 1.1, which every driver of today knows.
constexpr GLenum bgr = 0x80E0;
constexpr GLenum bgra = 0x80E1;
constexpr GLenum rgba8 = 0x8058;

constexpr std::array<float, 4> modelAmbient{0.75F, 0.75F, 0.75F, 1.0F};
constexpr std::array<float, 4> lightAmbient{0.05F, 0.05F, 0.05F, 1.0F};
constexpr std::array<float, 4> lightDiffuse{0.75F, 0.75F, 0.75F, 1.0F};

QSurfaceFormat wantedFormat() {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setVersion(2, 1);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    format.setRedBufferSize(8);
    format.setGreenBufferSize(8);
    format.setBlueBufferSize(8);
    format.setDepthBufferSize(16);
    return format;
}

std::size_t tableIndex(TextureTable table) {
    return static_cast<std::size_t>(table);
}

} // namespace

BuildingRenderer::BuildingRenderer(Key) {}

BuildingRenderer::~BuildingRenderer() {
    // The buffer and the textures can only be given back while their context is current.
    if (context_.isValid() && context_.makeCurrent(&surface_)) {
        for (const std::vector<Texture>& table : textures_)
            for (const Texture& texture : table)
                gl_->glDeleteTextures(1, &texture.name);
        if (plainColour_.name != 0)
            gl_->glDeleteTextures(1, &plainColour_.name);
        buffer_.reset();
        context_.doneCurrent();
    }
}

std::unique_ptr<BuildingRenderer> BuildingRenderer::create() {
    auto renderer = std::make_unique<BuildingRenderer>(Key());
    if (!renderer->initialise())
        return nullptr;
    return renderer;
}

bool BuildingRenderer::initialise() {
    context_.setFormat(wantedFormat());
    if (!context_.create() || context_.isOpenGLES())
        return false;
    surface_.setFormat(context_.format());
    surface_.create();
    if (!surface_.isValid() || !context_.makeCurrent(&surface_))
        return false;
    if (!context_.functions()->hasOpenGLFeature(QOpenGLFunctions::Framebuffers))
        return false;
    gl_ = QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_1_1>(&context_);
    if (gl_ == nullptr || !gl_->initializeOpenGLFunctions())
        return false;
    generateNames();
    return true;
}

void BuildingRenderer::generateNames() {
    for (const TextureTable table : textureTables) {
        std::vector<Texture>& textures = textures_[tableIndex(table)];
        textures.resize(textureFiles(table).size());
        for (Texture& texture : textures)
            gl_->glGenTextures(1, &texture.name);
    }
    gl_->glGenTextures(1, &plainColour_.name);
}

void BuildingRenderer::upload(TextureTable table, int index, const Picture& picture) {
    if (!context_.makeCurrent(&surface_))
        return;
    uploadTo(textures_[tableIndex(table)].at(static_cast<std::size_t>(index)), picture);
}

void BuildingRenderer::uploadTo(Texture& texture, const Picture& picture) {
    texture.height = picture.height;
    gl_->glBindTexture(GL_TEXTURE_2D, texture.name);
    gl_->glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    gl_->glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    gl_->glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    gl_->glTexImage2D(GL_TEXTURE_2D, 0, 3, picture.width, picture.height, 0, bgr, GL_UNSIGNED_BYTE,
                      picture.pixels.data());
}

bool BuildingRenderer::prepareBuffer(const QSize& size) {
    if (size.isEmpty() || !context_.makeCurrent(&surface_))
        return false;
    if (!buffer_ || buffer_->size() != size)
        buffer_ = std::make_unique<QOpenGLFramebufferObject>(size, QOpenGLFramebufferObject::NoAttachment,
                                                             GL_TEXTURE_2D, rgba8);
    return buffer_->isValid() && buffer_->bind();
}

// No depth test: every building is convex, so that culling alone hides what is behind.
void BuildingRenderer::setFixedState() {
    gl_->glShadeModel(GL_SMOOTH);
    gl_->glEnable(GL_CULL_FACE);
    gl_->glCullFace(GL_BACK);
    gl_->glEnable(GL_LIGHTING);
    gl_->glEnable(GL_LIGHT0);
    gl_->glEnable(GL_COLOR_MATERIAL);
    gl_->glEnable(GL_TEXTURE_2D);
    gl_->glPolygonMode(GL_FRONT, GL_FILL);
    gl_->glColor3f(1.0F, 1.0F, 1.0F);
    gl_->glClearColor(1.0F, 1.0F, 1.0F, 1.0F);
    gl_->glLightModelfv(GL_LIGHT_MODEL_AMBIENT, modelAmbient.data());
    gl_->glLightfv(GL_LIGHT0, GL_AMBIENT, lightAmbient.data());
    gl_->glLightfv(GL_LIGHT0, GL_DIFFUSE, lightDiffuse.data());
    gl_->glEnableClientState(GL_VERTEX_ARRAY);
    gl_->glEnableClientState(GL_NORMAL_ARRAY);
    gl_->glEnableClientState(GL_TEXTURE_COORD_ARRAY);
}

// Drawn upside down, so that the rows come out from the top as pictures have them; that turns the winding
// round too.
void BuildingRenderer::setView(const ViewBox& view, float angle) {
    gl_->glFrontFace(GL_CW);
    gl_->glMatrixMode(GL_PROJECTION);
    gl_->glLoadIdentity();
    gl_->glOrtho(view.left, view.right, view.top, view.bottom, view.nearPlane, view.farPlane);
    gl_->glMatrixMode(GL_MODELVIEW);
    gl_->glLoadIdentity();
    gl_->glRotated(viewTiltDegrees, 1.0, 0.0, 0.0);
    gl_->glRotatef(std::fmod(angle, 360.0F), 0.0F, 0.0F, 1.0F);
}

const BuildingRenderer::Texture& BuildingRenderer::textureAt(const TexturePlace& place) const {
    return textures_[tableIndex(place.table)].at(static_cast<std::size_t>(place.index));
}

// By way of a texture of one pixel: light of more than 1 would bleach a colour of the material's own.
void BuildingRenderer::setColour(const PlainColour& colour) {
    uploadTo(plainColour_, {1, 1, {colour.blue, colour.green, colour.red}});
}

// A half is reached through the texture matrix. It keeps half a pixel's distance from its neighbour, which
// linear filtering would mix in.
void BuildingRenderer::setTexture(const TexturePlace& place) {
    const Texture& texture = textureAt(place);
    gl_->glBindTexture(GL_TEXTURE_2D, texture.name);
    gl_->glMatrixMode(GL_TEXTURE);
    gl_->glLoadIdentity();
    if (place.part == TexturePart::whole)
        return;
    const double inset = 0.5 / texture.height;
    gl_->glTranslated(0.0, (place.part == TexturePart::upperHalf ? 0.5 : 0.0) + inset, 0.0);
    gl_->glScaled(1.0, 0.5 - 2 * inset, 1.0);
}

void BuildingRenderer::setSurface(const Surface& surface) {
    if (const PlainColour* const colour = std::get_if<PlainColour>(&surface))
        return setColour(*colour);
    const TexturePlace& place = std::get<TexturePlace>(surface);
    // A texture that could not be loaded: white would vanish against the background.
    if (textureAt(place).height == 0)
        return setColour(neutralColour);
    setTexture(place);
}

void BuildingRenderer::drawMesh(const BuildingMesh& mesh) {
    constexpr int stride = sizeof(MeshVertex);
    for (const MeshPart& part : mesh.parts) {
        setSurface(part.surface);
        const MeshVertex& first = part.vertices.front();
        gl_->glVertexPointer(3, GL_FLOAT, stride, first.position.data());
        gl_->glNormalPointer(GL_FLOAT, stride, first.normal.data());
        gl_->glTexCoordPointer(2, GL_FLOAT, stride, first.texture.data());
        gl_->glDrawArrays(GL_TRIANGLES, 0, static_cast<int>(part.vertices.size()));
    }
}

const BuildingRenderer::Scene& BuildingRenderer::sceneOf(const Building& building, const QSize& size) {
    if (!scene_ || scene_->building != building || scene_->size != size) {
        const double aspect = static_cast<double>(size.width()) / size.height();
        BuildingMesh mesh = buildMesh(building);
        const ViewBox view = viewBoxOf(mesh, aspect);
        scene_ = Scene{building, size, std::move(mesh), view};
    }
    return *scene_;
}

QImage BuildingRenderer::draw(const Building& building, float angle, const QSize& size) {
    if (!prepareBuffer(size))
        return {};
    const Scene& scene = sceneOf(building, size);
    setFixedState();
    gl_->glViewport(0, 0, size.width(), size.height());
    gl_->glClear(GL_COLOR_BUFFER_BIT);
    setView(scene.view, angle);
    drawMesh(scene.mesh);
    // The window still shows the frame before this one: two images by turns, so that none is allocated or
    // copied.
    std::swap(frame_, shownFrame_);
    if (frame_.size() != size)
        frame_ = QImage(size, QImage::Format_RGB32);
    gl_->glReadPixels(0, 0, size.width(), size.height(), bgra, GL_UNSIGNED_BYTE, frame_.bits());
    return frame_;
}

} // namespace quillset
