#pragma once

#include "catalogue/catalogue_nodes.h"

#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillset {

/// Which nodes of a tree are shown while the user searches: the placeable ones whose texts hold every word of
/// the search text without regard to letter case, those whose key is the search text, one node that is shown
/// in any case, and the groups above all of these. An empty search text shows everything. Refers to the nodes
/// it was made for, until the next `apply`.
class CatalogueFilter {
public:
    /// Costs one pass over the nodes; nothing for a search text of blanks.
    void apply(const CatalogueNodes& nodes, std::string_view searchText, std::optional<NodeId> alwaysShown);

    [[nodiscard]] bool active() const { return active_; }
    [[nodiscard]] bool shows(NodeId id) const;
    /// The shown children of a shown node, in their order.
    [[nodiscard]] const std::vector<NodeId>& children(NodeId id) const;
    /// Place of a shown node among the shown children of its parent.
    [[nodiscard]] std::uint32_t row(NodeId id) const;
    /// The first placeable node that matches; none when not active.
    [[nodiscard]] std::optional<NodeId> firstMatch() const { return firstMatch_; }

private:
    void show(NodeId id);

    const CatalogueNodes* nodes_ = nullptr;
    bool active_ = false;
    std::optional<NodeId> firstMatch_;
    std::vector<bool> shown_;
    std::vector<std::uint32_t> rows_;
    std::unordered_map<NodeId, std::vector<NodeId>> children_;
};

} // namespace quillset
