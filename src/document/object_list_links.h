#pragma once

#include <string>

namespace quillset {

/// What the object list asks of the catalogue tree.
class PlacementCatalogue {
public:
    virtual ~PlacementCatalogue() = default;
    /// Display text of a key; "!unknown!" when the catalogue does not hold it.
    [[nodiscard]] virtual std::string getObjectName(const std::string& key) const = 0;
    /// Selects the entry with that key; nothing happens when there is none.
    virtual void setObjTreeItem(const std::string& key) = 0;
    /// Text of the selected entry; empty when nothing is selected.
    [[nodiscard]] virtual std::string selectedText() const = 0;
};

/// What the object list asks of the property sheet.
class PropertySheet {
public:
    virtual ~PropertySheet() = default;
    /// Closes an open editor without writing, empties the sheet and remembers whose properties follow: a
    /// placement index from 0, or -1 for none.
    virtual void clearPropList(int listIndex) = 0;
    virtual void addPropList(const std::string& name, const std::string& value) = 0;
    /// The index last passed to clearPropList().
    [[nodiscard]] virtual int getXMLListCount() const = 0;
    /// Writes what an open editor holds into the placement that the sheet shows. Does nothing when no editor
    /// is open and while a commit is already running (the write itself may come back here).
    virtual void commitOpenEditor() = 0;
};

} // namespace quillset
