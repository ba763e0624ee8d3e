#include "base/atomic_file.h"
#include "base/paths.h"
#include "base/wide_path.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <vector>

using namespace quillset;

TEST(LongPaths, FilesBeyondTheOldLimitAreFoundWrittenReadAndReplaced) {
    const test::TemporaryFolder folder;
    std::string deep = folder.path();
    std::vector<std::string> made;
    while (deep.size() < 400) {
        deep = joinPath(deep, "Überlänge 文 " + std::string(40, 'x'));
        ASSERT_NE(CreateDirectoryW(widePath(deep).c_str(), nullptr), 0) << deep;
        made.push_back(deep);
    }
    const std::string file = joinPath(deep, "scenery.xml");
    EXPECT_TRUE(folderExists(deep));
    EXPECT_FALSE(fileExists(deep));
    EXPECT_FALSE(fileExists(file));
    const auto files = systemFileOperations();
    writeFileAtomically(*files, file, "first");
    writeFileAtomically(*files, file, "second");
    EXPECT_TRUE(fileExists(file));
    EXPECT_FALSE(folderExists(file));
    EXPECT_EQ(readWholeFile(file), "second");
    files->remove(file);
    EXPECT_FALSE(fileExists(file));
    for (; !made.empty(); made.pop_back())
        EXPECT_NE(RemoveDirectoryW(widePath(made.back()).c_str()), 0)
            << "something was left in " << made.back();
}
