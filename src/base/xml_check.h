#pragma once

#include "base/xml_cursor.h"

#include <optional>
#include <string_view>

namespace quillset {

/// Elements may be nested this deep; beyond it a file is refused, since the document's own functions go down
/// the tree by recursion.
inline constexpr std::size_t deepestElement = 1000;

/// Why a text is no well-formed, namespace-correct XML 1.0 document that the editor can hold; nothing when it
/// is one. `text` is UTF-8 without byte order mark, and `text.data()[text.size()]` must be 0.
///
/// Stricter than the recommendations on purpose: references to entities that the document declares itself are
/// refused, since they could not be kept; and prefixes must be declared by attributes, not by a DOCTYPE.
[[nodiscard]] std::optional<XmlFault> findXmlFault(std::string_view text);

/// The same for the DOCTYPE declaration at the cursor, which stands behind "<!DOCTYPE".
[[nodiscard]] bool checkDoctype(XmlCursor& cursor);

} // namespace quillset
