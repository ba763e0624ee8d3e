#pragma once

#include "document/new_placement.h"

#include <cstdint>
#include <span>
#include <string>

namespace quillset {

class SceneryDocument;
class UndoJournal;

/// What the undo steps of an import take on the disk: each holds the whole document as it is then.
struct ImportCost {
    std::uint64_t bytes = 0; ///< of all undo steps
    std::uint64_t free = 0;  ///< on the disk that they go to
    /// How many undo steps the journal has room for; the import ends there.
    std::size_t room = 0;
};

/// The cost of adding these placements to the end of the document.
[[nodiscard]] ImportCost importCost(const SceneryDocument& document, const UndoJournal& journal,
                                    std::span<const NewPlacement> placements);

/// A question to the user for an import that takes more than 1 GB, more than is free, or more undo steps than
/// there is room for; empty for any other one.
[[nodiscard]] std::string costQuestion(const ImportCost& cost, std::size_t placements);

} // namespace quillset
