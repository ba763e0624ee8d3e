#include "texture_maker/wall_texture.h"

#include "texture_maker/texture_look.h"

#include <algorithm>

namespace quillset {

namespace {

constexpr int side = Canvas::side;

/// Paints the walls and openings of one texture.
class WallPainter {
public:
    explicit WallPainter(std::string_view fileName)
        : look_(wallLookOf(fileName))
        , seed_(seedOf(fileName))
        , number_(numberIn(fileName))
        , wall_(canvas_.addMaterial(look_.wall))
        , joint_(canvas_.addMaterial(look_.joint))
        , trim_(canvas_.addMaterial(look_.trim))
        , glass_(canvas_.addMaterial(look_.glass)) {}

    void paintMasonry(const PixelRect& area);
    void paintFloors();
    void paintGroundFloor(const PixelRect& area);
    void paintUpperFloor(const PixelRect& area);

    Canvas canvas_;

private:
    void paintMasonryPixel(int x, int y);
    void paintPane(const PixelRect& pane);
    void paintWindow(const PixelRect& opening);
    void paintCell(const PixelRect& cell);
    void paintBalcony(const PixelRect& cell);
    void paintRow(const PixelRect& area, int openings, int sill, int height);
    [[nodiscard]] int jitter(int x, int y, int range) const {
        return noiseAt(x, y, seed_) * (2 * range + 1) / 256 - range;
    }

