// The preview's speed. Run under an X server (Xvfb) with LIBGL_ALWAYS_SOFTWARE=1.
//
// Limits, each against a peer measured in the same run:
// - BuildingFrame at most 1.5 x a bare draw of the same triangles and textures; FrameTime, with 999 sides,
// under
//   16.6 ms;
// - LoadTextures at most 2 x decoding and uploading the same textures out of memory;
// - TurningSecond: ten ticks with a building of 4 sides, in processor time of all threads; at most 3 % of a
//   core, 30 ms. IdleSecond: ten ticks with a library object; no more than noise.

#include "base/error_functions.h"
#include "comparison.h"
#include "preview/building_renderer.h"
#include "preview/building_view.h"
#include "preview/preview_context.h"
#include "preview/texture_file.h"
#include "preview/turntable.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"
#include "texture_maker/texture_maker.h"

#include <QApplication>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions_1_1>
#include <QOpenGLVersionFunctionsFactory>
#include <QPainter>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <string>

namespace quillset {
namespace {

const QSize frameSize(600, 600);

std::string buildingXml(int sides) {
    const std::string body =
        " sizeX='40' sizeZ='40' sizeBottomY='10' sizeWindowY='80' sizeTopY='10' textureIndexWindowX='512' "
        "textureIndexWindowY='1024' textureIndexWindowZ='512'/></GenericBuilding>";
    const std::string open = "<GenericBuilding scale='1.0' bottomTexture='18' windowTexture='32' "
                             "topTexture='20' roofTexture='25'>";
    return open +
           (sides == 4 ? "<RectangularBuilding"
                       : "<MultiSidedBuilding buildingSides='" + std::to_string(sides) + "'") +
           body;
}

class OneBuilding : public PreviewContext {
public:
    explicit OneBuilding(int sides) { document_.load_string(buildingXml(sides).c_str()); }
    bool documentOpen() const override { return true; }
    std::string currentKind() const override { return kind; }
    bool selectedIsGenBuild() const override { return true; }
    pugi::xml_node currentBuilding() const override { return document_.first_child(); }
    int getFormDockStatus(std::string_view) const override { return 0; }
    [[nodiscard]] Building building() const { return readBuilding(document_.first_child()).value(); }

