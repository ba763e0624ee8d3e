// Kinds of files that exist on POSIX systems only.
#include "catalogue/folder_listing.h"
#include "catalogue_fixture.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace quillset::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

TEST(OddFiles, AFolderListingLeavesOutWhatIsNoFileOrHasNoUsableName) {
    const TemporaryFolder folder;
    folder.write("good.fx", "");
    folder.write("cut\xC3.fx", "");
    folder.write("bell\a.fx", "");
    fs::create_symlink("loop.fx", toPath(folder.file("loop.fx")));
    fs::create_symlink("nowhere", toPath(folder.file("dangling.fx")));
    fs::create_symlink("good.fx", toPath(folder.file("linked.fx")));
    fs::create_directory_symlink(".", toPath(folder.file("self.fx")));
    ASSERT_EQ(mkfifo(folder.file("pipe.fx").c_str(), 0600), 0);
    const FileNames files = filesEndingIn(folder.path(), "fx");
    EXPECT_EQ(files.usable, (Names{"good.fx", "linked.fx"}));
    EXPECT_EQ(files.unusable, (Names{"bell\uFFFD.fx", "cut\uFFFD.fx"}));
}

TEST(OddFiles, ANameMayHoldEveryCharacterThatXmlTextCan) {
    const TemporaryFolder folder;
    const Names good{"2\xC2\x80.fx", "3\xE0\xA0\x80.fx", "4\xF0\x9F\x9A\x81.fx", "5\xED\x9F\xBF.fx"};
    const Names bad{"6\xC0\x80.fx", "7\xED\xA0\x80.fx", "8\xEF\xBF\xBF.fx", "9\xF4\x90\x80\x80.fx",
                    "9\xF0\x8F\xBF\xBF.fx"};
    for (const std::string& name : good)
        folder.write(name, "");
    for (const std::string& name : bad)
        folder.write(name, "");
    EXPECT_EQ(filesEndingIn(folder.path(), "fx").usable, good);
}

TEST(OddFiles, APipeOrAFolderIsNoLibraryAndDoesNotBlock) {
    CatalogueFixture catalogue;
    ASSERT_EQ(mkfifo(catalogue.folder.file("pipe.xml").c_str(), 0600), 0);
    catalogue.sources.genericFile = catalogue.folder.file("pipe.xml");
    catalogue.sources.userLibraries = {catalogue.folder.file("pipe.xml"), catalogue.folder.path()};
    catalogue.rescan();
    EXPECT_EQ(catalogue.messageTexts(),
              (Names{"Failed to load generic.xml file", "Please select a valid user library file",
                     "Please select a valid user library file"}));
}

} // namespace
} // namespace quillset::test
