#pragma once

#include "properties/property_editor.h"

namespace quillset {

class ObjectList;

/// The edits of the sheet, carried out by the object list.
class DocumentTarget : public PropertyTarget {
public:
    DocumentTarget(const SceneryDocument& document, ObjectList& list)
        : document_(document)
        , list_(list) {}

    std::optional<std::string> setProperty(int listIndex, int row, const std::string& text) override;
    void switchRoofType() override;

private:
    const SceneryDocument& document_;
    ObjectList& list_;
};

} // namespace quillset
