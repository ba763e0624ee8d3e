#pragma once

#include "base/atomic_file.h"
#include "catalogue/registration.h"

#include <pugixml.hpp>

#include <optional>
#include <string>
#include <vector>

namespace quillset {

/// Where a tool window stands: `align` 1 top, 2 bottom, 3 left, 4 right (0: not aligned).
struct WindowLayout {
    int align = 0;
    bool docked = true;
    bool visible = true;

    bool operator==(const WindowLayout&) const = default;
};

/// One remembered compile output: `fileName` is the scenery file, `output` the BGL file.
struct BglPath {
    std::string fileName;
    std::string output;

    bool operator==(const BglPath&) const = default;
};

/// The settings: config.xml held in memory for the whole run and written back at shut-down. Elements that are
/// not known here survive. Reading a setting whose element was removed by hand throws RuntimeError (91): it
/// is not made again, so that a damaged file is noticed.
class Configuration {
public:
    /// A fresh configuration with the default layout.
    void createFresh(const std::string& fsPath);
    /// Reads the file; nothing on success, else what is wrong with it.
    [[nodiscard]] std::optional<std::string> load(const std::string& path);
    /// Writes the file atomically, every tag on a line of its own. What somebody else has changed in the file
    /// since it was read is kept (see mergeConfiguration).
    void save(FileOperations& files, const std::string& path);

    /// The simulator's folder, without blanks around it and without a separator at the end.
    [[nodiscard]] std::string fsPath() const;
    void setFsPath(const std::string& path);
    [[nodiscard]] std::string mdlPath() const;
    void setMdlPath(const std::string& path);
    /// The current (last) scenery file; empty before the first.
    [[nodiscard]] std::string xmlPath() const;
    void setXmlPath(const std::string& path);

    /// Layout of `frmPreview`, `frmObjProp` or `frmObjTree`.
    [[nodiscard]] WindowLayout layout(const std::string& window) const;
    void setLayout(const std::string& window, const WindowLayout& layout);

    [[nodiscard]] std::vector<std::string> lastFiles() const;
    /// Adds or removes `LastFile` elements so that they hold exactly these paths in this order.
    void setLastFiles(const std::vector<std::string>& paths);

    [[nodiscard]] std::vector<BglPath> bglPaths() const;
    /// Appends the default output for a scenery file that has no entry yet (compared without regard to case).
    void ensureBglPath(const std::string& sceneryPath);
    /// Sets the output of the entry at `index`; RuntimeError (91) when there is none.
    void setBglOutput(std::size_t index, const std::string& output);

    [[nodiscard]] std::vector<std::string> libraries(LibraryKind kind) const;
    void addLibrary(LibraryKind kind, const std::string& path);

    /// Free settings of the windows beyond the ones above, by element and attribute; empty when never set.
    [[nodiscard]] std::string extra(const char* element, const char* attribute) const;
    void setExtra(const char* element, const char* attribute, const std::string& value);

private:
    [[nodiscard]] pugi::xml_node root() const { return document_.document_element(); }
    [[nodiscard]] pugi::xml_node setting(const char* name) const;
    [[nodiscard]] std::vector<pugi::xml_node> all(const char* name) const;
    pugi::xml_node append(const char* name, const std::string& text);

    pugi::xml_document document_;
    pugi::xml_document before_; ///< as it was read or made
};

/// The compiled file offered for a scenery file: the path with every ".xml" replaced by ".bgl" (lower case
/// where paths are stored so); never the source itself.
[[nodiscard]] std::string defaultBglPath(const std::string& sceneryPath);

} // namespace quillset
