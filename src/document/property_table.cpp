#include "document/property_table.h"

#include "base/runtime_error.h"
#include "base/xml_file.h"
#include "document/placement.h"
#include "document/scenery_document.h"

namespace quillset {

namespace {

void appendEntry(std::vector<PropertyEntry>& table, PropertyEntry entry) {
    if (table.size() >= maximumProperties)
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    table.push_back(std::move(entry));
}

void appendAttributes(std::vector<PropertyEntry>& table, const pugi::xml_node& element, PropertyLevel level) {
    std::size_t position = 0;
    for (const pugi::xml_attribute& attribute : element.attributes())
        appendEntry(table, {attribute.name(), attribute.value(), level, position++});
}

pugi::xml_node elementOf(const pugi::xml_node& placement, PropertyLevel level) {
    switch (level) {
    case PropertyLevel::comment:
        return {};
    case PropertyLevel::placement:
        return placement;
    case PropertyLevel::child:
        return placementChild(placement);
    case PropertyLevel::building:
        return buildingElement(placement);
    }
    return {};
}

pugi::xml_attribute attributeOf(const pugi::xml_node& placement, const PropertyEntry& property) {
    const auto attributes = elementOf(placement, property.level).attributes();
    auto found = attributes.begin();
    for (std::size_t i = 0; i < property.position && found != attributes.end(); ++i)
        ++found;
    if (found == attributes.end())
        throw RuntimeError(ErrorNumber::objectNotSet);
    return *found;
}

void writeComment(pugi::xml_node placement, const std::string& text) {
    pugi::xml_node before = placement.previous_sibling();
    switch (before.type()) {
    case pugi::node_comment:
        setNodeText(before, commentText(text));
        return;
    case pugi::node_pcdata:
    case pugi::node_cdata:
        // A text without characters would be gone at the next load.
        if (text.empty())
            placement.parent().remove_child(before);
        else
            setNodeText(before, text);
        return;
    default:
        if (!text.empty())
            setNodeText(placement.parent().insert_child_before(pugi::node_comment, placement),
                        commentText(text));
    }
}

} // namespace

std::vector<PropertyEntry> propertyTable(const SceneryDocument& document, std::size_t placement) {
    const pugi::xml_node element = document.placement(placement);
    std::vector<PropertyEntry> table;
    table.reserve(32);
    appendEntry(table, {"comment", placementComment(element), PropertyLevel::comment, 0});
    for (const PropertyLevel level :
         {PropertyLevel::placement, PropertyLevel::child, PropertyLevel::building})
        appendAttributes(table, elementOf(element, level), level);
    return table;
}

void writeProperty(SceneryDocument& document, std::size_t placement, const PropertyEntry& property,
                   const std::string& text) {
    const pugi::xml_node element = document.placement(placement);
    if (property.level == PropertyLevel::comment) {
        document.changePlacement(placement, [&] { writeComment(element, text); });
        return;
    }
    pugi::xml_attribute attribute = attributeOf(element, property);
    document.changePlacement(placement, [&] { attribute.set_value(text.c_str()); });
}

void updatePlacementKey(SceneryDocument& document, std::size_t placement, const std::string& key) {
    const pugi::xml_node element = document.placement(placement);
    const PlacementKind kind = placementKind(element);
    if (kind != PlacementKind::libraryObject && kind != PlacementKind::effect)
        return;
    const char* name = kind == PlacementKind::effect ? "effectName" : "name";
    document.changePlacement(placement, [&] {
        pugi::xml_node child = placementChild(element);
        pugi::xml_attribute attribute = child.attribute(name);
        if (!attribute)
            attribute = child.append_attribute(name);
        attribute.set_value(key.c_str());
    });
}

} // namespace quillset
