#include "geodata/conversion_texts.h"

#include "base/number_text.h"
#include "geodata/rd_coordinates.h"

#include <cmath>

namespace quillset {

namespace {

void replaceAll(std::string& text, std::string_view what, std::string_view by) {
    for (std::size_t at = text.find(what); at != std::string::npos && !what.empty();
         at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
}

std::optional<std::string> shown(double degrees, std::string_view separator) {
    if (!std::isfinite(degrees))
        return std::nullopt;
    std::string text = numberText(degrees);
    replaceAll(text, ".", separator);
    return text;
}

} // namespace

ConversionTexts conversionTexts(std::string_view x, std::string_view y, std::string_view separator) {
    const double rdX = leadingNumber(x);
    const double rdY = leadingNumber(y);
    return {shown(rdToWgs84Lat(rdX, rdY), separator), shown(rdToWgs84Lon(rdX, rdY), separator)};
}

std::string textForDocument(std::string text, std::string_view separator) {
    replaceAll(text, separator, ".");
    replaceAll(text, ",", ".");
    return text;
}

} // namespace quillset
