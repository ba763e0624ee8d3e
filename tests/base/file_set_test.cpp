#include "base/file_set.h"

#include "support/failing_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace quillset;
using test::FailingFiles;

namespace {

using Content = std::map<std::string, std::string>;

struct Scene {
    /// Two of the files are there before, one is new.
    Scene() {
        for (const auto& [name, bytes] : before())
            folder.write(name, bytes);
    }
    static Content before() { return {{"a.shp", "old shapes"}, {"a.dbf", "old texts"}}; }
    static Content after() { return {{"a.shp", "new shapes"}, {"a.dbf", "new"}, {"a.cpg", "UTF-8"}}; }
    void write(FileOperations& files) const {
        writeFilesTogether(files, {{folder.file("a.shp"), "new shapes"},
                                   {folder.file("a.dbf"), "new"},
                                   {folder.file("a.cpg"), "UTF-8"}});
    }
    [[nodiscard]] Content content() const {
        Content found;
        for (const auto& entry : std::filesystem::directory_iterator(toPath(folder.path())))
            found[toText(entry.path().filename())] = folder.read(toText(entry.path().filename()));
        return found;
    }
    /// Content without the files under working names.
    [[nodiscard]] Content named() const {
        Content found = content();
        std::erase_if(found, [](const auto& file) { return file.first.starts_with(".quillset-"); });
        return found;
    }
    /// Whether one of the files, under whatever name, has that content.
    [[nodiscard]] bool holds(const std::string& bytes) const {
        const Content files = content();
        return std::any_of(files.begin(), files.end(),
                           [&](const auto& file) { return file.second == bytes; });
    }

    test::TemporaryFolder folder;
};

} // namespace

TEST(FileSet, AllFilesAreNewOrAllAreAsBefore) {
    int operations = 0;
    {
        const Scene scene;
        FailingFiles files;
        scene.write(files);
        operations = files.count();
        EXPECT_EQ(scene.content(), Scene::after());
    }
    ASSERT_GT(operations, 10);
    int undone = 0;
    for (int at = 1; at <= operations; ++at) {
        const Scene scene;
        FailingFiles files(at);
        try {
            scene.write(files);
            EXPECT_EQ(scene.named(), Scene::after()) << "operation " << at;
        } catch (const RuntimeError&) {
            EXPECT_EQ(scene.content(), Scene::before()) << "operation " << at;
            ++undone;
        }
    }
    EXPECT_EQ(undone, operations - 2) << "an old file that cannot be removed at the end is no failure";
}

TEST(FileSet, APowerFailureNeverLeavesAFirstFileWithOthersThatAreNotItsOwn) {
    for (const auto kind : {FailingFiles::Kind::losesPowerBefore, FailingFiles::Kind::losesPowerAfter}) {
        for (int at = 1;; ++at) {
            const Scene scene;
            FailingFiles files(at, kind);
            try {
                scene.write(files);
                break;
            } catch (const test::PowerLoss&) {
            }
            const Content named = scene.named();
            EXPECT_TRUE(!named.contains("a.shp") || named == Scene::before() || named == Scene::after())
                << "operation " << at;
            if (named == Scene::after())
                continue;
            for (const auto& [name, bytes] : Scene::before())
                EXPECT_TRUE(scene.holds(bytes)) << name << " is lost at operation " << at;
        }
    }
}

TEST(FileSet, ATargetThatCannotBeReplacedIsToldBeforeAnythingHappens) {
    const Scene scene;
    std::filesystem::create_directory(toPath(scene.folder.file("a.cpg")));
    const auto files = systemFileOperations();
    EXPECT_THROW(scene.write(*files), RuntimeError);
    EXPECT_EQ(scene.folder.read("a.shp"), "old shapes");
    EXPECT_EQ(scene.folder.read("a.dbf"), "old texts");
}
