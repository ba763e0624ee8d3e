#include "base/tag_lines.h"

namespace quillset {

namespace {

// The pieces to look for and to insert, in the code units of the bytes.
struct Units {
    std::string_view between; // "><"
    std::string_view lineBreak;
    std::size_t width;
};

using namespace std::string_view_literals;
constexpr Units narrow = {"><"sv, "\r\n"sv, 1};
constexpr Units littleEndian = {">\0<\0"sv, "\r\0\n\0"sv, 2};
constexpr Units bigEndian = {"\0>\0<"sv, "\0\r\0\n"sv, 2};

const Units& unitsOf(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("<\0"sv))
        return littleEndian;
    if (bytes.starts_with("\xFE\xFF"sv) || bytes.starts_with("\0<"sv))
        return bigEndian;
    return narrow;
}

// The next "><" at a whole code unit.
std::size_t nextBetween(std::string_view bytes, const Units& units, std::size_t from) {
    std::size_t found = bytes.find(units.between, from);
    while (found != std::string_view::npos && found % units.width != 0)
        found = bytes.find(units.between, found + 1);
    return found;
}

} // namespace

std::string splitTagsOnLines(std::string_view bytes) {
    const Units& units = unitsOf(bytes);
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 16 + 4);
    std::size_t begin = 0;
    for (std::size_t found = nextBetween(bytes, units, 0); found != std::string_view::npos;
         found = nextBetween(bytes, units, begin)) {
        const std::size_t end = found + units.width;
        out.append(bytes.substr(begin, end - begin)).append(units.lineBreak);
        begin = end;
    }
    out.append(bytes.substr(begin));
    if (!out.empty() && !out.ends_with(units.lineBreak))
        out.append(units.lineBreak);
    return out;
}

} // namespace quillset
