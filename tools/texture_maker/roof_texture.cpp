#include "texture_maker/roof_texture.h"

#include "texture_maker/texture_look.h"

namespace quillset {

namespace {

constexpr int side = Canvas::side;

/// The shade of one pixel of a covering, as a step from the plain colour.
class Covering {
public:
    Covering(RoofPattern pattern, std::uint32_t seed, int number)
        : pattern_(pattern)
        , seed_(seed)
        , number_(number) {}

    [[nodiscard]] int shadeAt(int x, int y) const {
        switch (pattern_) {
        case RoofPattern::shingles:
            return shingle(x, y);
        case RoofPattern::membrane:
            return membrane(x, y);
        case RoofPattern::clayTiles:
            return clayTile(x, y);
        case RoofPattern::standingSeam:
            return seam(x) + stain(x, y, 32) / 2;
        case RoofPattern::plain:
            return plain(x, y);
        case RoofPattern::gravel:
            return jitter(x, y, 7) + stain(x, y, 32);
        case RoofPattern::corrugated:
            return corrugation(x) + stain(x, y, 16) - (y % 64 == 0 ? 5 : 0);
        }
        return 0;
    }

private:
    [[nodiscard]] int jitter(int x, int y, int range) const {
        return noiseAt(x, y, seed_) * (2 * range + 1) / 256 - range;
    }
    [[nodiscard]] int stain(int x, int y, int grain) const {
        return smoothNoiseAt(x, y, grain, seed_ + 7) / 36 - 3;
    }
    [[nodiscard]] int shingle(int x, int y) const {
        const int row = y / 8;
        const int along = (x + (row % 2) * 4 + noiseAt(row, 3, seed_) % 2) % side;
        const int edge = y % 8 == 0 ? -7 : (along % 8 == 0 ? -4 : 0);
        return edge + jitter(along / 8, row, 4) + y % 8 / 3 + stain(x, y, 64);
    }
    [[nodiscard]] int membrane(int x, int y) const {
        const int width = number_ % 2 == 0 ? 32 : 64;
        const int lap = x % width == 0 ? -5 : (x % width == 1 ? 3 : 0);
        const int patch = noiseAt(x / 16, y / 16, seed_ + 3) > 236 ? -4 : 0;
        return lap + patch + stain(x, y, 32) + jitter(x, y, 1);
    }
    [[nodiscard]] int clayTile(int x, int y) const {
        constexpr int round[] = {-6, -2, 2, 4, 4, 2, -2, -5};
        return round[x % 8] - (y % 16 == 0 ? 6 : 0) + jitter(x / 8, y / 16, 3) + stain(x, y, 64);
    }
    [[nodiscard]] int seam(int x) const {
        const int width = number_ % 2 == 0 ? 8 : 16;
        return x % width == 0 ? 6 : (x % width == 1 ? -6 : 0);
    }
    [[nodiscard]] int plain(int x, int y) const {
        const int panel = 32 << (number_ % 2);
        return stain(x, y, 32) + jitter(x, y, 2) - (x % panel == 0 || y % panel == 0 ? 4 : 0);
    }
    [[nodiscard]] static int corrugation(int x) {
        constexpr int wave[] = {-6, -3, 1, 4, 5, 4, 1, -3};
        return wave[x % 8];
    }

    RoofPattern pattern_;
    std::uint32_t seed_;
    int number_;
};

} // namespace

Canvas paintRoofTexture(std::string_view fileName) {
    const RoofLook look = roofLookOf(fileName);
    const Covering covering(look.pattern, seedOf(fileName), numberIn(fileName));
    Canvas canvas;
    const Material material = canvas.addMaterial(look.colour);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            canvas.set(x, y, material, Canvas::plain + covering.shadeAt(x, y));
    return canvas;
}

} // namespace quillset
