#include "sample_simulator/motifs.h"

namespace quillset {

namespace {

constexpr Ink sky{150, 190, 225};
constexpr Ink haze{225, 232, 235};
constexpr Ink grass{112, 142, 84};
constexpr Ink dark{52, 58, 66};
constexpr Ink glass{92, 132, 158};
constexpr Ink concrete{176, 174, 166};
constexpr Ink white{240, 240, 236};
constexpr Ink wood{104, 80, 56};

Ink shaded(Ink ink, int percent) {
    const auto channel = [percent](int value) {
        const int result = value * percent / 100;
        return static_cast<std::uint8_t>(result > 255 ? 255 : result);
    };
    return {channel(ink.red), channel(ink.green), channel(ink.blue)};
}

void drawHangar(Sketch& sketch, Ink colour) {
    sketch.polygon({{14, 22}, {14, 48}, {24, 60}, {50, 66}, {76, 60}, {86, 48}, {86, 22}}, colour);
    sketch.rectangle({24, 22}, {76, 46}, shaded(colour, 55));
    for (double x = 34; x < 76; x += 10)
        sketch.line({x, 22}, {x, 46}, 0.8, shaded(colour, 80));
    sketch.rectangle({14, 20}, {86, 22}, concrete);
}

void drawControlTower(Sketch& sketch, Ink colour) {
    sketch.polygon({{43, 20}, {45, 66}, {57, 66}, {59, 20}}, colour);
    sketch.polygon({{51, 20}, {51, 66}, {57, 66}, {59, 20}}, shaded(colour, 80));
    sketch.polygon({{40, 66}, {34, 80}, {68, 80}, {62, 66}}, glass);
    for (double x = 0; x <= 4; ++x)
        sketch.line({41 + 5 * x, 66}, {36 + 7.5 * x, 80}, 0.8, dark);
    sketch.rectangle({33, 80}, {69, 84}, shaded(colour, 110));
    sketch.line({51, 84}, {51, 95}, 0.8, dark);
    sketch.rectangle({62, 20}, {84, 32}, shaded(colour, 90));
}

void drawFuelTanks(Sketch& sketch, Ink colour) {
    for (const double x : {16.0, 41.0, 66.0}) {
        sketch.rectangle({x, 22}, {x + 20, 48}, colour);
        sketch.rectangle({x + 14, 22}, {x + 20, 48}, shaded(colour, 82));
        sketch.polygon({{x, 48}, {x + 10, 53}, {x + 20, 48}}, shaded(colour, 106));
        sketch.line({x + 4, 22}, {x + 4, 48}, 0.7, dark);
    }
    sketch.rectangle({10, 20}, {92, 23}, concrete);
}

void drawMast(Sketch& sketch, Ink colour) {
    sketch.line({46, 20}, {50, 92}, 1.2, colour);
    sketch.line({54, 20}, {50, 92}, 1.2, colour);
    for (double y = 22; y < 86; y += 8) {
        const double half = 4 * (92 - y) / 72;
        sketch.line({50 - half, y}, {50 + half, y + 4}, 0.8, colour);
        sketch.line({50 + half, y}, {50 - half, y + 4}, 0.8, colour);
    }
    sketch.disc({50, 93}, 1.6, {200, 40, 36});
    sketch.rectangle({40, 18}, {60, 21}, concrete);
}

void drawWindmill(Sketch& sketch, Ink colour) {
    sketch.polygon({{36, 20}, {42, 60}, {58, 60}, {64, 20}}, colour);
    sketch.polygon({{52, 20}, {52, 60}, {58, 60}, {64, 20}}, shaded(colour, 82));
    sketch.polygon({{41, 60}, {44, 68}, {56, 68}, {59, 60}}, wood);
    sketch.rectangle({47, 20}, {53, 30}, dark);
    for (const Spot& tip : {Spot{74, 88}, Spot{26, 40}, Spot{26, 88}, Spot{74, 40}}) {
        const Spot near{50 + (tip.x - 50) * 0.25, 64 + (tip.y - 64) * 0.25};
        sketch.line(near, tip, 6, white);
        sketch.line({50, 64}, tip, 1, wood);
    }
    sketch.disc({50, 64}, 2, dark);
}

void drawLighthouse(Sketch& sketch, Ink colour) {
    sketch.polygon({{40, 20}, {44, 72}, {56, 72}, {60, 20}}, white);
    for (double y = 26; y < 72; y += 20) {
        const double low = 10 - 4 * (y - 20) / 52;
        const double high = 10 - 4 * (y + 10 - 20) / 52;
        sketch.polygon({{50 - low, y}, {50 - high, y + 10}, {50 + high, y + 10}, {50 + low, y}}, colour);
    }
    sketch.rectangle({42, 72}, {58, 74}, dark);
    sketch.rectangle({45, 74}, {55, 82}, {250, 226, 130});
    sketch.polygon({{43, 82}, {50, 89}, {57, 82}}, shaded(colour, 80));
}

void drawTrees(Sketch& sketch, Ink colour) {
    for (const Spot& foot : {Spot{26, 24}, Spot{72, 22}, Spot{48, 16}}) {
        sketch.line(foot, {foot.x, foot.y + 22}, 3, wood);
        sketch.disc({foot.x - 6, foot.y + 28}, 11, shaded(colour, 80));
        sketch.disc({foot.x + 6, foot.y + 30}, 11, shaded(colour, 92));
        sketch.disc({foot.x, foot.y + 40}, 12, colour);
    }
}

void drawHouse(Sketch& sketch, Ink colour) {
    sketch.polygon({{22, 20}, {22, 48}, {36, 64}, {50, 48}, {50, 20}}, colour);
    sketch.rectangle({50, 20}, {82, 48}, shaded(colour, 84));
    sketch.polygon({{50, 48}, {36, 64}, {70, 64}, {84, 48}}, {126, 66, 52});
    sketch.rectangle({31, 20}, {41, 36}, wood);
    for (const double x : {56.0, 69.0})
        sketch.rectangle({x, 30}, {x + 8, 40}, glass);
}

void drawWaterTower(Sketch& sketch, Ink colour) {
    for (const double x : {36.0, 45.0, 55.0, 64.0})
        sketch.line({x, 20}, {50 + (x - 50) * 0.8, 60}, 1.4, dark);
    sketch.line({37, 34}, {63, 34}, 1, dark);
    sketch.polygon({{32, 66}, {50, 56}, {68, 66}}, shaded(colour, 78));
    sketch.rectangle({32, 66}, {68, 82}, colour);
    sketch.rectangle({58, 66}, {68, 82}, shaded(colour, 84));
    sketch.polygon({{32, 82}, {50, 90}, {68, 82}}, shaded(colour, 108));
}

void draw(Sketch& sketch, Motif motif, Ink colour) {
    switch (motif) {
    case Motif::hangar:
        return drawHangar(sketch, colour);
    case Motif::controlTower:
        return drawControlTower(sketch, colour);
    case Motif::fuelTanks:
        return drawFuelTanks(sketch, colour);
    case Motif::mast:
        return drawMast(sketch, colour);
    case Motif::windmill:
        return drawWindmill(sketch, colour);
    case Motif::lighthouse:
        return drawLighthouse(sketch, colour);
    case Motif::trees:
        return drawTrees(sketch, colour);
    case Motif::house:
        return drawHouse(sketch, colour);
    case Motif::waterTower:
        return drawWaterTower(sketch, colour);
    }
}

} // namespace

std::string motifPicture(Motif motif, Ink colour) {
    Sketch sketch(haze, sky);
    sketch.rectangle({0, 0}, {100, 24}, grass);
    sketch.rectangle({0, 23}, {100, 24}, shaded(grass, 88));
    draw(sketch, motif, colour);
    return sketch.bitmap();
}

} // namespace quillset
