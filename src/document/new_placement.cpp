#include "document/new_placement.h"

#include "base/number_text.h"
#include "base/runtime_error.h"
#include "document/scenery_document.h"
#include "document/tree_walk.h"

#include <array>
#include <span>

namespace quillset {

namespace {

struct AttributeText {
    const char* name;
    const char* value;
};

constexpr std::array<AttributeText, 5> genericBuilding{{
    {"scale", "1.0"},
    {"bottomTexture", "18"},
    {"windowTexture", "32"},
    {"topTexture", "18"},
    {"roofTexture", "25"},
}};

constexpr std::array<AttributeText, 15> rectangularBuilding{{
    {"roofType", "FLAT"},
    {"sizeX", "40"},
    {"sizeZ", "40"},
    {"sizeBottomY", "10"},
    {"textureIndexBottomX", "256"},
    {"textureIndexBottomZ", "256"},
    {"sizeWindowY", "80"},
    {"textureIndexWindowX", "512"},
    {"textureIndexWindowY", "1024"},
    {"textureIndexWindowZ", "512"},
    {"sizeTopY", "10"},
    {"textureIndexTopX", "256"},
    {"textureIndexTopZ", "256"},
    {"textureIndexRoofX", "256"},
    {"textureIndexRoofZ", "256"},
}};

// Deliberate: the window texture indices differ from the rectangular ones.
constexpr std::array<AttributeText, 16> pyramidalBuilding{{
    {"sizeX", "40"},
    {"sizeZ", "40"},
    {"sizeBottomY", "10"},
    {"textureIndexBottomX", "256"},
    {"textureIndexBottomZ", "256"},
    {"sizeWindowY", "80"},
    {"textureIndexWindowX", "256"},
    {"textureIndexWindowY", "1024"},
    {"textureIndexWindowZ", "256"},
    {"sizeTopX", "30"},
    {"sizeTopY", "10"},
    {"sizeTopZ", "30"},
    {"textureIndexTopX", "256"},
    {"textureIndexTopZ", "256"},
    {"textureIndexRoofX", "256"},
    {"textureIndexRoofZ", "256"},
}};

constexpr std::array<AttributeText, 15> multiSidedBuilding{{
    {"buildingSides", "12"},
    {"smoothing", "FALSE"},
    {"sizeX", "40"},
    {"sizeZ", "40"},
    {"sizeBottomY", "10"},
    {"textureIndexBottomX", "256"},
    {"sizeWindowY", "80"},
    {"textureIndexWindowX", "256"},
    {"textureIndexWindowY", "1024"},
    {"sizeTopY", "10"},
    {"textureIndexTopX", "256"},
    {"sizeRoofY", "0"},
    {"textureIndexRoofX", "256"},
    {"textureIndexRoofY", "256"},
    {"textureIndexRoofZ", "256"},
}};

struct Building {
    const char* key;
    const char* element;
    std::span<const AttributeText> attributes;
};

constexpr std::array<Building, 3> buildings{{
    {"rectangular", "RectangularBuilding", rectangularBuilding},
    {"pyramidal", "PyramidalBuilding", pyramidalBuilding},
    {"multisided", "MultiSidedBuilding", multiSidedBuilding},
}};

void append(pugi::xml_node element, const char* name, const std::string& value) {
    element.append_attribute(name).set_value(value.c_str());
}

void append(pugi::xml_node element, std::span<const AttributeText> attributes) {
    for (const AttributeText& attribute : attributes)
        element.append_attribute(attribute.name).set_value(attribute.value);
}

void appendChild(pugi::xml_node placement, const std::string& key) {
    for (const Building& building : buildings) {
        if (key != building.key)
            continue;
        pugi::xml_node child = placement.append_child("GenericBuilding");
        append(child, genericBuilding);
        append(child.append_child(building.element), building.attributes);
        return;
    }
    if (key.find(".fx") != std::string::npos) {
        pugi::xml_node effect = placement.append_child("Effect");
        append(effect, "effectName", key);
        append(effect, "effectParams", "");
        return;
    }
    pugi::xml_node object = placement.append_child("LibraryObject");
    append(object, "name", key);
    append(object, "scale", "1.0");
}

void fill(pugi::xml_node element, const NewPlacement& placement) {
    append(element, "lat", numberText(placement.latitude));
    append(element, "lon", numberText(placement.longitude));
    append(element, "alt", "0M");
    append(element, "pitch", "0.0");
    append(element, "bank", "0.0");
    append(element, "heading", numberText(placement.heading));
    append(element, "altitudeIsAgl", "TRUE");
    append(element, "imageComplexity", "NORMAL");
    appendChild(element, placement.key);
}

struct Anchor {
    pugi::xml_node node; ///< the new pair lands before it; null: at the end of the root
    std::size_t index;   ///< of the new placement
};

Anchor anchorFor(const SceneryDocument& document, std::optional<std::size_t> before) {
    const Anchor atEnd{{}, document.placementCount()};
    if (!before)
        return atEnd;
    const pugi::xml_node selected = document.placement(*before);
    // A root element that is a placement itself: nothing may stand beside it.
    if (selected == document.root())
        return atEnd;
    const pugi::xml_node previous = selected.previous_sibling();
    if (!previous)
        return {selected, *before};
    return {previous, *before - countPlacements(previous)};
}

} // namespace

std::size_t addPlacement(SceneryDocument& document, const NewPlacement& placement,
                         std::optional<std::size_t> before) {
    if (!document.hasRoot())
        throw RuntimeError(ErrorNumber::objectNotSet);
    const Anchor anchor = anchorFor(document, before);
    const std::string comment = "Object " + std::to_string(document.placementCount() + 1);
    document.insertPlacement(anchor.index, [&] {
        pugi::xml_node root = document.root();
        pugi::xml_node parent = anchor.node ? anchor.node.parent() : root;
        const auto insert = [&](pugi::xml_node_type type) {
            return anchor.node ? parent.insert_child_before(type, anchor.node) : parent.append_child(type);
        };
        insert(pugi::node_comment).set_value(comment.c_str());
        pugi::xml_node element = insert(pugi::node_element);
        element.set_name("SceneryObject");
        fill(element, placement);
        return element;
    });
    return anchor.index;
}

} // namespace quillset
