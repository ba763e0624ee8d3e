// Where the system appends in one step.
#include "base/log_file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <thread>

using namespace quillset;

TEST(LogFile, TwoProgramsMayWriteToOneLog) {
    const test::TemporaryFolder folder;
    const auto writeMany = [&] {
        const LogFile log(folder.file("a.log"));
        for (int i = 0; i < 200; ++i)
            log.write("an event that is written whole");
    };
    std::thread other(writeMany);
    writeMany();
    other.join();
    const std::vector<std::string> lines = LogFile(folder.file("a.log")).lastLines(1000);
    EXPECT_EQ(lines.size(), 400U);
    for (const std::string& line : lines)
        EXPECT_TRUE(line.ends_with("Z an event that is written whole")) << line;
}
