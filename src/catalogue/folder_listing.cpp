#include "catalogue/folder_listing.h"

#include "base/paths.h"
#include "base/xml_characters.h"

#include <algorithm>
#include <compare>
#include <filesystem>
#include <system_error>
#include <tuple>
#include <utility>

namespace quillset {

namespace fs = std::filesystem;

namespace {

struct Name {
    std::string folded;
    std::string text;

    bool operator<(const Name& other) const {
        return std::tie(folded, text) < std::tie(other.folded, other.text);
    }
};

// The name as it can be shown; one of half a UTF-16 pair cannot be converted.
std::string shownName(const fs::path& name) {
    std::string shown;
    for (const auto unit : name.native()) {
        if (unit >= ' ' && unit < 0x7F)
            shown += static_cast<char>(unit);
        else
            shown += "\uFFFD";
    }
    return shown;
}

std::vector<std::string> sorted(std::vector<Name> names) {
    std::sort(names.begin(), names.end());
    std::vector<std::string> texts;
    texts.reserve(names.size());
    for (Name& name : names)
        texts.push_back(std::move(name.text));
    return texts;
}

class NameCollector {
public:
    explicit NameCollector(std::string_view ending)
        : ending_(ending) {}

    void add(const fs::path& name) {
        try {
            std::string text = toText(name);
            std::string stored = storableText(text);
            // A name goes into the document as it is; one broken name would change or spoil it.
            const bool usable = stored == text;
            addTo(usable ? usable_ : unusable_, std::move(stored));
        } catch (const std::system_error&) {
            addTo(unusable_, shownName(name));
        }
    }
    FileNames names() && { return {sorted(std::move(usable_)), sorted(std::move(unusable_))}; }

private:
    void addTo(std::vector<Name>& names, std::string text) const {
        std::string folded = lowerCase(text);
        if (folded.ends_with(ending_))
            names.push_back({std::move(folded), std::move(text)});
    }

    std::string_view ending_;
    std::vector<Name> usable_;
    std::vector<Name> unusable_;
};

} // namespace

FileNames filesEndingIn(const std::string& folder, std::string_view ending) {
    NameCollector collector(ending);
    std::error_code failed;
    for (fs::directory_iterator it(toPath(folder), failed), end; !failed && it != end; it.increment(failed)) {
        std::error_code unknown; // a link in a circle, or no right to look
        if (it->is_regular_file(unknown))
            collector.add(it->path().filename());
    }
    return std::move(collector).names();
}

std::optional<std::string> effectsFolder(const std::string& simulatorFolder) {
    if (simulatorFolder.empty())
        return std::nullopt; // else the working folder would be searched
    std::optional<std::string> found = findIgnoringCase(simulatorFolder, "effects");
    return found && folderExists(*found) ? found : std::nullopt;
}

} // namespace quillset