    WallLook look_;
    std::uint32_t seed_;
    int number_;
    Material wall_;
    Material joint_;
    Material trim_;
    Material glass_;
};

void WallPainter::paintMasonryPixel(int x, int y) {
    const int grain = smoothNoiseAt(x, y, 16, seed_) / 64 - 2;
    switch (look_.masonry) {
    case Masonry::brick: {
        const int course = y / 4;
        const int along = x + (course % 2) * 4;
        const bool mortar = y % 4 == 0 || along % 8 == 0;
        canvas_.set(x, y, mortar ? joint_ : wall_,
                    Canvas::plain + (mortar ? -2 : jitter(along / 8, course, 4)) + grain);
        return;
    }
    case Masonry::ashlar: {
        const int course = y / 8;
        const int along = x + (course % 2) * 8;
        const bool joint = y % 8 == 0 || along % 16 == 0;
        canvas_.set(x, y, joint ? joint_ : wall_,
                    Canvas::plain + (joint ? 0 : jitter(along / 16, course, 3)) + grain);
        return;
    }
    case Masonry::concrete:
        canvas_.set(x, y, wall_,
                    Canvas::plain + grain + jitter(x, y, 1) - (x % 32 == 0 || y % 16 == 0 ? 4 : 0));
        return;
    case Masonry::metal: {
        constexpr int rib[] = {3, 1, -1, -4};
        canvas_.set(x, y, wall_, Canvas::plain + rib[x % 4] + grain - (y % 32 == 0 ? 5 : 0));
        return;
    }
    case Masonry::plaster:
        canvas_.set(x, y, wall_, Canvas::plain + grain + jitter(x, y, 1));
        return;
    }
}

void WallPainter::paintMasonry(const PixelRect& area) {
    for (int y = area.y; y < area.y + area.height; ++y)
        for (int x = area.x; x < area.x + area.width; ++x)
            paintMasonryPixel(x, y);
}

// Glass is lighter above, where it mirrors the sky; some panes have their blinds down.
void WallPainter::paintPane(const PixelRect& pane) {
    const int mood = jitter(pane.x * 7, pane.y * 5, 5);
    const bool blind = noiseAt(pane.x, pane.y, seed_ + 1) > 205;
    for (int y = 0; y < pane.height; ++y) {
        const int sky = 10 * y / std::max(pane.height, 1) - 7;
        for (int x = 0; x < pane.width; ++x)
            canvas_.set(pane.x + x, pane.y + y, glass_, Canvas::plain + sky + mood);
    }
    if (blind)
        canvas_.fill({pane.x, pane.y + pane.height / 2, pane.width, pane.height - pane.height / 2}, trim_,
                     Canvas::plain - 3);
}

void WallPainter::paintWindow(const PixelRect& opening) {
    canvas_.fill({opening.x - 1, opening.y - 1, opening.width + 2, opening.height + 2}, trim_);
    paintPane(opening);
    canvas_.shadeBy({opening.x, opening.y + opening.height - 1, opening.width, 1}, -8);
    if (opening.width >= 6)
        canvas_.fill({opening.x + opening.width / 2, opening.y, 1, opening.height}, trim_, Canvas::plain - 2);
    // The sill and its shadow.
    canvas_.fill({opening.x - 1, opening.y - 2, opening.width + 2, 1}, trim_, Canvas::plain + 4);
    canvas_.shadeBy({opening.x - 1, opening.y - 3, opening.width + 2, 1}, -5);
}

void WallPainter::paintBalcony(const PixelRect& cell) {
    paintPane({cell.x + 4, cell.y + 3, cell.width - 8, cell.height - 6});
    const int railing = cell.height / 2 - 2;
    canvas_.shadeBy({cell.x + 4, cell.y + cell.height - 6, cell.width - 8, 3}, -7);
    canvas_.fill({cell.x + 2, cell.y + 2, cell.width - 4, railing}, trim_, Canvas::plain);
    for (int x = cell.x + 2; x < cell.x + cell.width - 2; x += 2)
        canvas_.shadeBy({x, cell.y + 3, 1, railing - 2}, -3 - number_ % 3);
    canvas_.fill({cell.x + 1, cell.y, cell.width - 2, 2}, joint_, Canvas::plain - 2);
}

// One window of one floor, with the wall around it.
void WallPainter::paintCell(const PixelRect& cell) {
    const int w = cell.width;
    const int h = cell.height;
    const int odd = number_ % 2;
    switch (look_.facade) {
    case Facade::windows:
        return paintWindow({cell.x + 3 + odd, cell.y + 5, w - 6 - 2 * odd, h - 8});
    case Facade::tallWindows:
        canvas_.shadeBy({cell.x, cell.y, 2, h}, 3);
        return paintWindow({cell.x + 5, cell.y + 4, w - 9, h - 6});
    case Facade::balconies:
        return paintBalcony(cell);
    case Facade::strip:
        canvas_.fill({cell.x, cell.y + h / 3, w, h / 2 + odd}, trim_, Canvas::plain - 4);
        paintPane({cell.x + 1, cell.y + h / 3 + 1, w - 1, h / 2 - 2 + odd});
        return canvas_.shadeBy({cell.x, cell.y + h / 3 + h / 2 - 2 + odd, w, 1}, -6);
    case Facade::curtain:
        paintPane({cell.x, cell.y, w, h});
        canvas_.fill({cell.x, cell.y, w, h / 4 + odd}, wall_, Canvas::plain + jitter(cell.x, cell.y, 1));
        canvas_.fill({cell.x, cell.y, 1, h}, trim_);
        return canvas_.fill({cell.x, cell.y + h / 4 + odd, w, 1}, trim_, Canvas::plain + 2);
    case Facade::mullions:
        paintPane({cell.x + 2, cell.y + 3, w - 3, h - 3});
        canvas_.fill({cell.x, cell.y, 1, h}, trim_, Canvas::plain + 3);
        return canvas_.shadeBy({cell.x + 2, cell.y + h - 2, w - 3, 2}, -4 - odd);
    }
}

void WallPainter::paintFloors() {
    paintMasonry({0, 0, side, side});
    // Higher numbers of a series have wider bays or higher floors.
    const int bays = number_ % 3 == 0 ? std::max(look_.bays / 2, 4) : look_.bays;
    const int floors = number_ % 4 == 0 ? look_.floors / 2 : look_.floors;
    const int width = side / bays;
    const int height = side / floors;
    for (int floor = 0; floor < floors; ++floor)
        for (int bay = 0; bay < bays; ++bay)
            paintCell({bay * width, floor * height, width, height});
}

void WallPainter::paintRow(const PixelRect& area, int openings, int sill, int height) {
    const int width = side / openings;
    for (int i = 0; i < openings; ++i)
        paintWindow({i * width + width / 5 + 1, area.y + sill, width - 2 * (width / 5) - 1, height});
}

void WallPainter::paintGroundFloor(const PixelRect& area) {
    paintMasonry(area);
    canvas_.fill({area.x, area.y, area.width, 5}, joint_, Canvas::plain - 6);
    paintRow(area, number_ % 4 == 1 ? 8 : 4, 12, 34);
    canvas_.fill({area.x, area.y + 54, area.width, 4}, trim_, Canvas::plain + 2);
    canvas_.shadeBy({area.x, area.y + 51, area.width, 3}, -5);
}

void WallPainter::paintUpperFloor(const PixelRect& area) {
    paintMasonry(area);
    canvas_.fill({area.x, area.y, area.width, 3}, trim_, Canvas::plain - 3);
    paintRow(area, 8, 10, 12 + number_ % 3);
    paintRow(area, 8, 32, 12 + number_ % 3);
    canvas_.fill({area.x, area.y + 55, area.width, 9}, trim_, Canvas::plain);
    canvas_.shadeBy({area.x, area.y + 58, area.width, 1}, -6);
    canvas_.shadeBy({area.x, area.y + 51, area.width, 4}, -6);
}

} // namespace

Canvas paintWindowTexture(std::string_view fileName) {
    WallPainter painter(fileName);
    painter.paintFloors();
    return painter.canvas_;
}

Canvas paintWallTexture(std::string_view fileName) {
    WallPainter painter(fileName);
    painter.paintGroundFloor({0, 0, side, side / 2});
    painter.paintUpperFloor({0, side / 2, side, side / 2});
    return painter.canvas_;
}

} // namespace quillset
