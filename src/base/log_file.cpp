#include "base/log_file.h"

#include "base/paths.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>

namespace quillset {

namespace {

std::string timeText(LogFile::Time time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const auto days = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day date(days);
    const std::chrono::hh_mm_ss clock(seconds - days);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return text.data();
}

/// The lines of a file's end; none when it cannot be read.
std::vector<std::string> linesOf(const std::string& path) {
    std::vector<std::string> lines;
    if (!fileExists(path))
        return lines;
    std::ifstream file(toPath(path), std::ios::binary);
    for (std::string line; std::getline(file, line);)
        lines.push_back(std::move(line));
    return lines;
}

} // namespace

LogFile::LogFile(std::string path, std::uintmax_t limit, std::function<Time()> now)
    : path_(std::move(path))
    , olderPath_(path_ + ".old")
    , limit_(limit)
    , now_(std::move(now)) {}

void LogFile::write(std::string_view event) const noexcept {
    try {
        const std::string line = lineOf(event);
        if (makeRoom(line.size()))
            std::ofstream(toPath(path_), std::ios::binary | std::ios::app) << line;
    } catch (const std::exception&) { // deliberate: see the class
    }
}

std::string LogFile::lineOf(std::string_view event) const {
    std::string text(event.substr(0, longestEvent));
    if (text.size() < event.size())
        text += "...";
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return timeText(now_()) + " " + text + "\n";
}

// False when the line must not be written: something else than a file is in the way (a pipe would block), or
// the full file cannot be moved.
bool LogFile::makeRoom(std::size_t size) const {
    std::error_code failed;
    const std::filesystem::path path = toPath(path_);
    const std::filesystem::file_status status = std::filesystem::status(path, failed);
    if (status.type() == std::filesystem::file_type::not_found)
        return true;
    if (!std::filesystem::is_regular_file(status))
        return false;
    const std::uintmax_t used = std::filesystem::file_size(path, failed);
    if (failed || used == 0 || used + size <= limit_)
        return !failed;
    std::filesystem::rename(path, toPath(olderPath_), failed);
    return !failed;
}

std::vector<std::string> LogFile::lastLines(std::size_t count) const noexcept {
    try {
        std::vector<std::string> lines = linesOf(olderPath_);
        for (std::string& line : linesOf(path_))
            lines.push_back(std::move(line));
        if (lines.size() > count)
            lines.erase(lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(count));
        return lines;
    } catch (const std::exception&) { // nothing can be shown then
        return {};
    }
}

} // namespace quillset
