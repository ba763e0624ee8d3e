#include "document/local_models.h"

#include "base/runtime_error.h"
#include "base/xml_file.h"
#include "document/placement.h"
#include "document/scenery_document.h"
#include "document/tree_walk.h"

namespace quillset {

namespace {

/// Removes the elements that `matches` accepts, each with the node before it. Where to go on is settled
/// before a removal: the removed node takes nested matches with it.
template <class Matches>
void removeWithNodeBefore(const pugi::xml_node& top, const Matches& matches,
                          std::vector<std::string>& elementsBefore) {
    for (pugi::xml_node node = top.first_child(); node;) {
        if (!matches(node)) {
            node = nodeNext(node, top);
            continue;
        }
        const pugi::xml_node next = nodeAfter(node, top);
        pugi::xml_node parent = node.parent();
        if (const pugi::xml_node before = node.previous_sibling()) {
            if (before.type() == pugi::node_element)
                elementsBefore.emplace_back(before.name());
            parent.remove_child(before);
        }
        parent.remove_child(node);
        node = next;
    }
}

bool usesModel(const pugi::xml_node& node, const std::string& name) {
    return isNamed(node, "SceneryObject") && placementKind(node) == PlacementKind::libraryObject &&
           placementKey(node) == name;
}

} // namespace

std::vector<LocalModel> localModels(const SceneryDocument& document) {
    std::vector<LocalModel> models;
    forEachElement(document.root(), "ModelData", [&](const pugi::xml_node& node) {
        models.push_back({node.attribute("name").value(), node.attribute("sourceFile").value()});
    });
    return models;
}

bool hasModelSource(const SceneryDocument& document, const std::string& sourceFile) {
    bool found = false;
    forEachElement(document.root(), "ModelData", [&](const pugi::xml_node& node) {
        found = found || node.attribute("sourceFile").value() == sourceFile;
    });
    return found;
}

void addLocalModels(SceneryDocument& document, std::span<const LocalModel> models) {
    if (!document.hasRoot())
        throw RuntimeError(ErrorNumber::objectNotSet);
    document.changeModels([&] {
        pugi::xml_node root = document.root();
        for (const LocalModel& model : models) {
            root.append_child(pugi::node_comment)
                .set_value(commentText("Object definition of " + model.sourceFile).c_str());
            pugi::xml_node element = root.append_child("ModelData");
            element.append_attribute("name").set_value(model.name.c_str());
            element.append_attribute("sourceFile").set_value(model.sourceFile.c_str());
        }
    });
}

std::vector<std::string> removeLocalModel(SceneryDocument& document, const std::string& name) {
    std::vector<std::string> elementsBefore;
    if (!document.isOpen())
        return elementsBefore;
    document.changeEverything([&] {
        const pugi::xml_node root = document.root();
        removeWithNodeBefore(
            root,
            [&](const pugi::xml_node& node) {
                return isNamed(node, "ModelData") && node.attribute("name").value() == name;
            },
            elementsBefore);
        removeWithNodeBefore(
            root, [&](const pugi::xml_node& node) { return usesModel(node, name); }, elementsBefore);
    });
    return elementsBefore;
}

} // namespace quillset
