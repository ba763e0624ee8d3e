#include "preview/building.h"

#include "base/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <system_error>

namespace quillset {

namespace {

// The compiled scenery holds every size and index in an unsigned 16-bit word, cut to a whole number.
constexpr double largestWord = 65535.0;
constexpr double largestScale = 1.0e6;
constexpr double indexOfOneRepeat = 256.0;
constexpr int fewestSides = 3;
constexpr int mostSides = 999;

double wordOf(const pugi::xml_attribute& attribute) {
    return std::trunc(std::clamp(leadingNumber(attribute.value()), 0.0, largestWord));
}

std::optional<int> codeOf(const pugi::xml_attribute& attribute) {
    const std::string_view text = attribute.value();
    int code = 0;
    const auto [end, failed] = std::from_chars(text.data(), text.data() + text.size(), code);
    if (failed != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return code;
}

double repeatOf(const pugi::xml_attribute& attribute) {
    return attribute ? wordOf(attribute) / indexOfOneRepeat : 1.0;
}

/// Reads the attributes of one building; the four storey textures stand on the outer element.
class BuildingReader {
public:
    BuildingReader(const pugi::xml_node& outer, const pugi::xml_node& inner)
        : outer_(outer)
        , inner_(inner) {
        const pugi::xml_attribute scale = outer.attribute("scale");
        if (scale)
            scale_ = std::clamp(leadingNumber(scale.value()), 0.0, largestScale);
    }

    [[nodiscard]] double metres(const char* name) const { return wordOf(inner_.attribute(name)) * scale_; }
    [[nodiscard]] Storey storey(const char* part, const char* texture, TextureTable table) const {
        const std::string size = std::string("size") + part + "Y";
        return {metres(size.c_str()), cover(part, surfaceOf(table, codeOf(outer_.attribute(texture))))};
    }
    // The colour tables of the simulator know gables and faces among the walls.
    [[nodiscard]] Cover wallCover(const char* part, const char* texture) const {
        return cover(part, surfaceOf(TextureTable::wall, codeOf(inner_.attribute(texture))));
    }

private:
    [[nodiscard]] Cover cover(const char* part, const Surface& surface) const {
        const std::string index = std::string("textureIndex") + part;
        return {surface, repeatOf(inner_.attribute((index + "X").c_str())),
                repeatOf(inner_.attribute((index + "Y").c_str())),
                repeatOf(inner_.attribute((index + "Z").c_str()))};
    }

    pugi::xml_node outer_;
    pugi::xml_node inner_;
    double scale_ = 1.0;
};

struct KindRow {
    std::string_view element;
    BuildingKind kind;
};
constexpr KindRow kinds[] = {{"RectangularBuilding", BuildingKind::rectangular},
                             {"PyramidalBuilding", BuildingKind::pyramidal},
                             {"MultiSidedBuilding", BuildingKind::multiSided}};

std::optional<BuildingKind> kindOf(const pugi::xml_node& element) {
    for (const KindRow& row : kinds)
        if (row.element == element.name())
            return row.kind;
    return std::nullopt;
}

RoofType roofTypeOf(std::string_view text) {
    if (text == "PEAKED")
        return RoofType::peaked;
    if (text == "RIDGE")
        return RoofType::ridge;
    return text == "SLANT" ? RoofType::slant : RoofType::flat;
}

Building readAs(BuildingKind kind, const pugi::xml_node& outer, const pugi::xml_node& inner) {
    const BuildingReader reader(outer, inner);
    const std::string_view smoothing = inner.attribute("smoothing").value();
    Building building;
    building.kind = kind;
    building.roofType = roofTypeOf(inner.attribute("roofType").value());
    building.sizeX = reader.metres("sizeX");
    building.sizeZ = reader.metres("sizeZ");
    building.sizeTopX = reader.metres("sizeTopX");
    building.sizeTopZ = reader.metres("sizeTopZ");
    building.sides = static_cast<int>(
        std::clamp(wordOf(inner.attribute("buildingSides")), double{fewestSides}, double{mostSides}));
    building.smoothing = kind == BuildingKind::multiSided && (smoothing == "TRUE" || smoothing == "YES");
    building.bottom = reader.storey("Bottom", "bottomTexture", TextureTable::wall);
    building.window = reader.storey("Window", "windowTexture", TextureTable::window);
    building.top = reader.storey("Top", "topTexture", TextureTable::wall);
    building.roof = reader.storey("Roof", "roofTexture", TextureTable::roof);
    building.gable = reader.wallCover("Gable", "gableTexture");
    building.face = reader.wallCover("Face", "faceTexture");
    return building;
}

} // namespace

std::optional<Building> readBuilding(const pugi::xml_node& genericBuilding) {
    for (const pugi::xml_node& child : genericBuilding.children())
        if (const std::optional<BuildingKind> kind = kindOf(child))
            return readAs(*kind, genericBuilding, child);
    return std::nullopt;
}

} // namespace quillset
