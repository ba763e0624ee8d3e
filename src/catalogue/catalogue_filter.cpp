#include "catalogue/catalogue_filter.h"

#include "base/paths.h"

#include <algorithm>
#include <string>

namespace quillset {

namespace {

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    constexpr const char* blanks = " \t";
    for (std::size_t start = text.find_first_not_of(blanks); start != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(blanks, start), text.size());
        words.push_back(lowerCase(text.substr(start, end - start)));
        start = text.find_first_not_of(blanks, end);
    }
    return words;
}

bool holdsAll(std::string_view text, const std::vector<std::string>& words) {
    return std::all_of(words.begin(), words.end(),
                       [&](const std::string& word) { return text.find(word) != std::string_view::npos; });
}

} // namespace

void CatalogueFilter::apply(const CatalogueNodes& nodes, std::string_view searchText,
                            std::optional<NodeId> alwaysShown) {
    const std::vector<std::string> words = wordsOf(searchText);
    nodes_ = &nodes;
    active_ = !words.empty();
    firstMatch_.reset();
    children_.clear();
    shown_.assign(active_ ? nodes.size() : 0, false);
    rows_.assign(active_ ? nodes.size() : 0, 0);
    if (!active_)
        return;
    shown_[0] = true;
    for (NodeId id = 1; id < nodes.size(); ++id) {
        const CatalogueNode& node = nodes.at(id);
        if (!isPlaceable(node.kind))
            continue;
        const bool sameKey = words.size() == 1 && lowerCase(node.key) == words.front();
        if (!sameKey && !holdsAll(lowerCase(node.text), words))
            continue;
        show(id);
        if (!firstMatch_)
            firstMatch_ = id;
    }
    if (alwaysShown)
        show(*alwaysShown);
    // In the order of the ids, which is the order of the children: a late ancestor stands in its place.
    for (NodeId id = 1; id < nodes.size(); ++id) {
        if (!shown_[id])
            continue;
        std::vector<NodeId>& siblings = children_[nodes.at(id).parent];
        rows_[id] = static_cast<std::uint32_t>(siblings.size());
        siblings.push_back(id);
    }
}

void CatalogueFilter::show(NodeId id) {
    for (; !shown_[id]; id = nodes_->at(id).parent)
        shown_[id] = true;
}

bool CatalogueFilter::shows(NodeId id) const {
    return !active_ || shown_.at(id);
}

const std::vector<NodeId>& CatalogueFilter::children(NodeId id) const {
    if (!active_)
        return nodes_->at(id).children;
    static const std::vector<NodeId> none;
    const auto found = children_.find(id);
    return found == children_.end() ? none : found->second;
}

std::uint32_t CatalogueFilter::row(NodeId id) const {
    return active_ ? rows_.at(id) : nodes_->at(id).row;
}

} // namespace quillset
