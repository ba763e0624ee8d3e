#include "base/log_file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

LogFile::Time afterEpoch(long seconds) {
    return LogFile::Time(std::chrono::seconds(seconds));
}

} // namespace

TEST(LogFile, OneLineAnEventWithItsTime) {
    const test::TemporaryFolder folder;
    long now = 951782399; // the last second of a leap day
    const LogFile log(folder.file("a.log"), 1000, [&] { return afterEpoch(now); });
    log.write("started");
    ++now;
    log.write("Error 5\r\n\r\nof \tthe Zürich file");
    EXPECT_EQ(folder.read("a.log"), "2000-02-28 23:59:59Z started\n"
                                    "2000-02-29 00:00:00Z Error 5    of  the Zürich file\n");
    log.write(std::string(5000, 'x'));
    EXPECT_LT(folder.read("a.log").size(), LogFile::longestEvent + 100);
}

TEST(LogFile, NeverMoreThanTwoFilesOfItsLimit) {
    const test::TemporaryFolder folder;
    const LogFile log(folder.file("a.log"), 200, [] { return afterEpoch(0); });
    for (int i = 0; i < 100; ++i)
        log.write("event " + std::to_string(i));
    EXPECT_LE(folder.read("a.log").size(), 200U);
    EXPECT_LE(folder.read("a.log.old").size(), 200U);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(toPath(folder.path())), {}), 2);
    // Seven lines fill 200 bytes; the last ones come from both files.
    const std::vector<std::string> last = log.lastLines(5);
    ASSERT_EQ(last.size(), 5U);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(last[static_cast<std::size_t>(i)], "1970-01-01 00:00:00Z event " + std::to_string(95 + i));
    EXPECT_GE(log.lastLines(100).size(), 7U);
}

TEST(LogFile, WhatCannotBeWrittenDisturbsNobody) {
    const test::TemporaryFolder folder;
    folder.write("folder.log/x", "a folder in the way");
    folder.write("full.log", std::string(100, 'x'));
    folder.write("full.log.old/x", "a folder in the way of the older file");
    for (const char* const name : {"folder.log", "no/such/folder.log", "full.log"}) {
        const LogFile log(folder.file(name), 100);
        log.write("event");
        for (const std::string& line : log.lastLines(10))
            EXPECT_EQ(line.find("event"), std::string::npos) << name;
    }
    EXPECT_EQ(folder.read("full.log").size(), 100U) << "never beyond its limit";
}
