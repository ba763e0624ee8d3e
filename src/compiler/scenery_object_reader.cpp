#include "compiler/scenery_object_reader.h"

#include "compiler/format_choices.h"
#include "compiler/generic_building_reader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillset::compiler {

namespace {

constexpr std::string_view objectName = "SceneryObject";
constexpr std::string_view allowedChildren = "LibraryObject, Effect, GenericBuilding";

/// Children of a SceneryObject that the schema knows and that are not written. Without its object or with the
/// wrong position a placement makes no sense; without an attachment it does.
enum class Loss { placement, elementOnly };
constexpr std::pair<std::string_view, Loss> unsupportedChildren[] = {
    {"Beacon", Loss::placement},      {"Trigger", Loss::placement},          {"Windsock", Loss::placement},
    {"SimObject", Loss::placement},   {"BiasXYZ", Loss::placement},          {"NoSnow", Loss::elementOnly},
    {"HideOnTIN", Loss::elementOnly}, {"AttachedObject", Loss::elementOnly}, {"WorldScript", Loss::placement},
};
// In the order of their bits in the record's flags, from bit 1.
constexpr std::string_view suppressions[] = {
    "NoAutogenSuppression", "NoCrash", "NoFog", "NoShadow", "NoZWrite", "NoZTest"};
constexpr std::string_view laterAttributes[] = {"displayName", "parentGroupID", "groupIndex", "snapToGround",
                                                "snapToNormal"};

class ObjectReader {
public:
    explicit ObjectReader(ReadContext& context)
        : context_(context)
        , offset_(context.scanner.offset()) {}

    std::optional<SceneryObject> read() {
        readAttributes();
        const bool complete = eachChild(context_, objectName, [&] { readChild(); });
        if (complete && things_ == 0 && !lost_)
            context_.report.warning(offset_, "<SceneryObject>: places nothing; it should hold one of: " +
                                                 std::string(allowedChildren));
        if (things_ != 1 || lost_)
            return std::nullopt;
        return std::move(object_);
    }

private:
    void readAttributes();
    void readChild();
    bool readThing(std::string_view name);
    bool readSuppression(std::string_view name);
    void readLibraryObject();
    void readEffect();

    ReadContext& context_;
    std::size_t offset_;
    SceneryObject object_;
    int things_ = 0;
    bool lost_ = false;
};

void ObjectReader::readAttributes() {
    AttributeReader attributes(context_.scanner, context_.report);
    object_.latitude = attributes.required("lat", values::latitude);
    object_.longitude = attributes.required("lon", values::longitude);
    object_.altitude = attributes.optional("alt", values::altitude, 0.0);
    object_.pitch = attributes.optional("pitch", values::angle, 0.0);
    object_.bank = attributes.optional("bank", values::angle, 0.0);
    object_.heading = attributes.optional("heading", values::angle, 0.0);
    object_.altitudeIsAgl = attributes.optional("altitudeIsAgl", values::boolean, false);
    object_.imageComplexity =
        attributes.optional("imageComplexity", values::imageComplexity, format::defaultImageComplexity);
    if (context_.target == Target::fsx)
        object_.instanceId = attributes.optional("instanceId", values::guid, GuidBytes{});
    else
        attributes.unsupported("instanceId", context_.unsupported);
    for (const std::string_view name : laterAttributes)
        attributes.unsupported(name, context_.unsupported);
    attributes.finish();
}

void ObjectReader::readChild() {
    const std::string_view name = context_.scanner.name();
    if (readThing(name) || readSuppression(name))
        return;
    const auto known = std::find_if(std::begin(unsupportedChildren), std::end(unsupportedChildren),
                                    [&](const auto& child) { return child.first == name; });
    if (known == std::end(unsupportedChildren)) {
        unknownElement(context_, objectName, allowedChildren);
        lost_ = true;
    } else if (known->second == Loss::placement) {
        unsupportedElement(context_, "the whole placement is left out");
        lost_ = true;
    } else {
        unsupportedElement(context_, "it is left out of the placement");
    }
}

bool ObjectReader::readThing(std::string_view name) {
    const bool isThing = name == "LibraryObject" || name == "Effect" || name == "GenericBuilding";
    if (!isThing)
        return false;
    if (++things_ > 1)
        context_.report.error(context_.scanner.offset(),
                              "<" + std::string(name) +
                                  ">: the placement holds an object already; allowed: one");
    if (name == "LibraryObject")
        readLibraryObject();
    else if (name == "Effect")
        readEffect();
    else
        object_.thing = readGenericBuilding(context_);
    return true;
}

bool ObjectReader::readSuppression(std::string_view name) {
    const auto found = std::find(std::begin(suppressions), std::end(suppressions), name);
    if (found == std::end(suppressions))
        return false;
    if (context_.target == Target::fs2004) {
        unsupportedElement(context_, "FS2004 does not know it");
        return true;
    }
    const auto bit = static_cast<unsigned>(found - std::begin(suppressions)) + 1;
    object_.suppressions = static_cast<std::uint16_t>(object_.suppressions | 1U << bit);
    AttributeReader(context_.scanner, context_.report).finish();
    expectNoChildren(context_, name);
    return true;
}

void ObjectReader::readLibraryObject() {
    AttributeReader attributes(context_.scanner, context_.report);
    LibraryObject model;
    model.guid = attributes.required("name", values::guid);
    model.scale = attributes.optional("scale", values::scale, 1.0F);
    attributes.finish();
    expectNoChildren(context_, "LibraryObject");
    object_.thing = model;
}

void ObjectReader::readEffect() {
    AttributeReader attributes(context_.scanner, context_.report);
    Effect effect;
    effect.name = attributes.required("effectName", values::effectName);
    effect.params = attributes.optional("effectParams", values::effectParams, std::string());
    attributes.finish();
    expectNoChildren(context_, "Effect");
    object_.thing = std::move(effect);
}

} // namespace

std::optional<SceneryObject> readSceneryObject(ReadContext& context) {
    return ObjectReader(context).read();
}

} // namespace quillset::compiler
