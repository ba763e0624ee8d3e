#include "geodata/shapefile_export.h"

#include "base/atomic_file.h"
#include "base/coordinate_text.h"
#include "base/file_set.h"
#include "base/number_text.h"
#include "base/paths.h"
#include "base/runtime_error.h"
#include "base/same_file.h"
#include "document/placement.h"
#include "document/scenery_document.h"
#include "geodata/memory_files.h"
#include "geodata/shapefile_parts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace quillset {

namespace {

constexpr int codeWidth = 65;
constexpr int guidWidth = 33;
constexpr int commentWidth = 65;
constexpr int headingWidth = 16;
constexpr int headingDecimals = 12;

constexpr const char* wgs84 =
    R"(GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,298.257223563]],)"
    R"(PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]])";

constexpr std::array searchIndexes{".qix", ".sbn", ".sbx"};

void replaceAll(std::string& text, std::string_view what) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at))
        text.erase(at, what.size());
}

struct Label {
    std::string code;
    std::string guid;
};

Label labelOf(const pugi::xml_node& placement, const ObjectNames& names) {
    const PlacementKind kind = placementKind(placement);
    if (kind != PlacementKind::libraryObject && kind != PlacementKind::effect)
        return {"unknown", "unknown"};
    const std::string key = placementKey(placement);
    Label label{kind == PlacementKind::effect ? key : names(key), key};
    replaceAll(label.code, kind == PlacementKind::effect ? ".fx" : ".mdl");
    return label;
}

/// Reads the numbers of one placement, and remembers whether all of them were numbers.
class Numbers {
public:
    double latitude(const char* text) { return read(text, parseLatitude(text)); }
    double longitude(const char* text) { return read(text, parseLongitude(text)); }
    double heading(const char* text) {
        // With more digits before the point the field would show another number.
        constexpr double tooLarge = 1e15;
        const double degrees = read(text, std::nullopt);
        if (std::abs(degrees) < tooLarge)
            return degrees;
        clear_ = false;
        return 0;
    }
    [[nodiscard]] bool clear() const { return clear_; }

private:
    double read(std::string_view text, std::optional<double> meant) {
        if (const auto plain = parseNumber(text))
            return *plain;
        if (meant)
            return *meant;
        clear_ = false;
        return leadingNumber(text);
    }

    bool clear_ = true;
};

std::string decimals(double value) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed, headingDecimals)
                         .ptr;
    const std::string text(digits.data(), std::min(end, digits.data() + headingWidth));
    return std::string(headingWidth - text.size(), ' ') + text;
}

[[noreturn]] void failToWrite(const std::string& path) {
    throw RuntimeError(ErrorNumber::deviceError, "The points could not be put together for " + path);
}

/// The shapes and the table under construction, in memory.
class PointWriter {
public:
    explicit PointWriter(MemoryFiles& files, const std::string& path)
        : path_(path) {
        SAHooks hooks = MemoryFiles::hooks();
        const std::string name = files.name();
        shapes_.reset(SHPCreateLL(name.c_str(), SHPT_POINT, &hooks));
        table_.reset(DBFCreateLL(name.c_str(), "UTF-8", &hooks));
        if (!shapes_ || !table_)
            failToWrite(path_);
        code_ = addField("code", FTString, codeWidth, 0);
        guid_ = addField("guid", FTString, guidWidth, 0);
        comment_ = addField("xmlComment", FTString, commentWidth, 0);
        heading_ = addField("aoo", FTDouble, headingWidth, headingDecimals);
    }

    void add(double longitude, double latitude, double heading, const Label& label,
             const std::string& comment) {
        const ShapeHandle shape(SHPCreateSimpleObject(SHPT_POINT, 1, &longitude, &latitude, nullptr));
        if (!shape || SHPWriteObject(shapes_.get(), -1, shape.get()) != count_)
            failToWrite(path_);
        write(code_, label.code, codeWidth);
        write(guid_, label.guid, guidWidth);
        write(comment_, comment, commentWidth);
        // Not as a number: the library prints those with the decimal separator of the user's language.
        write(heading_, decimals(heading), headingWidth);
        ++count_;
    }

private:
    int addField(const char* name, DBFFieldType type, int width, int places) {
        const int field = DBFAddField(table_.get(), name, type, width, places);
        if (field < 0)
            failToWrite(path_);
        return field;
    }

    void write(int field, std::string text, int fieldWidth) {
        auto width = static_cast<std::size_t>(fieldWidth);
        // The library would cut within a character.
        if (text.size() > width) {
            while (width > 0 && (static_cast<unsigned char>(text[width]) & 0xC0U) == 0x80U)
                --width;
            text.resize(width);
        }
        if (DBFWriteAttributeDirectly(table_.get(), count_, field, text.data()) == 0)
            failToWrite(path_);
    }

    const std::string& path_;
    ShapesHandle shapes_;
    TableHandle table_;
    int code_ = 0;
    int guid_ = 0;
    int comment_ = 0;
    int heading_ = 0;
    int count_ = 0;
};

ExportCount writePoints(const SceneryDocument& document, const ObjectNames& names, MemoryFiles& files,
                        const std::string& path) {
    PointWriter writer(files, path);
    ExportCount count;
    for (; count.points < document.placementCount(); ++count.points) {
        const pugi::xml_node placement = document.placement(count.points);
        Numbers numbers;
        const double longitude = numbers.longitude(placement.attribute("lon").value());
        const double latitude = numbers.latitude(placement.attribute("lat").value());
        const double heading = numbers.heading(placement.attribute("heading").value());
        writer.add(longitude, latitude, heading, labelOf(placement, names), placementComment(placement));
        if (!numbers.clear())
            ++count.unclear;
    }
    return count;
}

void removeSearchIndexes(FileOperations& files, const std::string& shapefile) {
    for (const char* const extension : searchIndexes) {
        try {
            files.remove(besideShapefile(shapefile, extension));
        } catch (const RuntimeError&) { // one that cannot be removed is no reason to call the export failed
        }
    }
}

} // namespace

std::string shapefilePath(const std::string& chosen) {
    return lowerCase(chosen).ends_with(".shp") ? chosen : chosen + ".shp";
}

std::vector<std::string> shapefileFiles(const std::string& path) {
    std::vector<std::string> files{path};
    for (const char* const extension : {".shx", ".dbf", ".cpg", ".prj"})
        files.push_back(besideShapefile(path, extension));
    return files;
}

bool exportReplaces(const std::string& path) {
    const std::vector<std::string> files = shapefileFiles(shapefilePath(path));
    return std::any_of(files.begin(), files.end(), fileExists);
}

ExportCount exportShapefile(const SceneryDocument& document, const ObjectNames& names, FileOperations& files,
                            const std::string& path) {
    const std::string target = shapefilePath(path);
    const std::vector<std::string> targets = shapefileFiles(target);
    for (const std::string& file : targets)
        if (sameFile(file, document.path()))
            throw RuntimeError(ErrorNumber::invalidCall,
                               "The export would overwrite the scenery file itself: " + file);
    MemoryFiles written;
    const ExportCount count = writePoints(document, names, written, path);
    writeFilesTogether(files, {{targets[0], written.file("shp")},
                               {targets[1], written.file("shx")},
                               {targets[2], written.file("dbf")},
                               {targets[3], written.file("cpg")},
                               {targets[4], wgs84}});
    removeSearchIndexes(files, target);
    return count;
}

} // namespace quillset
