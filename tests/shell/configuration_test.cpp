#include "shell/configuration.h"

#include "base/runtime_error.h"
#include "shell/recent_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

std::string saved(Configuration& configuration) {
    const test::TemporaryFolder folder;
    configuration.save(*systemFileOperations(), folder.file("config.xml"));
    return folder.read("config.xml");
}

} // namespace

TEST(Configuration, AFreshFileHoldsTheDefaultsInOrder) {
    Configuration configuration;
    configuration.createFresh("C:\\FS9");
    EXPECT_EQ(saved(configuration), "<Configuration>\r\n"
                                    "<FsPath>C:\\FS9</FsPath>\r\n"
                                    "<MDLPath/>\r\n"
                                    "<XMLPath/>\r\n"
                                    "<frmPreview align=\"4\" docked=\"1\" visible=\"1\"/>\r\n"
                                    "<frmObjProp align=\"4\" docked=\"1\" visible=\"1\"/>\r\n"
                                    "<frmObjTree align=\"3\" docked=\"1\" visible=\"1\"/>\r\n"
                                    "</Configuration>\r\n");
}

TEST(Configuration, UnknownElementsAndHandEditsSurvive) {
    const test::TemporaryFolder folder;
    const std::string text =
        "<?xml version=\"1.0\"?>\r\n<Configuration>\r\n<!-- mine -->\r\n<FsPath>\r\n D:\\FS9\\ \r\n"
        "</FsPath>\r\n<Other a=\"1\">\r\n<Deep/>\r\n</Other>\r\n<XMLPath>\r\n</XMLPath>\r\n"
        "</Configuration>\r\n";
    Configuration configuration;
    EXPECT_EQ(configuration.load(folder.write("config.xml", text)), std::nullopt);
    EXPECT_EQ(configuration.fsPath(), "D:\\FS9") << "blanks and the last separator are dropped";
    EXPECT_EQ(configuration.xmlPath(), "") << "an element that holds only a line break is empty";
    configuration.setXmlPath("a & b.xml");
    const std::string written = saved(configuration);
    EXPECT_NE(written.find("<!-- mine -->"), std::string::npos);
    EXPECT_NE(written.find("<Other a=\"1\">\r\n<Deep/>\r\n</Other>"), std::string::npos);
    EXPECT_NE(written.find("<XMLPath>a &amp; b.xml</XMLPath>"), std::string::npos);
    EXPECT_THROW((void)configuration.mdlPath(), RuntimeError)
        << "a removed setting is an error, not a default";
}

TEST(Configuration, TwoProgramsLoseNothingOfEachOther) {
    const test::TemporaryFolder folder;
    const auto files = systemFileOperations();
    const std::string path = folder.file("config.xml");
    const auto loaded = [&] {
        auto configuration = std::make_unique<Configuration>();
        EXPECT_EQ(configuration->load(path), std::nullopt);
        return configuration;
    };
    {
        Configuration first;
        first.createFresh("C:\\FS9");
        first.setLastFiles({"a", "b", "c", "d", "e", "f", "g"});
        first.ensureBglPath("a.xml");
        first.ensureBglPath("b.xml");
        first.save(*files, path);
    }
    const auto one = loaded();
    const auto two = loaded();
    one->addLibrary(LibraryKind::user, "one.xml");
    one->setMdlPath("one");
    one->setXmlPath("one");
    one->setBglOutput(0, "one.bgl");
    one->setBglOutput(1, "one.bgl");
    one->setLastFiles({"one", "a", "b", "c", "d", "e", "f", "g"});
    one->setLayout("frmPreview", {1, false, false});
    two->addLibrary(LibraryKind::rwy12, "two.xml");
    two->setXmlPath("two");
    two->setBglOutput(1, "two.bgl");
    two->setLastFiles({"two", "a", "b", "c", "d", "e", "f", "g"});
    one->save(*files, path);
    two->save(*files, path);

    const auto both = loaded();
    EXPECT_EQ(both->libraries(LibraryKind::user), std::vector<std::string>{"one.xml"});
    EXPECT_EQ(both->libraries(LibraryKind::rwy12), std::vector<std::string>{"two.xml"});
    EXPECT_EQ(both->mdlPath(), "one");
    EXPECT_EQ(both->xmlPath(), "two") << "what both have set: the last one";
    EXPECT_EQ(both->bglPaths(), (std::vector<BglPath>{{"a.xml", "one.bgl"}, {"b.xml", "two.bgl"}}));
    EXPECT_EQ(both->layout("frmPreview"), (WindowLayout{1, false, false}));
    EXPECT_EQ(both->lastFiles(), (std::vector<std::string>{"two", "one", "a", "b", "c", "d", "e", "f"}))
        << "never more than the menu has room for";
    const std::string once = folder.read("config.xml");
    both->save(*files, path);
    EXPECT_EQ(folder.read("config.xml"), once);
}

TEST(Configuration, OneOutputPathForEachSceneryFile) {
    const struct {
        const char* scenery;
        const char* output;
    } rows[] = {
        {"c:\\s\\airport.xml", "c:\\s\\airport.bgl"},
        {"c:\\a.xml\\b.xml", "c:\\a.bgl\\b.bgl"},
        {"c:\\s\\noextension", "c:\\s\\noextension.bgl"},
        {"c:\\s\\scenery.txt", "c:\\s\\scenery.txt.bgl"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(defaultBglPath(row.scenery), row.output);

    Configuration configuration;
    configuration.createFresh("C:\\FS9");
    configuration.ensureBglPath("c:\\S\\one.xml");
    configuration.ensureBglPath("C:\\s\\ONE.XML");
    configuration.ensureBglPath("c:\\s\\two.xml");
    ASSERT_EQ(configuration.bglPaths().size(), 2u) << "another spelling of the same file";
    configuration.setBglOutput(1, "D:\\Out.BGL");
    EXPECT_EQ(configuration.bglPaths()[1], (BglPath{"c:\\s\\two.xml", "D:\\Out.BGL"}));
    EXPECT_THROW(configuration.setBglOutput(2, "x"), RuntimeError);
}

TEST(RecentFiles, EightEntriesMostRecentFirst) {
    Configuration configuration;
    configuration.createFresh("C:\\FS9");
    RecentFiles recent(configuration);
    for (int i = 1; i <= 9; ++i)
        recent.add("file" + std::to_string(i));
    using Paths = std::vector<std::string>;
    EXPECT_EQ(recent.paths(),
              (Paths{"file9", "file8", "file7", "file6", "file5", "file4", "file3", "file2"}));
    recent.add("file5");
    EXPECT_EQ(recent.paths(),
              (Paths{"file5", "file9", "file8", "file7", "file6", "file4", "file3", "file2"}));
    recent.add("FILE5");
    EXPECT_EQ(recent.paths()[1], "file5") << "compared exactly";
    recent.remove("file9");
    EXPECT_EQ(recent.paths().size(), 7u);
    EXPECT_EQ(configuration.lastFiles(), recent.paths());
}
