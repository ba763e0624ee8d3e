#include "shell/configuration.h"

#include "base/paths.h"
#include "base/runtime_error.h"
#include "base/tag_lines.h"
#include "base/xml_file.h"
#include "shell/configuration_merge.h"

#include <array>
#include <cstdlib>

namespace quillset {

namespace {

struct DefaultLayout {
    const char* window;
    int align;
};
// In the order in which a fresh file lists them.
constexpr std::array<DefaultLayout, 3> defaultLayouts{
    {{"frmPreview", 4}, {"frmObjProp", 4}, {"frmObjTree", 3}}};

std::string trimmedFolder(std::string path) {
    const char* blanks = " \t\r\n";
    path.erase(0, std::min(path.find_first_not_of(blanks), path.size()));
    path.erase(path.find_last_not_of(blanks) + 1);
    while (path.size() > 1 && (path.back() == '/' || path.back() == '\\') && path[path.size() - 2] != ':')
        path.pop_back();
    return path;
}

void writeLayout(pugi::xml_node node, const WindowLayout& layout) {
    const auto set = [&](const char* name, int value) {
        pugi::xml_attribute attribute = node.attribute(name);
        if (!attribute)
            attribute = node.append_attribute(name);
        attribute.set_value(value);
    };
    set("align", layout.align);
    set("docked", layout.docked ? 1 : 0);
    set("visible", layout.visible ? 1 : 0);
}

const char* elementOf(LibraryKind kind) {
    return kind == LibraryKind::user ? "UserLibrary" : "Rwy12Library";
}

void collect(const pugi::xml_node& parent, const std::string& name, std::vector<pugi::xml_node>& found) {
    for (const pugi::xml_node& child : parent.children()) {
        if (name == child.name())
            found.push_back(child);
        collect(child, name, found);
    }
}

} // namespace

std::string defaultBglPath(const std::string& sceneryPath) {
    std::string path = foldedForStorage(sceneryPath);
    const std::string lower = lowerCase(path);
    // Folding keeps the length, so positions found in the folded text hold for the other one.
    for (std::size_t at = lower.find(".xml"); at != std::string::npos; at = lower.find(".xml", at + 4))
        path.replace(at, 4, ".bgl");
    return sameIgnoringCase(path, sceneryPath) ? path + ".bgl" : path;
}

void Configuration::createFresh(const std::string& fsPath) {
    document_.reset();
    document_.append_child("Configuration");
    append("FsPath", fsPath);
    append("MDLPath", {});
    append("XMLPath", {});
    for (const DefaultLayout& row : defaultLayouts)
        writeLayout(append(row.window, {}), {row.align, true, true});
    before_.reset(document_);
}

std::optional<std::string> Configuration::load(const std::string& path) {
    const XmlRead read = readXmlFile(path, document_);
    if (!read.ok)
        return read.problem;
    before_.reset(document_);
    return std::nullopt;
}

void Configuration::save(FileOperations& files, const std::string& path) {
    pugi::xml_document onDisk;
    if (readXmlFile(path, onDisk).ok)
        mergeConfiguration(root(), before_.document_element(), onDisk.document_element());
    writeFileAtomically(files, path, splitTagsOnLines(writeXml(document_)));
}

pugi::xml_node Configuration::setting(const char* name) const {
    const pugi::xml_node node = root().child(name);
    if (!node)
        throw RuntimeError(ErrorNumber::objectNotSet,
                           std::string("Object variable or With block variable not set: config.xml has no ") +
                               name);
    return node;
}

std::vector<pugi::xml_node> Configuration::all(const char* name) const {
    std::vector<pugi::xml_node> found;
    collect(document_, name, found);
    return found;
}

pugi::xml_node Configuration::append(const char* name, const std::string& text) {
    pugi::xml_node node = root().append_child(name);
    setNodeText(node, text);
    return node;
}

std::string Configuration::fsPath() const {
    return trimmedFolder(nodeText(setting("FsPath")));
}
void Configuration::setFsPath(const std::string& path) {
    setNodeText(setting("FsPath"), path);
}
std::string Configuration::mdlPath() const {
    return nodeText(setting("MDLPath"));
}
void Configuration::setMdlPath(const std::string& path) {
    setNodeText(setting("MDLPath"), path);
}
std::string Configuration::xmlPath() const {
    return nodeText(setting("XMLPath"));
}
void Configuration::setXmlPath(const std::string& path) {
    setNodeText(setting("XMLPath"), path);
}

WindowLayout Configuration::layout(const std::string& window) const {
    const pugi::xml_node node = setting(window.c_str());
    return {node.attribute("align").as_int(), node.attribute("docked").as_int() == 1,
            std::string(node.attribute("visible").value()) != "0"};
}

void Configuration::setLayout(const std::string& window, const WindowLayout& layout) {
    writeLayout(setting(window.c_str()), layout);
}

std::vector<std::string> Configuration::lastFiles() const {
    std::vector<std::string> paths;
    for (const pugi::xml_node& node : all("LastFile"))
        paths.push_back(nodeText(node));
    return paths;
}

void Configuration::setLastFiles(const std::vector<std::string>& paths) {
    std::vector<pugi::xml_node> nodes = all("LastFile");
    while (nodes.size() > paths.size()) {
        nodes.back().parent().remove_child(nodes.back());
        nodes.pop_back();
    }
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (i < nodes.size())
            setNodeText(nodes[i], paths[i]);
        else
            append("LastFile", paths[i]);
    }
}

std::vector<BglPath> Configuration::bglPaths() const {
    std::vector<BglPath> paths;
    for (const pugi::xml_node& node : all("BGLPath"))
        paths.push_back({node.first_attribute().value(), nodeText(node)});
    return paths;
}

void Configuration::ensureBglPath(const std::string& sceneryPath) {
    for (const BglPath& entry : bglPaths())
        if (sameIgnoringCase(entry.fileName, sceneryPath))
            return;
    append("BGLPath", defaultBglPath(sceneryPath))
        .append_attribute("fileName")
        .set_value(sceneryPath.c_str());
}

void Configuration::setBglOutput(std::size_t index, const std::string& output) {
    const std::vector<pugi::xml_node> nodes = all("BGLPath");
    if (index >= nodes.size())
        throw RuntimeError(ErrorNumber::objectNotSet);
    setNodeText(nodes[index], output);
}

std::vector<std::string> Configuration::libraries(LibraryKind kind) const {
    std::vector<std::string> paths;
    for (const pugi::xml_node& node : all(elementOf(kind)))
        paths.push_back(nodeText(node));
    return paths;
}

void Configuration::addLibrary(LibraryKind kind, const std::string& path) {
    append(elementOf(kind), path);
}

std::string Configuration::extra(const char* element, const char* attribute) const {
    return root().child(element).attribute(attribute).value();
}

void Configuration::setExtra(const char* element, const char* attribute, const std::string& value) {
    pugi::xml_node node = root().child(element);
    if (!node)
        node = root().append_child(element);
    pugi::xml_attribute held = node.attribute(attribute);
    if (!held)
        held = node.append_attribute(attribute);
    held.set_value(value.c_str());
}

} // namespace quillset
