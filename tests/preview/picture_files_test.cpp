#include "preview/picture_files.h"

#include "base/atomic_file.h"
#include "base/paths.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <system_error>

namespace quillset {
namespace {

TEST(PictureFiles, bitmapComesFirstAndLetterCaseIsFree) {
    const test::TemporaryFolder program;
    program.write("Pics/abc.jpg", "j");
    program.write("Pics/ABC.BMP", "bitmap");
    program.write("Pics/only.jpg", "jpeg");
    program.write("Pics/folder.bmp/inside", "x");
    const test::TemporaryFolder shipped;
    shipped.write("pics/only.bmp", "shipped");
    shipped.write("pics/further.bmp", "further");
    PictureFiles files({program.path(), shipped.path()});
    const auto contentOf = [&](std::string_view key) {
        const std::optional<std::string> file = files.find(key);
        return file ? readWholeFile(*file) : "none";
    };
    EXPECT_EQ(contentOf("aBc"), "bitmap");
    EXPECT_EQ(contentOf("ONLY"), "jpeg") << "the user's own one wins";
    EXPECT_EQ(contentOf("further"), "further");
    EXPECT_EQ(contentOf("missing"), "none");
    EXPECT_EQ(contentOf("folder"), "none");
    EXPECT_EQ(contentOf(""), "none");
    EXPECT_EQ(contentOf("../pics/only"), "none");
}

// The user puts pictures there while the program runs.
TEST(PictureFiles, aChangedFolderIsListedAgain) {
    namespace fs = std::filesystem;
    const test::TemporaryFolder folder;
    PictureFiles files({folder.path()});
    EXPECT_EQ(files.find("a"), std::nullopt);
    folder.write("pics/a.bmp", "a");
    EXPECT_EQ(files.find("a"), folder.file("pics/a.bmp"));
    folder.write("pics/b.bmp", "b");
    EXPECT_EQ(files.find("b"), folder.file("pics/b.bmp")) << "written in the same moment";

    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    std::error_code refused; // Windows does not let the time of a folder be set; the rest holds all the same
    fs::last_write_time(toPath(folder.file("pics")), longAgo, refused);
    EXPECT_EQ(files.find("b"), folder.file("pics/b.bmp"));
    folder.write("pics/c.bmp", "c");
    EXPECT_EQ(files.find("c"), folder.file("pics/c.bmp"));
    fs::remove(toPath(folder.file("pics/a.bmp")));
    EXPECT_EQ(files.find("a"), std::nullopt);
    fs::remove_all(toPath(folder.file("pics")));
    EXPECT_EQ(files.find("c"), std::nullopt);
}

} // namespace
} // namespace quillset
