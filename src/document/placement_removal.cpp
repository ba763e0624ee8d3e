#include "document/placement_removal.h"

#include "document/scenery_document.h"
#include "document/tree_walk.h"

namespace quillset {

namespace {

/// What goes with a placement. Not the prolog: before the root element stands nothing that belongs to it.
pugi::xml_node nodeToTakeAlong(const pugi::xml_node& placement) {
    const pugi::xml_node before = placement.previous_sibling();
    const bool prolog = before.type() == pugi::node_declaration || before.type() == pugi::node_doctype;
    return prolog ? pugi::xml_node() : before;
}

std::string unusual(const pugi::xml_node& before) {
    switch (before.type()) {
    case pugi::node_element:
        return before.name();
    case pugi::node_pcdata:
    case pugi::node_cdata:
        return "text";
    case pugi::node_pi:
        return "processing instruction";
    default:
        return {};
    }
}

} // namespace

Removal removalOf(const SceneryDocument& document, std::size_t index) {
    const pugi::xml_node placement = document.placement(index);
    const pugi::xml_node before = nodeToTakeAlong(placement);
    const std::size_t inBefore = before ? countPlacements(before) : 0;
    return {index - inBefore, inBefore + countPlacements(placement), unusual(before)};
}

void removePlacement(SceneryDocument& document, std::size_t index) {
    const Removal removal = removalOf(document, index);
    document.removePlacements(removal.first, removal.count, [&] {
        const pugi::xml_node placement = document.placement(index);
        pugi::xml_node parent = placement.parent();
        if (const pugi::xml_node before = nodeToTakeAlong(placement))
            parent.remove_child(before);
        parent.remove_child(placement);
    });
}

} // namespace quillset
