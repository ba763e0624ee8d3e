#include "shell/configuration_merge.h"

#include "base/paths.h"
#include "base/xml_file.h"
#include "shell/recent_files.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace quillset {

namespace {

// Elements that may stand any number of times, each an entry of its own; all others are one setting each.
bool isListEntry(std::string_view name) {
    return name == "BGLPath" || name == "LastFile" || name == "UserLibrary" || name == "Rwy12Library";
}

bool same(const pugi::xml_node& a, const pugi::xml_node& b) {
    return writeXml(a) == writeXml(b);
}

bool holds(const pugi::xml_node& parent, const pugi::xml_node& element) {
    const auto children = parent.children();
    return std::any_of(children.begin(), children.end(),
                       [&](const pugi::xml_node& child) { return same(child, element); });
}

// The element of ours that says something about the same thing: the setting of that name, or the output of
// the same scenery file. Other entries say nothing about each other.
pugi::xml_node counterpart(const pugi::xml_node& ours, const pugi::xml_node& element) {
    if (!isListEntry(element.name()))
        return ours.child(element.name());
    if (std::string_view(element.name()) != "BGLPath")
        return {};
    const std::string file = element.first_attribute().value();
    return ours.find_child([&](const pugi::xml_node& child) {
        return std::string_view(child.name()) == "BGLPath" &&
               sameIgnoringCase(child.first_attribute().value(), file);
    });
}

void takeOver(pugi::xml_node ours, const pugi::xml_node& before, const pugi::xml_node& element) {
    if (element.type() != pugi::node_element || holds(before, element) || holds(ours, element))
        return;
    const pugi::xml_node own = counterpart(ours, element);
    const pugi::xml_node olderFile = ours.find_child([&](const pugi::xml_node& child) {
        return std::string_view(child.name()) == "LastFile" && holds(before, child);
    });
    if (std::string_view(element.name()) == "LastFile" && olderFile) {
        ours.insert_copy_before(element, olderFile);
    } else if (!own) {
        ours.append_copy(element);
    } else if (holds(before, own)) { // ours has not changed it
        ours.insert_copy_after(element, own);
        ours.remove_child(own);
    }
}

} // namespace

void mergeConfiguration(pugi::xml_node ours, const pugi::xml_node& before, const pugi::xml_node& theirs) {
    for (const pugi::xml_node& element : theirs.children())
        takeOver(ours, before, element);
    std::vector<pugi::xml_node> recent;
    for (const pugi::xml_node& element : ours.children("LastFile"))
        recent.push_back(element);
    while (recent.size() > RecentFiles::limit) {
        ours.remove_child(recent.back());
        recent.pop_back();
    }
}

} // namespace quillset
