#include "document/scenery_document.h"

#include "base/atomic_file.h"
#include "base/runtime_error.h"
#include "document/tree_walk.h"

#include <algorithm>

namespace quillset {

SceneryDocument::SceneryDocument() = default;
SceneryDocument::~SceneryDocument() = default;

void SceneryDocument::create(const std::string& path) {
    announced({DocumentChange::Kind::created}, [&] {
        tree_ = std::make_unique<pugi::xml_document>();
        placements_.clear();
        path_ = path;
        encoding_ = TextEncoding::utf8;
        pugi::xml_node root = tree_->append_child("FSData");
        root.append_attribute("version").set_value("9.0");
        root.append_attribute("xmlns:xsi").set_value("http://www.w3.org/2001/XMLSchema-instance");
        root.append_attribute("xsi:noNamespaceSchemaLocation").set_value("bglcomp.xsd");
    });
}

XmlRead SceneryDocument::load(const std::string& path) {
    XmlRead result;
    announced({DocumentChange::Kind::replaced}, [&] {
        result = replaceTree(path);
        path_ = path;
        encoding_ = result.encoding;
    });
    return result;
}

XmlRead SceneryDocument::restore(const std::string& snapshotPath) {
    XmlRead result;
    announced({DocumentChange::Kind::replaced}, [&] { result = replaceTree(snapshotPath); });
    return result;
}

void SceneryDocument::close() {
    announced({DocumentChange::Kind::closed}, [&] {
        tree_.reset();
        placements_.clear();
        path_.clear();
    });
}

void SceneryDocument::save(FileOperations& files, const std::string& path) {
    requireRoot();
    saveXmlLines(files, path, *tree_, encoding_);
    path_ = path;
}

std::string SceneryDocument::fileBytes() const {
    requireRoot();
    return writeXmlLines(*tree_, encoding_);
}

void SceneryDocument::requireRoot() const {
    if (!hasRoot())
        throw RuntimeError(ErrorNumber::objectNotSet,
                           "The document has no root element; nothing was written and the file on disk is as "
                           "it was");
}

std::string SceneryDocument::serialise() const {
    return isOpen() ? writeXml(*tree_, encoding_) : std::string();
}

void SceneryDocument::serialise(const PieceSink& sink) const {
    if (isOpen())
        writeXml(*tree_, encoding_, sink);
}

pugi::xml_node SceneryDocument::root() const {
    return isOpen() ? tree_->document_element() : pugi::xml_node();
}

pugi::xml_node SceneryDocument::placement(std::size_t index) const {
    if (index >= placements_.size())
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    return placements_[index];
}

void SceneryDocument::insertPlacement(std::size_t index, const std::function<pugi::xml_node()>& edit) {
    announced({DocumentChange::Kind::inserted, index, 1}, [&] {
        const pugi::xml_node made = edit();
        placements_.insert(placements_.begin() + static_cast<std::ptrdiff_t>(index), made);
    });
}

void SceneryDocument::removePlacements(std::size_t first, std::size_t count,
                                       const std::function<void()>& edit) {
    announced({DocumentChange::Kind::removed, first, count}, [&] {
        edit();
        const auto begin = placements_.begin() + static_cast<std::ptrdiff_t>(first);
        placements_.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
    });
}

void SceneryDocument::exchangePlacements(std::size_t first, std::size_t middle, std::size_t last,
                                         const std::function<void()>& edit) {
    announced({DocumentChange::Kind::changed, first, last - first}, [&] {
        edit();
        const auto at = [&](std::size_t index) {
            return placements_.begin() + static_cast<std::ptrdiff_t>(index);
        };
        std::rotate(at(first), at(middle), at(last));
    });
}

void SceneryDocument::changePlacement(std::size_t index, const std::function<void()>& edit) {
    announced({DocumentChange::Kind::changed, index, 1}, edit);
}

void SceneryDocument::changeModels(const std::function<void()>& edit) {
    announced({DocumentChange::Kind::models}, edit);
}

void SceneryDocument::changeEverything(const std::function<void()>& edit) {
    announced({DocumentChange::Kind::replaced}, [&] {
        edit();
        rebuildIndex();
    });
}

XmlRead SceneryDocument::replaceTree(const std::string& file) {
    placements_.clear();
    tree_ = std::make_unique<pugi::xml_document>();
    XmlRead result = readXmlFile(file, *tree_);
    rebuildIndex();
    return result;
}

void SceneryDocument::announced(const DocumentChange& change, const std::function<void()>& edit) {
    aboutToChange.notify(change);
    edit();
    changed.notify(change);
}

void SceneryDocument::rebuildIndex() {
    placements_.clear();
    forEachElement(*tree_, "SceneryObject", [&](pugi::xml_node found) { placements_.push_back(found); });
}

} // namespace quillset
