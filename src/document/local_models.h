#pragma once

#include <span>
#include <string>
#include <vector>

namespace quillset {

class SceneryDocument;

/// A model compiled into the same output as the placements: one ModelData element of the document.
struct LocalModel {
    std::string name;       ///< GUID text, the key of its placements
    std::string sourceFile; ///< path of the model file

    bool operator==(const LocalModel&) const = default;
};

/// The models of the document, in document order; none when no document is open.
[[nodiscard]] std::vector<LocalModel> localModels(const SceneryDocument& document);

/// A model of exactly that path (letter case included) is in the document.
[[nodiscard]] bool hasModelSource(const SceneryDocument& document, const std::string& sourceFile);

/// Appends for each model the comment "Object definition of " + path and the ModelData element to the root
/// element, as one change. Throws RuntimeError and changes nothing when there is no root element.
void addLocalModels(SceneryDocument& document, std::span<const LocalModel> models);

/// Removes every model of exactly that name and every library object placement that uses it, each with the
/// node before it, whatever kind of node that is (deliberate). Returns the names of the elements that went
/// because they stood before one of those; empty in a document with its comments.
std::vector<std::string> removeLocalModel(SceneryDocument& document, const std::string& name);

} // namespace quillset
