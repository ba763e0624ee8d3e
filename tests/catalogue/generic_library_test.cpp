#include "base/atomic_file.h"
#include "catalogue_fixture.h"
#include "generic_maker/generic_library.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <stdexcept>

namespace quillset::test {
namespace {

const std::string dataFolder = QUILLSET_DATA;

TEST(GenericLibrary, HoldsEveryObjectOfTheListOnceAndNothingElse) {
    std::map<std::string, std::string> listed;
    std::istringstream list(readWholeFile(dataFolder + "/library-objects.tsv"));
    std::string line;
    std::getline(list, line);
    while (std::getline(list, line)) {
        std::istringstream row(line);
        std::string name;
        std::string guid;
        std::getline(row, name, '\t');
        std::getline(row, guid, '\t');
        EXPECT_TRUE(listed.emplace(guid, name).second) << guid;
    }
    EXPECT_EQ(listed.size(), 2013U);

    CatalogueFixture catalogue;
    catalogue.sources.genericFile = dataFolder + "/generic.xml";
    catalogue.rescan();
    EXPECT_TRUE(catalogue.dialogs.messages.empty());
    const CatalogueNodes& nodes = catalogue.tree.nodes();
    EXPECT_EQ(nodes.at(*nodes.find("generic")).children.size(), listed.size());
    for (const auto& [guid, name] : listed)
        EXPECT_EQ(catalogue.tree.getObjectName(guid), name);
}

TEST(GenericLibrary, IsMadeFromTheList) {
    EXPECT_EQ(genericLibrary(readWholeFile(dataFolder + "/library-objects.tsv")),
              readWholeFile(dataFolder + "/generic.xml"));
}

TEST(GenericLibrary, SortsEscapesAndFolds) {
    EXPECT_EQ(genericLibrary("name\tguid\n"
                             "b<&\t0123456789abcdef0123456789ABCDEF\tA\r\n"
                             "A\t00000000000000000000000000000001"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ObjectLibrary>\n"
              "<LibraryObject><name>A</name><guid>00000000000000000000000000000001</guid></LibraryObject>\n"
              "<LibraryObject><name>b&lt;&amp;</name><guid>0123456789ABCDEF0123456789ABCDEF</guid>"
              "</LibraryObject>\n</ObjectLibrary>\n");
}

TEST(GenericLibrary, RefusesBadRows) {
    const std::string good = "a\t0123456789abcdef0123456789abcdef\tA\n";
    for (const std::string& row : {std::string("b\t0123\n"), std::string("\n"), std::string("b\n"),
                                   std::string("\t1123456789abcdef0123456789abcdef\n"),
                                   std::string("b\tg123456789abcdef0123456789abcdef\n"),
                                   std::string("b\a\t1123456789abcdef0123456789abcdef\n"), good})
        EXPECT_THROW((void)genericLibrary("name\tguid\n" + good + row), std::runtime_error) << row;
}

} // namespace
} // namespace quillset::test
