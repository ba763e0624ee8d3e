#include "properties/property_rules.h"

#include <algorithm>
#include <array>

namespace quillset {

namespace {

struct DescriptionRow {
    std::string_view name;
    std::string_view text;
};

constexpr std::string_view offsetX = "Offset along X into the texture sheet for end of this texture";
constexpr std::string_view offsetY = "Offset along Y into the texture sheet for end of this texture";
constexpr std::string_view offsetZ = "Offset along Z into the texture sheet for end of this texture";
constexpr std::string_view offset = "Offset into the texture sheet for end of this texture";

// The final blank of the first text, "longitundinal", the two blanks after a full stop and the typographic
// quotes are deliberate: manuals and translations quote these texts letter by letter.
constexpr std::array<DescriptionRow, 42> descriptions{{
    {"lat", "Latitude of object "},
    {"lon", "Longitude of object"},
    {"alt", "Altitude of object"},
    {"altitudeIsAgl", "Boolean indicating whether altitude is AGL or MSL"},
    {"pitch", "Pitch applied to object"},
    {"bank", "Bank applied to object"},
    {"heading", "Heading applied to object"},
    {"imageComplexity", "Image complexity"},
    {"effectParams", "Params for the effect"},
    {"scale",
     "Scale value for object that represents the number of meters per unit.  Set to 1.0 for the object "
     "to be modeled in meters."},
    {"bottomTexture", "ID of texture to use on bottom layer"},
    {"roofTexture", "ID of texture to use on roof"},
    {"topTexture", "ID of texture to use on top layer"},
    {"windowTexture", "ID of texture to use on window layer"},
    {"gableTexture", "ID of texture to use on gable"},
    {"faceTexture", "ID of texture to use on face"},
    {"sizeX", "Size of base along latitudinal axis"},
    {"sizeZ", "Size of base along longitundinal axis"},
    {"sizeBottomY", "Height of the \u2018bottom\u2019 layer in meters."},
    {"sizeTopX", "Size of the top along latitudinal axis"},
    {"sizeTopY", "Height of the top section in meters"},
    {"sizeTopZ", "Size of the top along longitudinal axis"},
    {"sizeWindowY", "Height of the \u2018Window\u2019 layer in meters"},
    {"sizeRoofY", "Height of peak in the center of the building roof"},
    {"buildingSides", "Number of building sides"},
    {"smoothing", "Boolean indicating whether the building should be shaded to give the appearance of being "
                  "round."},
    {"textureIndexBottomX", offsetX},
    {"textureIndexBottomZ", offsetZ},
    {"textureIndexWindowX", offsetX},
    {"textureIndexWindowY", "Ending offset in the texture sheet for the window texture"},
    {"textureIndexWindowZ", offsetZ},
    {"textureIndexTopX", offsetX},
    {"textureIndexTopZ", offsetZ},
    {"textureIndexRoofX", offsetX},
    {"textureIndexRoofY", offset},
    {"textureIndexRoofZ", offsetZ},
    {"textureIndexGableY", offset},
    {"textureIndexGableZ", offsetZ},
    {"textureIndexFaceX", offsetX},
    {"textureIndexFaceY", offsetY},
    {"roofType", "Type of roof for the Rectangular GenericBuilding"},
    {"comment", "User comment for object"},
}};

constexpr std::array<std::string_view, 6> complexities{"VERY_SPARSE", "SPARSE",     "NORMAL",
                                                       "DENSE",       "VERY_DENSE", "EXTREMELY_DENSE"};
constexpr std::array<std::string_view, 2> booleans{"TRUE", "FALSE"};
constexpr std::array<std::string_view, 4> roofTypes{"FLAT", "PEAKED", "RIDGE", "SLANT"};

struct EditorRow {
    std::string_view name;
    EditorChoice choice;
};

constexpr EditorChoice listOf(std::span<const std::string_view> items) {
    return {EditorKind::list, items, {}};
}
constexpr EditorChoice spinWithin(int minimum, int maximum) {
    return {EditorKind::spin, {}, {minimum, maximum}};
}

// The three maxima of the texture properties are the ends of three different texture tables.
constexpr std::array<EditorRow, 11> editors{{
    {"imageComplexity", listOf(complexities)},
    {"smoothing", listOf(booleans)},
    {"altitudeIsAgl", listOf(booleans)},
    {"roofType", listOf(roofTypes)},
    {"topTexture", spinWithin(0, 85)},
    {"bottomTexture", spinWithin(0, 85)},
    {"roofTexture", spinWithin(0, 37)},
    {"windowTexture", spinWithin(0, 84)},
    {"gableTexture", spinWithin(0, 84)},
    {"faceTexture", spinWithin(0, 84)},
    {"buildingSides", spinWithin(3, 999)},
}};

struct FilterRow {
    std::string_view name;
    std::u32string_view besidesDigits;
};

constexpr std::u32string_view decimalCharacters = U" ,-.";

constexpr std::array<FilterRow, 7> filters{{
    {"lon", decimalCharacters},
    {"lat", decimalCharacters},
    {"heading", decimalCharacters},
    {"pitch", decimalCharacters},
    {"bank", decimalCharacters},
    {"scale", decimalCharacters},
    {"alt", U"-.FM"},
}};

// "effectParam" without the final "s" is deliberate: `effectParams` itself takes digits only.
constexpr std::array<std::string_view, 2> unfiltered{"effectParam", "comment"};

template <class Table>
auto findRow(const Table& table, std::string_view name) {
    return std::find_if(table.begin(), table.end(), [name](const auto& row) { return row.name == name; });
}

} // namespace

std::optional<std::string_view> propertyDescription(std::string_view name) {
    const auto row = findRow(descriptions, name);
    return row == descriptions.end() ? std::nullopt : std::optional(row->text);
}

EditorChoice editorFor(std::string_view name) {
    const auto row = findRow(editors, name);
    return row == editors.end() ? EditorChoice{} : row->choice;
}

bool acceptsCharacter(std::string_view name, char32_t character) {
    if (std::find(unfiltered.begin(), unfiltered.end(), name) != unfiltered.end())
        return true;
    if (character >= U'0' && character <= U'9')
        return true;
    const auto row = findRow(filters, name);
    return row != filters.end() && row->besidesDigits.find(character) != std::u32string_view::npos;
}

CoordinateCaptions captionsOf(Coordinate coordinate) {
    switch (coordinate) {
    case Coordinate::latitude:
        return {"Read latitude from FS", "Write latitude to FS"};
    case Coordinate::longitude:
        return {"Read longitude from FS", "Write longitude to FS"};
    case Coordinate::heading:
        break;
    }
    return {"Read heading from FS", "Write heading to FS"};
}

} // namespace quillset
