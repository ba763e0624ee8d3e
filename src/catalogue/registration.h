#pragma once

#include "catalogue/catalogue_scan.h"

#include <span>
#include <string>
#include <vector>

namespace quillset {

enum class LibraryKind { user, rwy12 };

/// What the registration commands need of the settings; the shell implements it.
class CatalogueConfiguration {
public:
    virtual ~CatalogueConfiguration() = default;
    /// The last scenery file: a full path, or empty.
    [[nodiscard]] virtual std::string xmlPath() const = 0;
    /// The last model file: a full path, a folder, or empty.
    [[nodiscard]] virtual std::string modelPath() const = 0;
    virtual void setModelPath(const std::string& path) = 0;
    /// Appends to the list of that kind; duplicates are kept.
    virtual void appendLibrary(LibraryKind kind, const std::string& path) = 0;
    /// All sources of the catalogue as they are now, with the models of the open document.
    [[nodiscard]] virtual CatalogueSources sources() const = 0;
};

/// An edit of the document that needs an undo snapshot first.
enum class ModelEdit { add, remove };

/// The models declared in the open document; the shell implements it. All operations throw RuntimeError
/// (objectNotSet) while no document is open.
class ModelStore {
public:
    virtual ~ModelStore() = default;
    virtual void recordSnapshot(ModelEdit edit) = 0;
    /// In document order.
    [[nodiscard]] virtual std::vector<CatalogueModel> models() const = 0;
    /// Appends the declarations (comment and element each) to the document, without snapshots of their own.
    virtual void add(std::span<const CatalogueModel> models) = 0;
    /// Removes every declaration of that name and every placement that uses it, each with the node before
    /// it. Returns descriptions of what went with them though it did not belong to them.
    virtual std::vector<std::string> remove(const std::string& name) = 0;
};

} // namespace quillset
