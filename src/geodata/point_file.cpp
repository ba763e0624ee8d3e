#include "geodata/point_file.h"

#include "base/atomic_file.h"
#include "base/paths.h"
#include "base/runtime_error.h"
#include "base/text_encoding.h"
#include "base/trimmed.h"
#include "base/xml_characters.h"
#include "geodata/memory_files.h"
#include "geodata/rd_coordinates.h"
#include "geodata/shapefile_parts.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <variant>

namespace quillset {

namespace {

constexpr const char* labelField = "DXF_LABEL";

bool isUtf8(const std::string& text) {
    for (const char* at = text.c_str(); at != text.data() + text.size();) {
        const unsigned length = utf8At(at).length;
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

std::optional<std::string> decoded(const std::string& bytes, TextEncoding encoding) {
    const Decoding size = decodeToUtf8(bytes, encoding, nullptr);
    if (!size.problem.empty())
        return std::nullopt;
    std::string text(size.size, '\0');
    (void)decodeToUtf8(bytes, encoding, text.data());
    return text;
}

/// A shapefile that is open for reading.
class PointReader {
public:
    PointReader(PointFileBytes bytes, const std::string& path) {
        files_.file("shp") = std::move(bytes.shp);
        files_.file("shx") = std::move(bytes.shx);
        files_.file("dbf") = std::move(bytes.dbf);
        if (!bytes.cpg.empty())
            files_.file("cpg") = std::move(bytes.cpg);
        SAHooks hooks = MemoryFiles::hooks();
        shapes_.reset(SHPOpenLL(files_.name().c_str(), "rb", &hooks));
        if (!shapes_)
            throw RuntimeError(ErrorNumber::deviceError, "The shapefile is damaged: " + path);
        table_.reset(DBFOpenLL(files_.name().c_str(), "rb", &hooks));
        if (!table_)
            throw RuntimeError(ErrorNumber::deviceError, "The shapefile's table is damaged: " + path);
        SHPGetInfo(shapes_.get(), &count_, &type_, nullptr, nullptr);
        if (const char* const page = DBFGetCodePage(table_.get()))
            encoding_ = encodingNamed(trimmed(page)).value_or(TextEncoding::windows1252);
        label_ = DBFGetFieldIndex(table_.get(), labelField);
    }

    [[nodiscard]] bool holdsPoints() const { return type_ == SHPT_POINT; }
    [[nodiscard]] bool hasLabels() const { return label_ >= 0; }
    [[nodiscard]] int count() const { return count_; }

    [[nodiscard]] std::variant<NewPlacement, ShapeFault> point(int index) {
        const ShapeHandle shape(SHPReadObject(shapes_.get(), index));
        if (!shape)
            return ShapeFault::damaged;
        if (shape->nSHPType == SHPT_NULL || shape->nVertices < 1)
            return ShapeFault::noCoordinates;
        if (shape->nSHPType != SHPT_POINT)
            return ShapeFault::noPoint;
        const double latitude = rdToWgs84Lat(shape->padfX[0], shape->padfY[0]);
        const double longitude = rdToWgs84Lon(shape->padfX[0], shape->padfY[0]);
        // Written so that what is no number is out of range, too.
        if (!(std::abs(latitude) <= 90.0 && std::abs(longitude) <= 180.0))
            return ShapeFault::outOfRange;
        if (DBFIsRecordDeleted(table_.get(), index) != 0)
            return index < DBFGetRecordCount(table_.get()) ? ShapeFault::deletedRecord : ShapeFault::noRecord;
        const std::optional<std::string> key = label(index);
        if (!key)
            return ShapeFault::noRecord;
        return NewPlacement{*key, latitude, longitude, 0};
    }

private:
    [[nodiscard]] std::optional<std::string> label(int index) {
        const int end = table_->panFieldOffset[label_] + table_->panFieldSize[label_];
        if (end > table_->nRecordLength) // the library would read behind the record
            return std::nullopt;
        const char* const found = DBFReadStringAttribute(table_.get(), index, label_);
        if (found == nullptr)
            return std::nullopt;
        const std::string bytes(trimmed(found));
        if (isUtf8(bytes))
            return bytes;
        const auto text = decoded(bytes, encoding_);
        return text ? text : decoded(bytes, TextEncoding::latin1);
    }

    MemoryFiles files_;
    ShapesHandle shapes_;
    TableHandle table_;
    int count_ = 0;
    int type_ = SHPT_NULL;
    int label_ = -1;
    TextEncoding encoding_ = TextEncoding::windows1252;
};

const char* reasonText(ShapeFault fault) {
    switch (fault) {
    case ShapeFault::damaged:
        return "damaged";
    case ShapeFault::noCoordinates:
        return "no coordinates";
    case ShapeFault::noPoint:
        return "no point";
    case ShapeFault::outOfRange:
        return "coordinates out of range";
    case ShapeFault::noRecord:
        return "no record in the table";
    case ShapeFault::deletedRecord:
        return "deleted";
    }
    return "";
}

/// Neighbouring shapes with the same fault.
struct Run {
    std::size_t first;
    std::size_t last;
    ShapeFault fault;
};

std::vector<Run> runsOf(const std::vector<SkippedShape>& skipped) {
    std::vector<Run> runs;
    for (const SkippedShape& shape : skipped) {
        if (!runs.empty() && runs.back().fault == shape.fault && runs.back().last + 1 == shape.shape)
            runs.back().last = shape.shape;
        else
            runs.push_back({shape.shape, shape.shape, shape.fault});
    }
    std::stable_sort(runs.begin(), runs.end(),
                     [](const Run& one, const Run& other) { return one.fault < other.fault; });
    return runs;
}

// "shapes 7, 9-11 (no coordinates); shape 12 (deleted)"
std::string namesOf(const std::vector<SkippedShape>& skipped) {
    constexpr std::size_t most = 40;
    const std::vector<Run> runs = runsOf(skipped);
    std::string text;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (i == most)
            return text + ", ...";
        const bool begins = i == 0 || runs[i - 1].fault != runs[i].fault;
        const bool ends = i + 1 == runs.size() || i + 1 == most || runs[i + 1].fault != runs[i].fault;
        const bool alone = begins && ends && runs[i].first == runs[i].last;
        text += i == 0 ? "" : begins ? "; " : ", ";
        if (begins)
            text += alone ? "shape " : "shapes ";
        text += std::to_string(runs[i].first);
        if (runs[i].last != runs[i].first)
            text += "-" + std::to_string(runs[i].last);
        if (ends)
            text += std::string(" (") + reasonText(runs[i].fault) + ")";
    }
    return text;
}

} // namespace

const char* refusalText(PointFile::Verdict verdict) {
    switch (verdict) {
    case PointFile::Verdict::points:
        break;
    case PointFile::Verdict::otherShapes:
        return "This shapefile does not contain points and can thus not be read";
    case PointFile::Verdict::noLabels:
        return "The DBase file does not contain a field named DXF_LABEL containing the GUIDs";
    }
    return "";
}

PointFile readPointFile(const std::string& path) {
    PointFileBytes bytes{readWholeFile(path),
                         readWholeFile(besideShapefile(path, ".shx")),
                         readWholeFile(besideShapefile(path, ".dbf")),
                         {}};
    if (const std::string page = besideShapefile(path, ".cpg"); fileExists(page))
        bytes.cpg = readWholeFile(page);
    return readPointFile(std::move(bytes), path);
}

PointFile readPointFile(PointFileBytes bytes, const std::string& path) {
    PointReader reader(std::move(bytes), path);
    PointFile result;
    if (!reader.holdsPoints())
        result.verdict = PointFile::Verdict::otherShapes;
    else if (!reader.hasLabels())
        result.verdict = PointFile::Verdict::noLabels;
    else
        for (int i = 0; i < reader.count(); ++i) {
            auto read = reader.point(i);
            if (auto* const point = std::get_if<NewPlacement>(&read))
                result.points.push_back(std::move(*point));
            else
                result.skipped.push_back({static_cast<std::size_t>(i), std::get<ShapeFault>(read)});
        }
    return result;
}

std::string importText(std::size_t added, const std::vector<SkippedShape>& skipped) {
    std::string text = std::to_string(added) + (added == 1 ? " point added" : " points added");
    if (!skipped.empty())
        text += ", " + std::to_string(skipped.size()) + " skipped: " + namesOf(skipped);
    return text;
}

} // namespace quillset
