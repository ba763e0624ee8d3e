#include "catalogue/folder_listing.h"

#include "base/paths.h"
#include "base/xml_characters.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quillset {

namespace fs = std::filesystem;

namespace {

// A name goes into the document as it is; one broken name would make the whole document unreadable.
bool fitsXml(const std::string& name) {
    const char* const end = name.c_str() + name.size();
    for (const char* at = name.c_str(); at != end;) {
        const Utf8Character character = utf8At(at);
        if (character.length == 0 || !isXmlCharacter(character.code))
            return false;
        at += character.length;
    }
    return true;
}

std::optional<std::string> nameOf(const fs::path& path) {
    try {
        std::string name = toText(path.filename());
        return fitsXml(name) ? std::optional(std::move(name)) : std::nullopt;
    } catch (const std::system_error&) {
        return std::nullopt; // not convertible: half a UTF-16 pair
    }
}

} // namespace

std::vector<std::string> fileNamesEndingIn(const std::string& folder, std::string_view ending) {
    std::vector<std::pair<std::string, std::string>> found; // folded name, name
    std::error_code failed;
    for (fs::directory_iterator it(toPath(folder), failed), end; !failed && it != end; it.increment(failed)) {
        std::error_code unknown; // a link in a circle, or no right to look
        if (!it->is_regular_file(unknown))
            continue;
        if (std::optional<std::string> name = nameOf(it->path())) {
            std::string folded = lowerCase(*name);
            if (folded.ends_with(ending))
                found.emplace_back(std::move(folded), std::move(*name));
        }
    }
    std::sort(found.begin(), found.end());
    std::vector<std::string> names;
    names.reserve(found.size());
    for (auto& [folded, name] : found)
        names.push_back(std::move(name));
    return names;
}

std::optional<std::string> effectsFolder(const std::string& simulatorFolder) {
    if (simulatorFolder.empty())
        return std::nullopt; // else the working folder would be searched
    std::optional<std::string> found = findIgnoringCase(simulatorFolder, "effects");
    return found && folderExists(*found) ? found : std::nullopt;
}

} // namespace quillset
