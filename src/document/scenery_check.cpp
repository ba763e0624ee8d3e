#include "document/scenery_check.h"

#include "base/coordinate_text.h"
#include "base/guid_bytes.h"
#include "base/trimmed.h"
#include "document/local_models.h"
#include "document/placement.h"
#include "document/placement_ranges.h"
#include "document/scenery_document.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace quillset {

namespace {

struct ValueRule {
    const char* attribute;
    std::optional<double> (*parse)(std::string_view);
    const char* allowed;
    /// A placement without it has no place.
    bool required;
};

constexpr ValueRule latitudeRule{"lat", parseLatitude, "from -90 to 90, or a text such as N43 04.6550", true};
constexpr ValueRule longitudeRule{"lon", parseLongitude, "from -180 to 180, or a text such as W070 49.4533",
                                  true};
constexpr ValueRule altitudeRule{
    "alt", parseAltitude, "a number that may end in M (metres) or F (feet), within 2147483 metres", false};
constexpr ValueRule directionRules[] = {{"pitch", parseNumber, "a number of degrees", false},
                                        {"bank", parseNumber, "a number of degrees", false},
                                        {"heading", parseNumber, "a number of degrees", false}};

/// Why a value does not do.
std::string reasonAgainst(const ValueRule& rule, std::string_view text) {
    const std::string allowed = std::string("; allowed: ") + rule.allowed;
    if (trimmed(text).empty())
        return "has no value" + allowed;
    if (parseNumber(text) && rule.parse != parseAltitude)
        return "out of range" + allowed;
    std::string withPoint(text);
    std::replace(withPoint.begin(), withPoint.end(), ',', '.');
    if (withPoint != text && rule.parse(withPoint))
        return "a decimal comma; write a point";
    return "not a number" + allowed;
}

/// A place in whole steps of 1e-7 degrees (about a centimetre) and millimetres.
struct Place {
    long long latitude = 0;
    long long longitude = 0;
    long long altitude = 0;
};

class Writer : public pugi::xml_writer {
public:
    explicit Writer(std::string& text)
        : text_(text) {}
    void write(const void* data, std::size_t size) override {
        text_.append(static_cast<const char*>(data), size);
    }

private:
    std::string& text_;
};

/// Equal for placements that look the same apart from their place and heading. Two buildings of different
/// measures at one place are a usual way to make a tower.
std::string contentOf(const pugi::xml_node& placement) {
    const pugi::xml_node child = placementChild(placement);
    switch (placementKind(placement)) {
    case PlacementKind::libraryObject:
        return "L" + comparableGuid(child.attribute("name").value());
    case PlacementKind::effect:
        return std::string("E") + child.attribute("effectName").value() + '\n' +
               child.attribute("effectParams").value();
    case PlacementKind::genericBuilding: {
        std::string text;
        Writer writer(text);
        child.print(writer, "", pugi::format_raw);
        return text;
    }
    case PlacementKind::other:
        break;
    }
    return {};
}

class Check {
public:
    Check(const SceneryDocument& document, const PlacementRanges& places, const SceneryKnowledge& knowledge)
        : document_(document)
        , places_(places)
        , knowledge_(knowledge)
        , models_(localModels(document)) {
        for (const LocalModel& model : models_)
            ownObjects_.insert(comparableGuid(model.name));
    }

    std::vector<SceneryFinding> run() {
        for (std::size_t index = 0; index < document_.placementCount(); ++index)
            lookAt(index);
        for (std::size_t index = 0; index < models_.size(); ++index)
            lookAtModel(index);
        return std::move(findings_);
    }

private:
    void lookAt(std::size_t index) {
        row_ = index + 1;
        line_ = places_.lineOf(index);
        const pugi::xml_node placement = document_.placement(index);
        const std::optional<Place> place = placeOf(placement);
        for (const ValueRule& rule : directionRules)
            value(placement, rule);
        lookAtKind(placement);
        if (place)
            lookForTwin(placement, *place);
    }

