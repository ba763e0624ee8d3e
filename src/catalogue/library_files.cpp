#include "catalogue/library_files.h"

#include "base/paths.h"
#include "base/trimmed.h"
#include "base/xml_file.h"

#include <string_view>

namespace quillset {

namespace {

bool isElement(const pugi::xml_node& node) {
    return node.type() == pugi::node_element;
}

// In document order without recursion: files may be nested deeply.
pugi::xml_node nextNode(pugi::xml_node node) {
    if (node.first_child())
        return node.first_child();
    while (node && !node.next_sibling())
        node = node.parent();
    return node.next_sibling();
}

// Calls `object(node)` for every element of that name.
template <class Object>
bool readObjects(const std::string& path, std::string_view element, Object object) {
    pugi::xml_document document;
    if (!readXmlFile(path, document).ok)
        return false;
    for (pugi::xml_node node = document.first_child(); node; node = nextNode(node))
        if (isElement(node) && node.name() == element)
            object(node);
    return true;
}

pugi::xml_node firstElementFrom(pugi::xml_node node) {
    while (node && !isElement(node))
        node = node.next_sibling();
    return node;
}

// The text of an element, in `buffer` when it is not in one piece.
std::string_view textOf(const pugi::xml_node& element, std::string& buffer) {
    const pugi::xml_node only = element.first_child();
    if (only.type() == pugi::node_pcdata && !only.next_sibling())
        return trimmed(only.value());
    buffer = nodeText(element);
    return trimmed(buffer);
}

} // namespace

bool readDefaultLibrary(const std::string& path, const LibrarySink& sink) {
    std::string nameBuffer;
    std::string guidBuffer;
    return readObjects(path, "LibraryObject", [&](const pugi::xml_node& object) {
        const pugi::xml_node name = firstElementFrom(object.first_child());
        const pugi::xml_node guid = firstElementFrom(name.next_sibling());
        sink(textOf(guid, guidBuffer), textOf(name, nameBuffer));
    });
}

bool readUserLibrary(const std::string& path, const LibrarySink& sink) {
    return readObjects(path, "ModelData", [&](const pugi::xml_node& model) {
        sink(model.attribute("name").value(), fileNameOf(model.attribute("sourceFile").value()));
    });
}

bool readRwy12Library(const std::string& path, const LibrarySink& sink) {
    return readObjects(path, "obj", [&](const pugi::xml_node& object) {
        // A name, not a path: a slash in it belongs to it on every system.
        std::string_view name = object.attribute("name").value();
        name.remove_prefix(name.rfind('\\') + 1);
        sink(object.attribute("guid").value(), name);
    });
}

} // namespace quillset