    std::string kind = "RectangularBuilding";

private:
    pugi::xml_document document_;
};

void uploadAll(TextureSink& sink) {
    for (const TextureTable table : textureTables) {
        int index = 0;
        for (const std::string_view name : textureFiles(table))
            sink.upload(table, index++, decodeTexture(makeTexture(table, name)).value());
    }
}

/// OpenGL with nothing around it: a buffer of its own and the textures of one building.
class BareOpenGl {
public:
    BareOpenGl() {
        context_.create();
        surface_.setFormat(context_.format());
        surface_.create();
        context_.makeCurrent(&surface_);
        gl_ = QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_1_1>(&context_);
        buffer_ = std::make_unique<QOpenGLFramebufferObject>(frameSize);
        buffer_->bind();
        gl_->glViewport(0, 0, frameSize.width(), frameSize.height());
        gl_->glClearColor(1.0F, 1.0F, 1.0F, 1.0F);
        gl_->glEnable(GL_CULL_FACE);
        gl_->glEnable(GL_TEXTURE_2D);
        gl_->glEnableClientState(GL_VERTEX_ARRAY);
        gl_->glEnableClientState(GL_NORMAL_ARRAY);
        gl_->glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        gl_->glEnable(GL_LIGHTING);
        gl_->glEnable(GL_LIGHT0);
    }
    void makeCurrent() { context_.makeCurrent(&surface_); }
    unsigned upload(const Picture& picture) {
        unsigned name = 0;
        gl_->glGenTextures(1, &name);
        gl_->glBindTexture(GL_TEXTURE_2D, name);
        gl_->glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        gl_->glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        gl_->glTexImage2D(GL_TEXTURE_2D, 0, 3, picture.width, picture.height, 0, 0x80E0, GL_UNSIGNED_BYTE,
                          picture.pixels.data());
        return name;
    }
    void setView(const BuildingMesh& mesh) {
        const ViewBox box = viewBoxOf(mesh, 1.0);
        gl_->glMatrixMode(GL_PROJECTION);
        gl_->glOrtho(box.left, box.right, box.bottom, box.top, box.nearPlane, box.farPlane);
        gl_->glMatrixMode(GL_MODELVIEW);
    }
    void draw(const BuildingMesh& mesh, const std::vector<unsigned>& textures, float angle) {
        gl_->glClear(GL_COLOR_BUFFER_BIT);
        gl_->glLoadIdentity();
        gl_->glRotated(viewTiltDegrees, 1.0, 0.0, 0.0);
        gl_->glRotatef(angle, 0.0F, 0.0F, 1.0F);
        for (std::size_t i = 0; i < mesh.parts.size(); ++i) {
            const std::vector<MeshVertex>& vertices = mesh.parts[i].vertices;
            gl_->glBindTexture(GL_TEXTURE_2D, textures[i]);
            gl_->glVertexPointer(3, GL_FLOAT, sizeof(MeshVertex), vertices.front().position.data());
            gl_->glNormalPointer(GL_FLOAT, sizeof(MeshVertex), vertices.front().normal.data());
            gl_->glTexCoordPointer(2, GL_FLOAT, sizeof(MeshVertex), vertices.front().texture.data());
            gl_->glDrawArrays(GL_TRIANGLES, 0, static_cast<int>(vertices.size()));
        }
        gl_->glFinish();
    }

private:
    QOffscreenSurface surface_;
    QOpenGLContext context_;
    QOpenGLFunctions_1_1* gl_ = nullptr;
    std::unique_ptr<QOpenGLFramebufferObject> buffer_;
};

// The mesh, and the textures that its parts take by turns.
struct BareScene {
    explicit BareScene(const Building& building)
        : mesh(buildMesh(building)) {
        for (std::size_t i = 0; i < mesh.parts.size(); ++i)
            textures.push_back(openGl.upload(
                decodeTexture(makeTexture(TextureTable::window, textureFiles(TextureTable::window)[i]))
                    .value()));
        openGl.setView(mesh);
    }
    BareOpenGl openGl;
    BuildingMesh mesh;
    std::vector<unsigned> textures;
};

void BM_BuildingFrame(benchmark::State& state) {
    const auto renderer = BuildingRenderer::create();
    uploadAll(*renderer);
    const Building building = OneBuilding(static_cast<int>(state.range(0))).building();
    BareScene bare(building);
    float angle = 0.0F;
    bench::compare(
        state, 1.5, [&] { benchmark::DoNotOptimize(renderer->draw(building, angle += 2.0F, frameSize)); },
        [&] {
            bare.openGl.makeCurrent();
            bare.openGl.draw(bare.mesh, bare.textures, angle);
        });
}

void BM_FrameTime(benchmark::State& state) {
    const auto renderer = BuildingRenderer::create();
    uploadAll(*renderer);
    const Building building = OneBuilding(999).building();
    float angle = 0.0F;
    bench::timeSteps(state, 16.6,
                     [&] { benchmark::DoNotOptimize(renderer->draw(building, angle += 2.0F, frameSize)); });
}

// What the start-up pays before the textures.
void BM_SetUp(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(BuildingRenderer::create());
}

void BM_LoadTextures(benchmark::State& state) {
    const test::TemporaryFolder simulator;
    std::vector<std::string> files;
    for (const TextureTable table : textureTables)
        for (const std::string_view name : textureFiles(table)) {
            files.push_back(makeTexture(table, name));
            simulator.write("texture/" + std::string(name), files.back());
        }
    const auto renderer = BuildingRenderer::create();
    test::ScriptedDialogs dialogs;
    BareOpenGl openGl;
    bench::compare(
        state, 2.0,
        [&] {
            loadTextures({simulator.path(), simulator.path()}, dialogs, *renderer);
        },
        [&] {
            openGl.makeCurrent();
            for (const std::string& file : files)
                benchmark::DoNotOptimize(openGl.upload(decodeTexture(file).value()));
        });
}

void BM_TurningSecond(benchmark::State& state) {
    const auto renderer = BuildingRenderer::create();
    uploadAll(*renderer);
    const OneBuilding context(4);
    Turntable turntable;
    QImage window(frameSize, QImage::Format_RGB32);
    for (auto _ : state) {
        for (int tick = 0; tick < 1000 / Turntable::tickMilliseconds; ++tick) {
            if (!turntable.tick(context))
                continue;
            QPainter painter(&window);
            painter.drawImage(window.rect(), renderer->draw(readBuilding(context.currentBuilding()).value(),
                                                            turntable.angle(), frameSize));
        }
    }
}

void BM_IdleSecond(benchmark::State& state) {
    OneBuilding context(4);
    context.kind = "LibraryObject";
    Turntable turntable;
    for (auto _ : state)
        for (int tick = 0; tick < 1000 / Turntable::tickMilliseconds; ++tick)
            benchmark::DoNotOptimize(turntable.tick(context));
}

BENCHMARK(BM_BuildingFrame)
    ->Arg(4)
    ->Arg(999)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(100);
BENCHMARK(BM_FrameTime)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(100);
BENCHMARK(BM_SetUp)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(BM_LoadTextures)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(BM_TurningSecond)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();
BENCHMARK(BM_IdleSecond)->MeasureProcessCPUTime();

} // namespace
} // namespace quillset

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    if (!quillset::BuildingRenderer::create()) {
        std::fputs("needs OpenGL: run under an X server such as Xvfb\n", stderr);
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
