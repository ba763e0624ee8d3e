#include "base/atomic_file.h"
#include "base/runtime_error.h"
#include "support/failing_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdint>

using namespace quillset;
using test::FailingFiles;

namespace {

std::size_t entriesOf(const std::string& folder) {
    const std::filesystem::directory_iterator entries(toPath(folder));
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

// The number of the failure that `body` throws, 0 for none; its description must contain `path`.
template <class Body>
int failureNaming(const std::string& path, const Body& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
        return error.number();
    }
    return 0;
}

} // namespace

TEST(AtomicFile, WritesNewAndExistingFiles) {
    const test::TemporaryFolder folder;
    const auto files = systemFileOperations();
    const std::string path = folder.file("Zürich €.xml");
    writeFileAtomically(*files, path, "first");
    EXPECT_EQ(readWholeFile(path), "first");
    const std::string large(3'000'000, 'x');
    writeFileAtomically(*files, path, large);
    EXPECT_EQ(readWholeFile(path), large);
    writeFileAtomically(*files, path, "");
    EXPECT_EQ(readWholeFile(path), "");
    EXPECT_EQ(entriesOf(folder.path()), 1U);
    const std::string longName(250, 'n'); // no room for a suffix
    writeFileAtomically(*files, folder.file(longName), "long");
    EXPECT_EQ(folder.read(longName), "long");
}

// Four operations: find the target, write and flush the copy, replace, flush the folder.
TEST(AtomicFile, APowerLossLeavesTheOldOrTheNewFile) {
    constexpr int operations = 4;
    for (const auto kind : {FailingFiles::Kind::losesPowerBefore, FailingFiles::Kind::losesPowerAfter}) {
        for (int at = 1; at <= operations; ++at) {
            const test::TemporaryFolder folder;
            const std::string path = folder.write("a.xml", "old");
            FailingFiles files(at, kind);
            EXPECT_THROW(writeFileAtomically(files, path, "the new file"), test::PowerLoss);
            const bool replaced = at == 4 || (at == 3 && kind == FailingFiles::Kind::losesPowerAfter);
            EXPECT_EQ(folder.read("a.xml"), replaced ? "the new file" : "old") << "operation " << at;
        }
    }
    const test::TemporaryFolder folder;
    FailingFiles files;
    writeFileAtomically(files, folder.write("a.xml", "old"), "new");
    EXPECT_EQ(files.count(), operations) << "a new operation needs its rows above";
}

TEST(AtomicFile, AFailureIsReportedAndLeavesNoWorkingCopy) {
    for (int at = 1; at <= 3; ++at) {
        const test::TemporaryFolder folder;
        const std::string path = folder.write("a.xml", "old");
        FailingFiles files(at);
        EXPECT_THROW(writeFileAtomically(files, path, "new"), RuntimeError) << at;
        EXPECT_EQ(folder.read("a.xml"), "old") << at;
        EXPECT_EQ(entriesOf(folder.path()), 1U) << at;
    }
}

TEST(AtomicFile, PiecesArriveTogetherOrNotAtAll) {
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.bgl", "old");
    FailingFiles files;
    writeFileAtomically(files, path, [](const PieceSink& put) {
        put("one ");
        put(std::string(3'000'000, 'x'));
        put(" end");
    });
    EXPECT_EQ(folder.read("a.bgl"), "one " + std::string(3'000'000, 'x') + " end");
    EXPECT_EQ(files.count(), 4);
    (void)folder.write("a.bgl", "old");
    const auto failsInBetween = [](const PieceSink& put) {
        put("half of ");
        throw RuntimeError(ErrorNumber::deviceError);
    };
    EXPECT_THROW(writeFileAtomically(files, path, failsInBetween), RuntimeError);
    EXPECT_EQ(folder.read("a.bgl"), "old");
    EXPECT_EQ(entriesOf(folder.path()), 1U);
}

TEST(AtomicFile, AReplacementThatLostTheOldFileKeepsTheCopy) {
    class HalfWay : public FailingFiles {
    public:
        void replace(const std::string&, const std::string& to) override {
            remove(to);
            throw RuntimeError(ErrorNumber::permissionDenied);
        }
    };
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.xml", "old");
    HalfWay files;
    EXPECT_THROW(writeFileAtomically(files, path, "new"), RuntimeError);
    ASSERT_EQ(entriesOf(folder.path()), 1U);
    EXPECT_EQ(readWholeFile(toText(std::filesystem::directory_iterator(toPath(folder.path()))->path())),
              "new");
}

TEST(AtomicFile, RefusesWhatItMustNotReplace) {
    const test::TemporaryFolder folder;
    const auto files = systemFileOperations();
    const auto saving = [&](const std::string& path) {
        return failureNaming(path, [&] { writeFileAtomically(*files, path, "new"); });
    };
    EXPECT_EQ(saving(folder.path()), static_cast<int>(ErrorNumber::pathAccess));
    EXPECT_EQ(saving(folder.file("none/a.xml")), static_cast<int>(ErrorNumber::pathNotFound));
    const std::string path = folder.write("locked.xml", "old");
    std::filesystem::permissions(toPath(path), std::filesystem::perms::owner_read);
    EXPECT_EQ(saving(path), static_cast<int>(ErrorNumber::permissionDenied));
    std::filesystem::permissions(toPath(path), std::filesystem::perms::owner_all);
    EXPECT_EQ(folder.read("locked.xml"), "old");
    EXPECT_EQ(entriesOf(folder.path()), 1U);
}

TEST(WholeFile, RefusesWhatIsNoFile) {
    const test::TemporaryFolder folder;
    const auto reading = [](const std::string& path) {
        return failureNaming(path, [&] { (void)readWholeFile(path); });
    };
    EXPECT_EQ(reading(folder.file("none.xml")), static_cast<int>(ErrorNumber::fileNotFound));
    EXPECT_EQ(reading(folder.path()), static_cast<int>(ErrorNumber::pathAccess));
    const std::string huge = folder.write("huge", "");
    std::filesystem::resize_file(toPath(huge), std::uintmax_t{2} << 30); // takes no room on the disk
    EXPECT_EQ(reading(huge), static_cast<int>(ErrorNumber::outOfMemory));
}
