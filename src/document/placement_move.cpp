#include "document/placement_move.h"

#include "document/scenery_document.h"
#include "document/tree_walk.h"

namespace quillset {

namespace {

pugi::xml_node commentBefore(const pugi::xml_node& element) {
    const pugi::xml_node before = element.previous_sibling();
    return before.type() == pugi::node_comment ? before : pugi::xml_node();
}

/// The child of `parent` that is `node` or holds it; null when neither.
pugi::xml_node branchOf(const pugi::xml_node& parent, pugi::xml_node node) {
    while (node && node.parent() != parent)
        node = node.parent();
    return node;
}

/// The sibling of `of` that is or holds placement `index`; null when there is no such placement or it stands
/// elsewhere.
pugi::xml_node neighbour(const SceneryDocument& document, const pugi::xml_node& of, std::size_t index) {
    if (index >= document.placementCount() || of == document.root())
        return {};
    return branchOf(of.parent(), document.placement(index));
}

/// Puts `placement` and its comment before `anchor`, or at the end of their parent without one. The nodes
/// themselves move, so the index keeps its handles.
void relocate(const pugi::xml_node& placement, const pugi::xml_node& anchor) {
    pugi::xml_node parent = placement.parent();
    const pugi::xml_node comment = commentBefore(placement);
    const auto move = [&](const pugi::xml_node& node) {
        if (anchor)
            parent.insert_move_before(node, anchor);
        else
            parent.append_move(node);
    };
    if (comment)
        move(comment);
    move(placement);
}

pugi::xml_node withComment(const pugi::xml_node& element) {
    const pugi::xml_node comment = commentBefore(element);
    return comment ? comment : element;
}

} // namespace

std::optional<std::size_t> movePlacementUp(SceneryDocument& document, std::size_t index) {
    const pugi::xml_node placement = document.placement(index);
    if (index == 0)
        return std::nullopt;
    const pugi::xml_node above = neighbour(document, placement, index - 1);
    if (!above)
        return std::nullopt;
    const std::size_t first = index - countPlacements(above);
    document.exchangePlacements(first, index, index + countPlacements(placement),
                                [&] { relocate(placement, withComment(above)); });
    return first;
}

std::optional<std::size_t> movePlacementDown(SceneryDocument& document, std::size_t index) {
    const pugi::xml_node placement = document.placement(index);
    const std::size_t end = index + countPlacements(placement);
    const pugi::xml_node below = neighbour(document, placement, end);
    if (!below)
        return std::nullopt;
    const std::size_t passed = countPlacements(below);
    const pugi::xml_node twoBelow = neighbour(document, placement, end + passed);
    document.exchangePlacements(index, end, end + passed, [&] {
        relocate(placement, twoBelow ? withComment(twoBelow) : pugi::xml_node());
    });
    return index + passed;
}

} // namespace quillset
