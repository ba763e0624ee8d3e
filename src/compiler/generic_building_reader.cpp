#include "compiler/generic_building_reader.h"

#include "compiler/building_layout.h"

#include <algorithm>
#include <cmath>

namespace quillset::compiler {

namespace {

using Textures = std::array<std::uint16_t, sharedTextures.size()>;

std::uint16_t sharedTexture(const Textures& textures, std::string_view attribute) {
    const auto found = std::find(sharedTextures.begin(), sharedTextures.end(), attribute);
    return textures[static_cast<std::size_t>(found - sharedTextures.begin())];
}

std::uint16_t roundedSize(AttributeReader& attributes, std::string_view name) {
    const double size = attributes.required(name, values::size);
    const auto stored = static_cast<std::uint16_t>(std::lround(size));
    if (stored != size)
        attributes.warning(*attributes.find(name),
                           "only whole numbers can be stored; rounded to " + std::to_string(stored));
    return stored;
}

void readFields(AttributeReader& attributes, std::span<const BuildingField> fields, const Textures& textures,
                std::vector<std::uint16_t>& words) {
    for (const BuildingField& field : fields) {
        switch (field.value) {
        case BuildingValue::word:
            words.push_back(attributes.required(field.attribute, values::word));
            break;
        case BuildingValue::size:
            words.push_back(roundedSize(attributes, field.attribute));
            break;
        case BuildingValue::sides:
            words.push_back(attributes.required(field.attribute, values::sides));
            break;
        case BuildingValue::texture:
            words.push_back(sharedTexture(textures, field.attribute));
            break;
        }
    }
}

// What other roofs store must be a number here too, so that it is one when the roof is changed back.
void readUnused(AttributeReader& attributes, std::span<const BuildingField> used) {
    for (const std::string_view name : roofAttributes) {
        const bool isRead = std::any_of(used.begin(), used.end(),
                                        [&](const BuildingField& field) { return field.attribute == name; });
        if (!isRead)
            attributes.optional(name, values::word, std::uint16_t{0});
    }
}

Building readBuilding(ReadContext& context, std::string_view element, const Textures& textures) {
    AttributeReader attributes(context.scanner, context.report);
    Building building;
    if (element == "PyramidalBuilding")
        building.shape = BuildingShape::pyramidal;
    else if (element == "MultiSidedBuilding")
        building.shape = BuildingShape::multiSided;
    else
        building.shape = attributes.required("roofType", values::roofType);
    const BuildingLayout& layout = layoutOf(building.shape);
    building.words.reserve(layout.common.size() + layout.further.size());
    readFields(attributes, layout.common, textures, building.words);
    readFields(attributes, layout.further, textures, building.words);
    if (building.shape == BuildingShape::multiSided) {
        // Demanded, but not stored: both have no place in the file.
        attributes.required("smoothing", values::boolean);
        attributes.required("textureIndexRoofY", values::word);
    } else if (building.shape != BuildingShape::pyramidal) {
        readUnused(attributes, layout.further);
    }
    attributes.finish();
    expectNoChildren(context, element);
    return building;
}

} // namespace

GenericBuilding readGenericBuilding(ReadContext& context) {
    constexpr std::string_view kinds[] = {"RectangularBuilding", "PyramidalBuilding", "MultiSidedBuilding"};
    const std::size_t offset = context.scanner.offset();
    AttributeReader attributes(context.scanner, context.report);
    GenericBuilding generic;
    generic.scale = attributes.optional("scale", values::scale, 1.0F);
    Textures textures{};
    std::transform(sharedTextures.begin(), sharedTextures.end(), textures.begin(),
                   [&](std::string_view name) { return attributes.required(name, values::word); });
    attributes.finish();
    const bool complete = eachChild(context, "GenericBuilding", [&] {
        const auto kind = std::find(std::begin(kinds), std::end(kinds), context.scanner.name());
        if (kind != std::end(kinds))
            generic.buildings.push_back(readBuilding(context, *kind, textures));
        else if (context.scanner.name() == "BuildingBias")
            unsupportedElement(context, "the building stays where the placement is");
        else
            unknownElement(context, "GenericBuilding",
                           "RectangularBuilding, PyramidalBuilding, MultiSidedBuilding");
    });
    if (complete && generic.buildings.empty())
        context.report.error(offset,
                             "<GenericBuilding>: the building is missing; allowed: RectangularBuilding, "
                             "PyramidalBuilding, MultiSidedBuilding");
    return generic;
}

} // namespace quillset::compiler
