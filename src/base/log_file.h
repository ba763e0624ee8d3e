#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillset {

/// A log for the user and for whoever looks into a problem with him: one line an event, with the time in UTC.
/// Two files at most: when the log has reached its limit it becomes the older one, and a new one begins.
///
/// Nothing here throws or reports: a log that cannot be written must not disturb the work. Several programs
/// may write to one log: the file is open only while a line is written.
class LogFile {
public:
    using Time = std::chrono::system_clock::time_point;
    static constexpr std::uintmax_t usualLimit = 256 * 1024;
    /// Longer events are cut.
    static constexpr std::size_t longestEvent = 2000;

    /// `limit` is the size in bytes at which the file is exchanged.
    explicit LogFile(std::string path, std::uintmax_t limit = usualLimit,
                     std::function<Time()> now = std::chrono::system_clock::now);

    /// Appends an event; line breaks in it become blanks.
    void write(std::string_view event) const noexcept;
    /// The last lines of both files, the oldest first.
    [[nodiscard]] std::vector<std::string> lastLines(std::size_t count) const noexcept;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] const std::string& olderPath() const { return olderPath_; }

private:
    [[nodiscard]] std::string lineOf(std::string_view event) const;
    [[nodiscard]] bool makeRoom(std::size_t size) const;

    std::string path_;
    std::string olderPath_;
    std::uintmax_t limit_;
    std::function<Time()> now_;
};

} // namespace quillset
