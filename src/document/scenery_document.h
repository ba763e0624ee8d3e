#pragma once

#include "base/growing_xml.h"
#include "base/notifier.h"
#include "base/xml_file.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quillset {

class FileOperations;

/// What an edit did to the placements. Positions count from 0 in document order.
struct DocumentChange {
    enum class Kind {
        created,  ///< a new document without placements took the place of the old one
        closed,   ///< no document is open any more
        replaced, ///< the placements are all new: another file, an undone edit, a removed model
        inserted, ///< placements first .. first + count - 1 are new
        removed,  ///< placements first .. first + count - 1 (old positions) are gone
        changed,  ///< placements first .. first + count - 1 hold something else
        models,   ///< only the models (ModelData) changed
    };
    Kind kind = Kind::replaced;
    std::size_t first = 0;
    std::size_t count = 0;

    bool operator==(const DocumentChange&) const = default;
};

/// The open scenery source file: the element tree, its path, and an index of its placements.
///
/// A placement is an element SceneryObject anywhere in the tree; placement(i) is the i-th in document order.
/// Everything else that the file holds is kept as it is. Node handles are good until the next edit only:
/// nobody keeps one.
class SceneryDocument {
public:
    SceneryDocument();
    ~SceneryDocument();
    SceneryDocument(const SceneryDocument&) = delete;
    SceneryDocument& operator=(const SceneryDocument&) = delete;

    /// Opens a new document that holds an empty root element FSData. Writes nothing to disk.
    void create(const std::string& path);
    /// Opens a file. When it cannot be read the result says why, and an empty document without a root element
    /// is open under that path all the same.
    XmlRead load(const std::string& path);
    /// Puts a snapshot in the place of the tree; path and encoding stay. An unreadable snapshot leaves an
    /// empty document without a root element.
    XmlRead restore(const std::string& snapshotPath);
    void close();

    [[nodiscard]] bool isOpen() const { return tree_ != nullptr; }
    /// Path as it was chosen; empty when no document is open.
    [[nodiscard]] const std::string& path() const { return path_; }

    /// The encoding in which the file is written, where that holds all its characters.
    [[nodiscard]] TextEncoding encoding() const { return encoding_; }

    /// Writes the file, every tag on its own line and in the encoding it was read in, so that the old or the
    /// new file is on disk whatever happens; then the document has that path. Throws RuntimeError, with
    /// nothing changed, when the file cannot be written and for a document without a root element: writing it
    /// would destroy the good file.
    void save(FileOperations& files, const std::string& path);
    /// The bytes that save() would write; throws RuntimeError for a document without a root element.
    [[nodiscard]] std::string fileBytes() const;
    /// The tree on one line, in the encoding of the file where that holds all characters; a snapshot is that.
    [[nodiscard]] std::string serialise() const;
    /// The same piece by piece.
    void serialise(const PieceSink& sink) const;
    /// The same, to be kept up to date while placements are added to the end. The root element must have a
    /// child; the document must not change otherwise meanwhile.
    [[nodiscard]] GrowingXml growingSerialisation() const { return {*tree_, encoding_}; }

    /// The root element; a null node when there is none.
    [[nodiscard]] pugi::xml_node root() const;
    [[nodiscard]] bool hasRoot() const { return !root().empty(); }
    [[nodiscard]] std::size_t placementCount() const { return placements_.size(); }
    /// Throws RuntimeError (subscriptOutOfRange) for an index that is not below placementCount(). O(1).
    [[nodiscard]] pugi::xml_node placement(std::size_t index) const;

    /// Told before and after every change, once each, with the same value.
    Notifier<const DocumentChange&> aboutToChange;
    Notifier<const DocumentChange&> changed;

    // For the edit verbs of this folder: each runs `edit` on the tree between the two notifications and
    // brings the index up to date.

    /// `edit` makes one placement that comes to stand at `index` and returns it.
    void insertPlacement(std::size_t index, const std::function<pugi::xml_node()>& edit);
    /// `edit` removes the placements first .. first + count - 1.
    void removePlacements(std::size_t first, std::size_t count, const std::function<void()>& edit);
    /// `edit` exchanges the neighbouring groups first .. middle - 1 and middle .. last - 1 without copying.
    void exchangePlacements(std::size_t first, std::size_t middle, std::size_t last,
                            const std::function<void()>& edit);
    /// `edit` changes what placement `index` holds (also its comment), but no placement as such.
    void changePlacement(std::size_t index, const std::function<void()>& edit);
    /// `edit` changes models only.
    void changeModels(const std::function<void()>& edit);
    /// `edit` may change everything; the index is built anew.
    void changeEverything(const std::function<void()>& edit);

private:
    void requireRoot() const;
    XmlRead replaceTree(const std::string& file);
    void announced(const DocumentChange& change, const std::function<void()>& edit);
    void rebuildIndex();

    std::unique_ptr<pugi::xml_document> tree_;
    std::vector<pugi::xml_node> placements_;
    std::string path_;
    TextEncoding encoding_ = TextEncoding::utf8;
};

} // namespace quillset
