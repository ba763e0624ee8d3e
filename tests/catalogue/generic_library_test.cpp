#include "base/atomic_file.h"
#include "catalogue_fixture.h"
#include "generic_maker/generic_library.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

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

} // namespace
} // namespace quillset::test
