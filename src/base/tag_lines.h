#pragma once

#include <string>
#include <string_view>

namespace quillset {

/// The bytes of an XML file with every tag on a line of its own: each "><" becomes ">", CR LF, "<", and the
/// last line ends in CR LF. Purely textual, also within comments and CDATA sections. UTF-16 is told by its
/// mark or by the zero byte beside the first "<". Doing it twice changes nothing.
[[nodiscard]] std::string splitTagsOnLines(std::string_view bytes);

} // namespace quillset
