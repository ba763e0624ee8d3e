#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillset {

class PlacementRanges;
class SceneryDocument;

enum class FindingKind {
    unknownObject, ///< a library object that no library and no model of the document holds
    unknownEffect, ///< an effect that the simulator does not have
    coordinate,    ///< a position or a direction that is missing, no number, or out of range
    duplicate,     ///< the same thing as in an earlier row, at the same place
    missingModel,  ///< a model whose file is not there
};

/// Something in a scenery file that its author should look at.
struct SceneryFinding {
    FindingKind kind = FindingKind::coordinate;
    /// Row of the object list, from 1; 0 for a model.
    std::size_t row = 0;
    /// Line of the file on which the element begins, from 1; 0 where it is not known.
    std::size_t line = 0;
    /// What it is about: an attribute with its value, a GUID, an effect, a path.
    std::string what;
    std::string why;

    bool operator==(const SceneryFinding&) const = default;
};

/// What the check cannot tell from the document alone.
struct SceneryKnowledge {
    /// A GUID, in whatever spelling, is one that can be placed. The models of the document need not be among
    /// them.
    std::function<bool(std::string_view guid)> knowsObject;
    /// An effect of that name is there, with or without its ending. Empty: effects are not checked.
    std::function<bool(std::string_view effect)> knowsEffect;
    /// The file of a model is there; its path may be relative.
    std::function<bool(const std::string& sourceFile)> modelExists;
};

/// Looks at every placement and every model, in document order. `places` belong to the bytes of the file from
/// which the document was read. One walk over the document and a hash table of the places: the time grows
/// with the document, nothing faster.
[[nodiscard]] std::vector<SceneryFinding> checkScenery(const SceneryDocument& document,
                                                       const PlacementRanges& places,
                                                       const SceneryKnowledge& knowledge);

/// "unknown-object", "unknown-effect", "coordinate", "duplicate", "missing-model".
[[nodiscard]] std::string_view findingName(FindingKind kind);

} // namespace quillset
