#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <cstring>

namespace quillset {

/// The node that follows `node` and everything below it in document order, without leaving `top`.
[[nodiscard]] inline pugi::xml_node nodeAfter(pugi::xml_node node, const pugi::xml_node& top) {
    while (node && node != top) {
        if (const pugi::xml_node next = node.next_sibling())
            return next;
        node = node.parent();
    }
    return {};
}

/// The node that follows `node` in document order, its first child first, without leaving `top`.
[[nodiscard]] inline pugi::xml_node nodeNext(const pugi::xml_node& node, const pugi::xml_node& top) {
    const pugi::xml_node child = node.first_child();
    return child ? child : nodeAfter(node, top);
}

[[nodiscard]] inline bool isNamed(const pugi::xml_node& node, const char* name) {
    return std::strcmp(node.name(), name) == 0 && node.type() == pugi::node_element;
}

/// Runs `visit` for each element of that name in `top` or below, in document order. Without recursion: files
/// may nest deeply.
template <class Visit>
void forEachElement(const pugi::xml_node& top, const char* name, const Visit& visit) {
    for (pugi::xml_node node = top; node; node = nodeNext(node, top)) {
        if (isNamed(node, name))
            visit(node);
    }
}

/// Number of placements in `top` or below.
[[nodiscard]] inline std::size_t countPlacements(const pugi::xml_node& top) {
    std::size_t count = 0;
    forEachElement(top, "SceneryObject", [&](const pugi::xml_node&) { ++count; });
    return count;
}

} // namespace quillset
