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
