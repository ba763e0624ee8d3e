#pragma once

#include "catalogue/key_index.h"

#include <cstdint>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string_view>
#include <vector>

namespace quillset {

/// What a node of the catalogue stands for.
enum class NodeKind {
    root,
    defaultGroup,
    effectsGroup,
    userGroup,
    library,
    localGroup,
    buildingGroup,
    defaultObject,
    effect,
    userObject,
    localModel,
    building,
};

/// A node of that kind can be placed in the scenery document.
[[nodiscard]] constexpr bool isPlaceable(NodeKind kind) {
    return kind >= NodeKind::defaultObject;
}

/// Number of a node within one set of nodes, counted in the order of adding; the root is 0.
using NodeId = std::uint32_t;

/// A node; key and text belong to the set of nodes.
struct CatalogueNode {
    std::string_view key;
    std::string_view text;
    NodeKind kind = NodeKind::root;
    /// The root is its own parent.
    NodeId parent = 0;
    /// Place among the children of the parent, from 0.
    std::uint32_t row = 0;
    std::vector<NodeId> children;
};

/// A tree of nodes with keys that are unique over the whole tree (exact, case-sensitive). Children keep the
/// order in which they were added; nodes are never removed one by one.
class CatalogueNodes {
public:
    /// Starts with the root alone.
    CatalogueNodes();

    /// The key is free. The keys of the fixed groups and buildings are never free for anything else, also
    /// before those nodes are there.
    [[nodiscard]] bool mayAdd(NodeKind kind, std::string_view key) const;
    /// Adds the last child of a parent. Throws RuntimeError (keyNotUnique) unless `mayAdd`.
    NodeId add(NodeId parent, NodeKind kind, std::string_view key, std::string_view text);

    [[nodiscard]] std::optional<NodeId> find(std::string_view key) const;
    [[nodiscard]] const CatalogueNode& at(NodeId id) const { return nodes_.at(id); }
    /// Nodes with the root; ids run from 0 to size - 1.
    [[nodiscard]] std::size_t size() const { return nodes_.size(); }

private:
    [[nodiscard]] std::string_view stored(std::string_view text);

    /// All keys and texts, in one piece after the other. Behind a pointer, so that nodes can be moved.
    std::unique_ptr<std::pmr::monotonic_buffer_resource> texts_;
    std::vector<CatalogueNode> nodes_;
    KeyIndex byKey_;
};

} // namespace quillset
