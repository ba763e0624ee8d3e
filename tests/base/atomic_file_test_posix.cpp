#include "base/atomic_file.h"
#include "base/runtime_error.h"
#include "support/temporary_folder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace quillset;

namespace {

struct stat statusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status;
}

// Files of this process may not grow beyond `bytes` while it lives.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limited{bytes, old_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, oldHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit old_{};
    void (*oldHandler_)(int);
};

} // namespace

TEST(AtomicFile, FollowsSymbolicLinks) {
    const test::TemporaryFolder folder;
    const auto files = systemFileOperations();
    folder.write("real/scenery.xml", "old");
    ASSERT_EQ(::symlink("real/scenery.xml", folder.file("middle").c_str()), 0);
    ASSERT_EQ(::symlink("middle", folder.file("link.xml").c_str()), 0);
    writeFileAtomically(*files, folder.file("link.xml"), "new");
    EXPECT_TRUE(S_ISLNK(statusOf(folder.file("link.xml")).st_mode));
    EXPECT_TRUE(S_ISLNK(statusOf(folder.file("middle")).st_mode));
    EXPECT_EQ(folder.read("real/scenery.xml"), "new");

    ASSERT_EQ(::symlink("real/later.xml", folder.file("dangling").c_str()), 0);
    writeFileAtomically(*files, folder.file("dangling"), "made");
    EXPECT_EQ(folder.read("real/later.xml"), "made");

    ASSERT_EQ(::symlink("circle", folder.file("circle").c_str()), 0);
    EXPECT_THROW(writeFileAtomically(*files, folder.file("circle"), "x"), RuntimeError);
}

TEST(AtomicFile, KeepsTheModeOfTheFile) {
    const test::TemporaryFolder folder;
    const auto files = systemFileOperations();
    const std::string path = folder.write("a.xml", "old");
    for (const mode_t mode : {0600U, 0640U, 0666U, 0755U}) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        writeFileAtomically(*files, path, "new");
        EXPECT_EQ(statusOf(path).st_mode & 0777U, mode);
    }
    const mode_t mask = ::umask(027);
    writeFileAtomically(*files, folder.file("new.xml"), "new");
    ::umask(mask);
    EXPECT_EQ(statusOf(folder.file("new.xml")).st_mode & 0777U, 0640U);
}

TEST(AtomicFile, KeepsTheOwnerWhereThatIsAllowed) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser may give files away";
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.xml", "old");
    ASSERT_EQ(::chown(path.c_str(), 1234, 2345), 0);
    writeFileAtomically(*systemFileOperations(), path, "new");
    EXPECT_EQ(statusOf(path).st_uid, 1234U);
    EXPECT_EQ(statusOf(path).st_gid, 2345U);
}

TEST(AtomicFile, ADiskThatFillsUpLeavesTheOldFile) {
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.xml", "old");
    int number = 0;
    {
        const FileSizeLimit limit(4096);
        try {
            writeFileAtomically(*systemFileOperations(), path, std::string(10'000, 'x'));
        } catch (const RuntimeError& error) {
            number = error.number();
            EXPECT_EQ(error.what(), "Disk full: " + path);
        }
    }
    EXPECT_EQ(number, static_cast<int>(ErrorNumber::diskFull));
    EXPECT_EQ(folder.read("a.xml"), "old");
    std::filesystem::directory_iterator entries(toPath(folder.path()));
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST(AtomicFile, AFolderThatMayNotBeWrittenKeepsItsFile) {
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.xml", "old");
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    const bool superuser = ::geteuid() == 0; // whom no folder stops
    if (superuser) {
        ASSERT_EQ(::seteuid(65534), 0);
    }
    try {
        writeFileAtomically(*systemFileOperations(), path, "new");
        ADD_FAILURE() << "saved";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.what(), "Permission denied: " + path);
    }
    if (superuser) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(folder.read("a.xml"), "old");
}

TEST(AtomicFile, PipesAndDevicesAreNeitherReadNorReplaced) {
    const test::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0666), 0);
    for (const std::string& path :
         {folder.file("pipe"), std::string("/dev/null"), std::string("/dev/zero")}) {
        EXPECT_THROW((void)readWholeFile(path), RuntimeError) << path;
        EXPECT_THROW(writeFileAtomically(*systemFileOperations(), path, "x"), RuntimeError) << path;
    }
    EXPECT_TRUE(S_ISFIFO(statusOf(folder.file("pipe")).st_mode));
}
