#include "geodata/reference_system.h"

#include "base/atomic_file.h"
#include "base/number_text.h"
#include "base/paths.h"
#include "base/trimmed.h"
#include "geodata/shapefile_parts.h"

namespace quillset {

namespace {

// The number that follows a parameter's name, as in PARAMETER["False_Easting",155000.0]; `lower` is the text
// in lower case. Programs write blanks or underscores within the name.
std::optional<double> parameter(std::string_view lower, std::string_view name) {
    std::string spelled(name);
    for (const char between : {'_', ' '}) {
        for (char& c : spelled)
            c = c == '_' || c == ' ' ? between : c;
        const std::size_t at = lower.find('"' + spelled + '"');
        const std::size_t comma = at == std::string_view::npos ? at : lower.find(',', at);
        if (comma != std::string_view::npos)
            return leadingNumber(lower.substr(comma + 1));
    }
    return std::nullopt;
}

// The name of the outermost system: the first quoted text.
std::string nameIn(std::string_view text) {
    const std::size_t bracket = text.find('[');
    const std::size_t first = text.find('"');
    if (bracket == std::string_view::npos || first == std::string_view::npos || first < bracket)
        return {};
    return std::string(text.substr(first + 1, text.find('"', first + 1) - first - 1));
}

} // namespace

// The stereographic projection around Amersfoort with the origin moved so that no coordinate is negative: the
// older system without that move is another one.
ReferenceSystem referenceSystemIn(std::string_view text) {
    const std::string lower = lowerCase(text);
    const bool isRd =
        lower.find("stereographic") != std::string::npos && lower.find("amersfoort") != std::string::npos &&
        parameter(lower, "false_easting") == 155000 && parameter(lower, "false_northing") == 463000;
    return {isRd, nameIn(text)};
}

std::optional<ReferenceSystem> referenceSystemBeside(const std::string& shapefile) {
    const std::string path = besideShapefile(shapefile, ".prj");
    if (!fileExists(path))
        return std::nullopt;
    const std::string text = readWholeFile(path);
    return trimmed(text).empty() ? std::nullopt : std::optional(referenceSystemIn(text));
}

} // namespace quillset