    std::optional<double> value(const pugi::xml_node& placement, const ValueRule& rule) {
        const pugi::xml_attribute attribute = placement.attribute(rule.attribute);
        if (!attribute) {
            if (rule.required)
                add(FindingKind::coordinate, rule.attribute,
                    std::string("missing; allowed: ") + rule.allowed);
            return std::nullopt;
        }
        const std::optional<double> number = rule.parse(attribute.value());
        if (!number)
            add(FindingKind::coordinate, rule.attribute + ("=\"" + std::string(attribute.value())) + "\"",
                reasonAgainst(rule, attribute.value()));
        return number;
    }

    std::optional<Place> placeOf(const pugi::xml_node& placement) {
        const std::optional<double> latitude = value(placement, latitudeRule);
        const std::optional<double> longitude = value(placement, longitudeRule);
        const std::optional<double> altitude = value(placement, altitudeRule);
        if (!latitude || !longitude)
            return std::nullopt;
        return Place{std::llround(*latitude * 1e7), std::llround(*longitude * 1e7),
                     std::llround(altitude.value_or(0) * 1e3)};
    }

    void lookAtKind(const pugi::xml_node& placement) {
        const PlacementKind kind = placementKind(placement);
        const std::string key = placementKey(placement);
        if (kind == PlacementKind::libraryObject)
            lookAtObject(key);
        else if (kind == PlacementKind::effect && knowledge_.knowsEffect && !knowledge_.knowsEffect(key))
            add(FindingKind::unknownEffect, key, "no such effect in the simulator's effects folder");
    }

    void lookAtObject(const std::string& guid) {
        if (ownObjects_.contains(comparableGuid(guid)) || knowledge_.knowsObject(guid))
            return;
        add(FindingKind::unknownObject, guid,
            parseGuid(guid) ? "neither in a known library nor a model of this file" : "not a GUID");
    }

    void lookForTwin(const pugi::xml_node& placement, const Place& place) {
        const std::string content = contentOf(placement);
        if (content.empty())
            return;
        const std::string key = std::to_string(place.latitude) + ' ' + std::to_string(place.longitude) + ' ' +
                                std::to_string(place.altitude) + ' ' +
                                placement.attribute("altitudeIsAgl").value() + ' ' + content;
        const auto [first, isNew] = firstRows_.try_emplace(key, row_);
        if (!isNew)
            add(FindingKind::duplicate, placementKey(placement),
                "the same as row " + std::to_string(first->second) + ", at the same place");
    }

    void lookAtModel(std::size_t index) {
        row_ = 0;
        line_ = places_.lineOfModel(index);
        const std::string& file = models_[index].sourceFile;
        if (file.empty())
            add(FindingKind::missingModel, models_[index].name, "the model names no file");
        else if (!knowledge_.modelExists(file))
            add(FindingKind::missingModel, file, "the model's file is not there");
    }

    void add(FindingKind kind, std::string what, std::string why) {
        findings_.push_back({kind, row_, line_, std::move(what), std::move(why)});
    }

    const SceneryDocument& document_;
    const PlacementRanges& places_;
    const SceneryKnowledge& knowledge_;
    std::vector<LocalModel> models_;
    std::unordered_set<std::string> ownObjects_;
    std::unordered_map<std::string, std::size_t> firstRows_;
    std::vector<SceneryFinding> findings_;
    std::size_t row_ = 0;
    std::size_t line_ = 0;
};

} // namespace

std::vector<SceneryFinding> checkScenery(const SceneryDocument& document, const PlacementRanges& places,
                                         const SceneryKnowledge& knowledge) {
    return Check(document, places, knowledge).run();
}

std::string_view findingName(FindingKind kind) {
    switch (kind) {
    case FindingKind::unknownObject:
        return "unknown-object";
    case FindingKind::unknownEffect:
        return "unknown-effect";
    case FindingKind::coordinate:
        return "coordinate";
    case FindingKind::duplicate:
        return "duplicate";
    case FindingKind::missingModel:
        return "missing-model";
    }
    return {};
}

} // namespace quillset
