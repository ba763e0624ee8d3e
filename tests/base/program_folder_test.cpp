#include "base/program_folder.h"
#include "base/runtime_error.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

TEST(ProgramFolder, TheExecutableIsWhereTheSystemSaysItIs) {
    const std::filesystem::path folder = toPath(executableFolder());
    EXPECT_TRUE(std::filesystem::exists(folder / "base_test") ||
                std::filesystem::exists(folder / "base_test.exe"));
}

TEST(ProgramFolder, OwnFolderIfWritableElseTheUsersUnlessOneIsWanted) {
    const test::TemporaryFolder folder;
    const std::string own = folder.file("own");
    std::filesystem::create_directory(toPath(own));
    const std::string user = folder.file("user/data");
    EXPECT_EQ(chooseDataFolder(own, user, std::nullopt), own);
    EXPECT_FALSE(folder.has("user")) << "made without need";
    EXPECT_TRUE(std::filesystem::is_empty(toPath(own))) << "the probe must not stay";
    EXPECT_EQ(chooseDataFolder(folder.file("missing"), user, std::nullopt), user);
    EXPECT_TRUE(folderExists(user));
    EXPECT_EQ(chooseDataFolder(own, user, folder.file("wanted/one")), folder.file("wanted/one"));
    EXPECT_TRUE(folderExists(folder.file("wanted/one")));
    const std::string file = folder.write("file", "x");
    EXPECT_THROW((void)chooseDataFolder(own, user, file), RuntimeError) << "a file stands in the way";
}

TEST(ProgramFolder, AProgramInTheSystemsFoldersKeepsNothingThere) {
    const test::TemporaryFolder folder;
    folder.write("usr/bin/quillset-xml", "program");
    const std::string user = folder.file("user");
    EXPECT_EQ(chooseDataFolder(folder.file("usr/bin"), user, std::nullopt), folder.file("usr/bin"));
    folder.write("usr/share/quillset-xml/generic.xml", "data of the package");
    EXPECT_EQ(chooseDataFolder(folder.file("usr/bin"), user, std::nullopt), user);
}

TEST(InstanceFolder, EachInstanceHasItsOwn) {
    const test::TemporaryFolder folder;
    {
        auto first = std::make_unique<InstanceFolder>(folder.path());
        const InstanceFolder second(folder.path());
        EXPECT_EQ(first->path(), folder.path());
        EXPECT_EQ(second.path(), folder.file("instance2"));
        {
            const InstanceFolder third(folder.path());
            EXPECT_EQ(third.path(), folder.file("instance3"));
        }
        EXPECT_FALSE(folder.has("instance3"));
        first.reset();
        const InstanceFolder next(folder.path());
        EXPECT_EQ(next.path(), folder.path()) << "the first folder is free again";
        folder.write("instance2/undo0000.xml", "x");
    }
    EXPECT_TRUE(folder.has("instance2/undo0000.xml")) << "a file left behind is not thrown away";
    std::filesystem::remove_all(toPath(folder.file("instance2")));
    EXPECT_TRUE(std::filesystem::is_empty(toPath(folder.path()))) << "no lock stays";
}
