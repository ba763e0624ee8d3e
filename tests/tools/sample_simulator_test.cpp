// Whether the programs that read such files accept the sample simulator.
#include "catalogue/catalogue_tree.h"
#include "compiler/model_file.h"
#include "sample_simulator/sample_files.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace quillset::test {
namespace {

class SampleSimulatorTest : public ::testing::Test {
protected:
    SampleSimulatorTest() {
        for (const SampleFile& file : sampleSimulator())
            folder.write(file.path, file.bytes);
        tree.rescanObjTree({std::string(QUILLSET_DATA) + "/generic.xml",
                            folder.path(),
                            {folder.file("libraries/Sample user library.xml")},
                            {folder.file("libraries/Sample Rwy12 library.xml")},
                            {}});
    }
    [[nodiscard]] std::size_t childrenOf(const char* key) const {
        return tree.nodes().at(tree.nodes().find(key).value()).children.size();
    }

    TemporaryFolder folder;
    ScriptedDialogs dialogs;
    ErrorFunctions errors{dialogs, [] {}, [] {}};
    CatalogueTree tree{dialogs, errors};
};

TEST_F(SampleSimulatorTest, TheCatalogueShowsAllOfIt) {
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(childrenOf("effects"), 12U);
    EXPECT_EQ(childrenOf("Sample user library.xml"), 5U);
    EXPECT_EQ(childrenOf("Sample Rwy12 library.xml"), 4U);
    EXPECT_EQ(tree.getObjectName("5E6B1C0947A24F0D8C31A70000000003"), "qs_tower.mdl");
    EXPECT_EQ(tree.getObjectName("5E6B1C0947A24F0D8C31A70000000012"), "Lighthouse, blue bands");
}

TEST_F(SampleSimulatorTest, TheCompilerKnowsItsModels) {
    std::size_t models = 0;
    for (const SampleFile& file : sampleSimulator()) {
        if (!file.path.starts_with("models/"))
            continue;
        ++models;
        const compiler::ModelFile model = compiler::inspectModel(folder.file(file.path));
        EXPECT_EQ(model.form, "MDL9") << file.path;
        const auto size = static_cast<unsigned char>(file.bytes.at(4));
        EXPECT_EQ(size + 8U, file.bytes.size());
    }
    EXPECT_EQ(models, 5U);
}

} // namespace
} // namespace quillset::test
