#include "properties/document_target.h"

#include "document/object_list.h"

namespace quillset {

std::optional<std::string> DocumentTarget::setProperty(int listIndex, int row, const std::string& text) {
    if (!list_.setProperty(listIndex, row, text))
        return std::nullopt;
    const std::vector<PropertyEntry> table = propertyTable(document_, static_cast<std::size_t>(listIndex));
    return table.at(static_cast<std::size_t>(row)).value;
}

void DocumentTarget::switchRoofType() {
    list_.switchRoofType();
}

} // namespace quillset
