#include "base/paths.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

TEST(Paths, FileNameIsWhatFollowsTheLastSeparator) {
    EXPECT_EQ(fileNameOf("C:\\models\\tower.mdl"), "tower.mdl");
    EXPECT_EQ(fileNameOf("tower.mdl"), "tower.mdl");
    EXPECT_EQ(fileNameOf("C:\\models\\"), "");
#ifndef _WIN32
    EXPECT_EQ(fileNameOf("/home/me\\mixed/tower.mdl"), "tower.mdl");
#endif
}

TEST(Paths, FoldersAndJoining) {
    EXPECT_EQ(folderOf("C:\\a.xml"), "C:\\");
    EXPECT_EQ(folderOf("/a.xml"), "/");
    EXPECT_EQ(folderOf("/tmp/x/a.xml"), "/tmp/x");
    EXPECT_EQ(folderOf("a.xml"), "");
    EXPECT_EQ(toPath(joinPath("/tmp/", "a")), toPath("/tmp/a"));
    EXPECT_EQ(toPath(joinPath("/tmp", "a")), toPath("/tmp/a"));
}

TEST(Paths, AbsolutePathsHoldInEveryFolder) {
    const std::string here = toText(std::filesystem::current_path());
    EXPECT_EQ(absolutePath("a.xml"), joinPath(here, "a.xml"));
    EXPECT_EQ(toPath(absolutePath("./b/./é.xml")), toPath(here) / toPath("b/é.xml"));
#ifdef _WIN32
    EXPECT_EQ(toPath(absolutePath("../a.xml")), toPath(here).parent_path() / "a.xml");
#else
    EXPECT_EQ(toPath(absolutePath("../a.xml")), toPath(here) / ".." / "a.xml") << "may cross a symbolic link";
#endif
    EXPECT_EQ(absolutePath(here), here);
    EXPECT_EQ(absolutePath(joinPath(here, "")), here) << "folder names are put together from it";
}

TEST(Paths, LowerCaseBeyondAscii) {
    EXPECT_EQ(lowerCase("C:\\ÄÖÜ\\Łódź Ÿ\\ΑΩ Ж Ё.XML"), "c:\\äöü\\łódź ÿ\\αω ж ё.xml");
    EXPECT_EQ(lowerCase("\xC3"), "\xC3") << "a cut character is kept";
    EXPECT_EQ(lowerCase("ß×€😀"), "ß×€😀");
}

TEST(Paths, FindsTheSimulatorsFoldersInAnySpelling) {
    const test::TemporaryFolder folder;
    folder.write("Effects/FX_1.fx", "x");
    folder.write("other/exact.bmp", "x");
    const auto effects = findIgnoringCase(folder.path(), "effects");
    ASSERT_TRUE(effects);
    EXPECT_TRUE(folderExists(*effects));
    EXPECT_TRUE(findIgnoringCase(folder.path(), "\\EFFECTS\\fx_1.FX"));
    EXPECT_FALSE(findIgnoringCase(folder.path(), "effects/none.fx"));
    EXPECT_FALSE(findIgnoringCase(folder.file("missing"), "effects"));
    EXPECT_FALSE(fileExists(folder.file("other"))) << "a folder is no file";
}
