#include "preview/picture_files.h"

#include "base/paths.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace quillset {

namespace {

namespace fs = std::filesystem;

std::unordered_map<std::string, std::string> pathsIn(const std::string& folder) {
    std::unordered_map<std::string, std::string> paths;
    std::error_code failed;
    for (fs::directory_iterator it(toPath(folder), failed), end; !failed && it != end; it.increment(failed)) {
        try {
            const std::string name = toText(it->path().filename());
            std::string folded = lowerCase(name);
            // Of two names that differ in letter case only, the one that is lower case throughout.
            if (name == folded || !paths.contains(folded))
                paths.insert_or_assign(std::move(folded), toText(it->path()));
        } catch (const std::system_error&) {
            continue; // half a UTF-16 pair: the name of no key
        }
    }
    return paths;
}

} // namespace

PictureFiles::PictureFiles(const std::vector<std::string>& folders) {
    for (const std::string& folder : folders)
        listings_.push_back({folder, {}, {}, {}});
}

std::optional<std::string> PictureFiles::find(std::string_view key) {
    const std::string folded = lowerCase(key);
    for (Listing& listing : listings_) {
        refresh(listing);
        for (const char* const extension : {".bmp", ".jpg"}) {
            const auto found = listing.paths.find(folded + extension);
            if (found != listing.paths.end() && fileExists(found->second))
                return found->second;
        }
    }
    return std::nullopt;
}

void PictureFiles::refresh(Listing& listing) {
    using namespace std::chrono_literals;
    std::string pictures = findIgnoringCase(listing.folder, "pics").value_or(std::string());
    std::error_code unknown;
    const fs::file_time_type changed = fs::last_write_time(toPath(pictures), unknown);
    if (!unknown && pictures == listing.pictures && changed == listing.changed)
        return;
    // Some file systems count in steps of two seconds: what comes within them would not be seen.
    const bool settled = !unknown && fs::file_time_type::clock::now() - changed > 2s;
    listing.paths = pathsIn(pictures);
    listing.changed = settled ? changed : fs::file_time_type();
    listing.pictures = std::move(pictures);
}

} // namespace quillset
