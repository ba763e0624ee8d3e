#pragma once

#include "base/atomic_file.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillset {

class GrowingXml;
class SceneryDocument;

/// The kind of edit that a snapshot precedes.
enum class UndoKind { addObject, removeObject, changeParameter, addModel, removeModel };

/// The module UndoFunctions: a stack of whole-document snapshots in files "undo0000.xml", "undo0001.xml", ...
/// of a folder that belongs to this running program alone. Moves record nothing, deliberately.
class UndoJournal {
public:
    /// Positions 0 .. 32000 can be recorded.
    static constexpr std::size_t maximumCount = 32001;

    /// `folder` must exist when the first snapshot is recorded.
    UndoJournal(SceneryDocument& document, std::string folder);

    /// Writes the open document into the next snapshot file. Call it before the edit: when it throws
    /// (RuntimeError: stack full, disk full, ...) nothing was recorded and the edit must not happen.
    void record(UndoKind kind);
    /// The same with the document's serialisation at hand, which must be up to date.
    void record(UndoKind kind, const GrowingXml& serialised);

    /// Puts the last snapshot in the place of the open document and returns the caption it had. A missing or
    /// damaged snapshot leaves an empty document; the count goes down all the same. Nothing when the journal
    /// is empty.
    std::optional<std::string> undo();

    /// "Undo" when there is nothing to undo, else what would be undone ("Undo add object").
    [[nodiscard]] std::string caption() const;
    [[nodiscard]] std::size_t count() const { return kinds_.size(); }
    /// How many more snapshots can be recorded.
    [[nodiscard]] std::size_t room() const { return maximumCount - count(); }
    [[nodiscard]] const std::string& folder() const { return folder_; }
    [[nodiscard]] bool canUndo() const { return !kinds_.empty(); }

    /// Forgets the stack; the files stay until they are overwritten or deleted.
    void reset();
    /// Deletes every snapshot file written since start-up. Goes on after a failure and throws the first one
    /// (RuntimeError) at the end; a file that is missing already is no failure.
    void deleteSnapshots();

private:
    void requireRoom() const;
    void write(UndoKind kind, const FileContent& content);
    [[nodiscard]] std::string snapshotPath(std::size_t position) const;

    SceneryDocument& document_;
    std::string folder_;
    std::vector<UndoKind> kinds_;
    std::size_t highestCount_ = 0;
};

} // namespace quillset
