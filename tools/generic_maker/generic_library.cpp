#include "generic_maker/generic_library.h"

#include "base/paths.h"
#include "base/xml_file.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <tuple>
#include <utility>
#include <vector>

namespace quillset {

namespace {

struct Object {
    std::string foldedName;
    std::string name;
    std::string guid;
};

std::string_view takeUntil(std::string_view& text, char separator) {
    const std::size_t end = text.find(separator);
    const std::string_view taken = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    return taken;
}

// Empty for anything but 32 hexadecimal digits.
std::string upperGuid(std::string_view text) {
    if (text.size() != 32 || text.find_first_not_of("0123456789abcdefABCDEF") != std::string_view::npos)
        return {};
    std::string upper(text);
    for (char& digit : upper)
        if (digit >= 'a')
            digit = static_cast<char>(digit - 'a' + 'A');
    return upper;
}

[[noreturn]] void fail(std::size_t line, const char* problem) {
    throw std::runtime_error("line " + std::to_string(line) + ": " + problem);
}

std::vector<Object> readList(std::string_view list) {
    std::vector<Object> objects;
    std::set<std::string> guids;
    takeUntil(list, '\n'); // the header
    for (std::size_t line = 2; !list.empty(); ++line) {
        std::string_view row = takeUntil(list, '\n');
        if (row.ends_with('\r'))
            row.remove_suffix(1);
        const std::string name(takeUntil(row, '\t'));
        const std::string guid = upperGuid(takeUntil(row, '\t'));
        if (name.empty())
            fail(line, "no name");
        if (guid.empty())
            fail(line, "no GUID of 32 hexadecimal digits");
        if (!guids.insert(guid).second)
            fail(line, "the GUID came before");
        objects.push_back({lowerCase(name), name, guid});
    }
    return objects;
}

// The text as XML holds it; refused when it does not come back the same.
std::string escaped(const std::string& text) {
    pugi::xml_document document;
    setNodeText(document.append_child("t"), text);
    std::string element = writeXml(document);
    if (!readXml(element, document).ok || nodeText(document.first_child()) != text)
        throw std::runtime_error("\"" + text + "\" cannot be written as XML");
    return element.substr(3, element.size() - 7);
}

} // namespace

std::string genericLibrary(std::string_view list) {
    std::vector<Object> objects = readList(list);
    std::sort(objects.begin(), objects.end(), [](const Object& a, const Object& b) {
        return std::tie(a.foldedName, a.name, a.guid) < std::tie(b.foldedName, b.name, b.guid);
    });
    std::string file = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ObjectLibrary>\n";
    for (const Object& object : objects)
        file += "<LibraryObject><name>" + escaped(object.name) + "</name><guid>" + object.guid +
                "</guid></LibraryObject>\n";
    return file + "</ObjectLibrary>\n";
}

} // namespace quillset
