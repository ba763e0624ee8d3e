#include "catalogue/catalogue_nodes.h"

#include "base/runtime_error.h"

#include <algorithm>
#include <array>

namespace quillset {

namespace {

constexpr std::array<std::string_view, 9> fixedKeys{
    "root", "generic", "effects", "user", "local", "genbuild", "rectangular", "pyramidal", "multisided"};

constexpr bool isFixed(NodeKind kind) {
    return (!isPlaceable(kind) && kind != NodeKind::library) || kind == NodeKind::building;
}

} // namespace

CatalogueNodes::CatalogueNodes()
    : texts_(std::make_unique<std::pmr::monotonic_buffer_resource>()) {
    nodes_.push_back({"root", "Objects", NodeKind::root, 0, 0, {}});
    byKey_.insert("root", 0);
}

bool CatalogueNodes::mayAdd(NodeKind kind, std::string_view key) const {
    // A model that calls itself "rectangular" must not take the key of a building that is added after it.
    const bool reserved =
        !isFixed(kind) && std::find(fixedKeys.begin(), fixedKeys.end(), key) != fixedKeys.end();
    return !reserved && !find(key);
}

NodeId CatalogueNodes::add(NodeId parent, NodeKind kind, std::string_view key, std::string_view text) {
    if (!mayAdd(kind, key))
        throw RuntimeError(ErrorNumber::keyNotUnique, "Key is not unique in collection: " + std::string(key));
    const auto id = static_cast<NodeId>(nodes_.size());
    std::vector<NodeId>& siblings = nodes_.at(parent).children;
    const auto row = static_cast<std::uint32_t>(siblings.size());
    siblings.push_back(id);
    const std::string_view ownKey = stored(key);
    nodes_.push_back({ownKey, stored(text), kind, parent, row, {}});
    byKey_.insert(ownKey, id);
    return id;
}

std::string_view CatalogueNodes::stored(std::string_view text) {
    if (text.empty())
        return {};
    auto* const copy = static_cast<char*>(texts_->allocate(text.size(), 1));
    std::copy(text.begin(), text.end(), copy);
    return {copy, text.size()};
}

std::optional<NodeId> CatalogueNodes::find(std::string_view key) const {
    const NodeId found = byKey_.find(key, [&](NodeId id) { return nodes_[id].key == key; });
    return found == KeyIndex::none ? std::nullopt : std::optional(found);
}

} // namespace quillset
