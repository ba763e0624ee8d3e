#include "base/paths.h"

#include <algorithm>
#include <system_error>

namespace quillset {

namespace fs = std::filesystem;

namespace {

#ifdef _WIN32
constexpr char nativeSeparator = '\\';
#else
constexpr char nativeSeparator = '/';
#endif

bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

std::size_t lastSeparator(std::string_view path) {
    return path.find_last_of("\\/");
}

char32_t lowerOf(char32_t c) {
    if ((c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7) ||
        (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) || (c >= 0x410 && c <= 0x42F))
        return c + 32;
    if (c >= 0x400 && c <= 0x40F)
        return c + 80;
    // Latin Extended-A alternates upper and lower case; the parity changes twice.
    const bool evenIsUpper = (c >= 0x100 && c <= 0x137 && c != 0x130) || (c >= 0x14A && c <= 0x177);
    const bool oddIsUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if ((evenIsUpper && c % 2 == 0) || (oddIsUpper && c % 2 == 1))
        return c + 1;
    if (c == 0x178)
        return 0xFF;
    return c;
}

// All letters that change have two-byte forms, and so have their lower-case forms: lengths stay.
void appendTwoBytes(std::string& out, char32_t c) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
}

std::optional<fs::path> entryIgnoringCase(const fs::path& folder, std::string_view name) {
    std::error_code failed;
    const fs::path exact = folder / toPath(name);
    if (fs::exists(exact, failed))
        return exact;
    for (fs::directory_iterator it(folder, failed), end; !failed && it != end; it.increment(failed))
        if (sameIgnoringCase(toText(it->path().filename()), name))
            return it->path();
    return std::nullopt;
}

} // namespace

fs::path toPath(std::string_view utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string toText(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string_view fileNameOf(std::string_view path) {
#ifdef _WIN32
    const std::size_t at = path.find_last_of('\\');
#else
    const std::size_t at = lastSeparator(path);
#endif
    return at == std::string_view::npos ? path : path.substr(at + 1);
}

std::string folderOf(std::string_view path) {
    const std::size_t at = lastSeparator(path);
    if (at == std::string_view::npos)
        return {};
    const bool root = at == 0 || path[at - 1] == ':';
    return std::string(path.substr(0, root ? at + 1 : at));
}

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string joined(folder);
    if (!joined.empty() && !isSeparator(joined.back()))
        joined.push_back(nativeSeparator);
    return joined.append(name);
}

std::string absolutePath(std::string_view path) {
    std::error_code failed;
    const fs::path absolute = fs::absolute(toPath(path), failed);
    if (failed)
        return std::string(path);
    const bool climbs = std::find(absolute.begin(), absolute.end(), fs::path("..")) != absolute.end();
    const fs::path plain = climbs ? absolute : absolute.lexically_normal();
    const bool separatorAtEnd = !plain.has_filename() && plain.has_relative_path();
    return toText(separatorAtEnd ? plain.parent_path() : plain);
}

std::string lowerCase(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto first = static_cast<unsigned char>(utf8[i]);
        if (first < 0x80) {
            out.push_back(static_cast<char>(lowerOf(first)));
        } else if (first >= 0xC2 && first < 0xE0 && i + 1 < utf8.size()) {
            const auto second = static_cast<unsigned char>(utf8[i + 1]);
            appendTwoBytes(out, lowerOf(static_cast<char32_t>((first & 0x1F) << 6 | (second & 0x3F))));
            ++i;
        } else {
            out.push_back(utf8[i]);
        }
    }
    return out;
}

bool sameIgnoringCase(std::string_view a, std::string_view b) {
    return a == b || lowerCase(a) == lowerCase(b);
}

std::string foldedForStorage(std::string_view path) {
#ifdef _WIN32
    return lowerCase(path);
#else
    return std::string(path);
#endif
}

std::optional<std::string> findIgnoringCase(std::string_view folder, std::string_view relative) {
    fs::path found = toPath(folder);
    while (!relative.empty()) {
        const std::size_t end = relative.find_first_of("\\/");
        const std::string_view part = relative.substr(0, end);
        relative = end == std::string_view::npos ? std::string_view() : relative.substr(end + 1);
        if (part.empty())
            continue;
        const std::optional<fs::path> next = entryIgnoringCase(found, part);
        if (!next)
            return std::nullopt;
        found = *next;
    }
    std::error_code failed;
    if (!fs::exists(found, failed))
        return std::nullopt;
    return toText(found);
}

} // namespace quillset
