#include "base/wine_registry.h"

#include "base/atomic_file.h"
#include "base/paths.h"
#include "base/runtime_error.h"
#include "base/xml_characters.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quillset {

namespace {

int digitOf(char c, int base) {
    int digit = base;
    if (c >= '0' && c <= '9')
        digit = c - '0';
    else if ((c | 0x20) >= 'a' && (c | 0x20) <= 'f')
        digit = (c | 0x20) - 'a' + 10;
    return digit < base ? digit : -1;
}

// Takes the digits of an escape off the front of the text, as many as there are but not more than `most`.
char32_t takeNumber(std::string_view& text, int base, int most) {
    char32_t number = 0;
    for (; most > 0 && !text.empty() && digitOf(text.front(), base) >= 0; --most) {
        number = number * static_cast<char32_t>(base) + static_cast<char32_t>(digitOf(text.front(), base));
        text.remove_prefix(1);
    }
    return number;
}

// One unit of UTF-16 after a backslash.
char32_t takeEscape(std::string_view& text) {
    constexpr std::pair<char, char> controls[] = {{'a', '\a'}, {'b', '\b'}, {'e', '\x1B'}, {'f', '\f'},
                                                  {'n', '\n'}, {'r', '\r'}, {'t', '\t'},   {'v', '\v'}};
    const char kind = text.front();
    if (digitOf(kind, 8) >= 0)
        return takeNumber(text, 8, 3);
    text.remove_prefix(1);
    if (kind == 'x')
        return takeNumber(text, 16, 4);
    const auto control = std::find_if(std::begin(controls), std::end(controls),
                                      [kind](const auto& row) { return row.first == kind; });
    return static_cast<unsigned char>(control == std::end(controls) ? kind : control->second);
}

void appendUnit(std::string& out, char32_t& pendingHigh, char32_t unit) {
    char bytes[4];
    if (unit >= 0xD800 && unit < 0xDC00) {
        pendingHigh = unit;
        return;
    }
    const bool low = unit >= 0xDC00 && unit < 0xE000;
    if (low && pendingHigh != 0)
        unit = 0x10000 + ((pendingHigh - 0xD800) << 10U) + (unit - 0xDC00);
    else if (low)
        unit = 0xFFFD;
    pendingHigh = 0;
    out.append(bytes, putUtf8(unit, bytes));
}

// The text up to the closing character, with its escapes replaced; takes it off the front, the closing
// character included. Nothing when that is missing.
std::optional<std::string> takeEscaped(std::string_view& line, char closing) {
    std::string out;
    char32_t pendingHigh = 0;
    while (!line.empty()) {
        const char c = line.front();
        line.remove_prefix(1);
        if (c == closing)
            return out;
        if (c == '\\' && !line.empty())
            appendUnit(out, pendingHigh, takeEscape(line));
        else
            out.push_back(c);
    }
    return std::nullopt;
}

std::string_view takeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

// The value of a line `"Name"="value"` or `"Name"=str(2):"value"`.
std::optional<std::string> valueIn(std::string_view line, std::string_view name) {
    if (!line.starts_with('"'))
        return std::nullopt;
    line.remove_prefix(1);
    const auto found = takeEscaped(line, '"');
    if (!found || !sameIgnoringCase(*found, name) || !line.starts_with('='))
        return std::nullopt;
    line.remove_prefix(1);
    if (line.starts_with("str(2):"))
        line.remove_prefix(7);
    if (!line.starts_with('"'))
        return std::nullopt;
    line.remove_prefix(1);
    return takeEscaped(line, '"');
}

std::string valueOf(std::string_view file, std::string_view key, std::string_view name) {
    bool inKey = false;
    while (!file.empty()) {
        std::string_view line = takeLine(file);
        if (line.starts_with('[')) {
            line.remove_prefix(1);
            const auto opened = takeEscaped(line, ']');
            inKey = opened && sameIgnoringCase(*opened, key);
        } else if (inKey) {
            if (const auto value = valueIn(line, name))
                return value->substr(0, value->find('\0'));
        }
    }
    return {};
}

// The key under which a 64-bit Windows keeps what 32-bit programs write to `key`.
std::string keyOf32BitPrograms(std::string_view key) {
    const std::size_t first = std::min(key.find('\\'), key.size());
    return std::string(key.substr(0, first)) + "\\Wow6432Node" + std::string(key.substr(first));
}

} // namespace

WineRegistry::WineRegistry(std::string prefix)
    : prefix_(std::move(prefix)) {}

std::string WineRegistry::text(std::string_view key, std::string_view valueName) const {
    try {
        const std::string file = readWholeFile(joinPath(prefix_, "system.reg"));
        const std::string found = valueOf(file, keyOf32BitPrograms(key), valueName);
        return found.empty() ? valueOf(file, key, valueName) : found;
    } catch (const RuntimeError&) {
        return {}; // no prefix, or one that may not be read
    }
}

// The drives are links in "dosdevices"; without them, the first hard disk is known all the same.
std::string WineRegistry::driveFolder(char letter) const {
    const std::string name = {static_cast<char>(letter | 0x20), ':'};
    std::error_code failed;
    const std::filesystem::path target =
        std::filesystem::canonical(toPath(joinPath(joinPath(prefix_, "dosdevices"), name)), failed);
    if (!failed)
        return toText(target);
    return name == "c:" ? joinPath(prefix_, "drive_c") : std::string();
}

std::string WineRegistry::nativePath(std::string_view windowsPath) const {
    const bool hasDrive = windowsPath.size() >= 2 && windowsPath[1] == ':' && digitOf(windowsPath[0], 10) < 0;
    const std::string drive = hasDrive ? driveFolder(windowsPath[0]) : std::string();
    if (drive.empty())
        return std::string(windowsPath);
    std::string rest(windowsPath.substr(2));
    std::replace(rest.begin(), rest.end(), '\\', '/');
    while (rest.starts_with('/'))
        rest.erase(0, 1);
    while (rest.ends_with('/'))
        rest.pop_back();
    if (const auto found = findIgnoringCase(drive, rest))
        return *found;
    return joinPath(drive, rest);
}

} // namespace quillset
