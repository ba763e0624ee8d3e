// Models: their files, their GUIDs and their place in the output.

#include "base/runtime_error.h"
#include "compiled.h"
#include "compiler/model_check.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset::compiler;
using namespace quillset::compiler::test;
using quillset::test::TemporaryFolder;

namespace {

const std::string low = "00000001000000000000000000000000";  // bytes 01 00 00 ...
const std::string high = "00000100000000000000000000000000"; // bytes 00 01 00 ...: the smaller ones

std::string modelData(const std::string& name, const std::string& file) {
    return "<ModelData name=\"" + name + "\" sourceFile=\"" + file + "\"/>";
}

std::string firstMessage(const std::string& xml, const TemporaryFolder& folder,
                         const CompileOptions& options = {}) {
    const Compiled made = compiled(xml, options, folder.path());
    return made.messages.empty() ? "none" : made.messages.front();
}

std::string laterModel(const std::string& guid) {
    return "RIFF" + bytesOf("38000000") + "MDLX" + "MDLH" + bytesOf("03000000") + "abc" +
           bytesOf("00") + // made even
           "MDLG" + bytesOf("10000000") + guid + "MDLD" + bytesOf("00000000");
}

} // namespace

TEST(Models, LieInTheOrderOfTheirGuidsWithoutPadding) {
    const TemporaryFolder folder;
    folder.write("A.mdl", "RIFFxxxxMDL9odd");
    folder.write("sub/b.mdl", "RIFFyyyyMDL9even");
    const Compiled made =
        compiled(document(modelData(low, "a.MDL") + modelData(high, "sub\\B.mdl")), {}, folder.path());
    EXPECT_EQ(made.messages, std::vector<std::string>{});
    const std::string pointers = "2b000000 05000000 01000000 4c000000 10000000"
                                 "00000000 02000000 5c000000 4f000000";
    EXPECT_EQ(digitsOf(made.bytes.substr(0x18, 12)), "020000000000000000000000"); // the whole world
    EXPECT_EQ(digitsOf(made.bytes.substr(0x38)),
              digitsOf(bytesOf(pointers + "00010000 00000000 00000000 00000000 30000000 10000000"
                                          "01000000 00000000 00000000 00000000 40000000 0f000000") +
                       "RIFFyyyyMDL9evenRIFFxxxxMDL9odd"));
    EXPECT_EQ(listed(made.bytes), "header cells 0x2 (level 0)\n"
                                  "section 0x2b class 5: 1 parts\n"
                                  "  model " +
                                      high +
                                      " {00000100-0000-0000-0000-000000000000} 16 bytes MDL9\n"
                                      "  model " +
                                      low + " {00000001-0000-0000-0000-000000000000} 15 bytes MDL9\n");
}

TEST(Models, PlacementsAndModelsInOneFile) {
    const TemporaryFolder folder;
    folder.write("a.mdl", "RIFFxxxxMDL9odd");
    const Compiled made = compiled(document("<SceneryObject lat=\"52.1\" lon=\"5.2\"><LibraryObject name=\"" +
                                            low + "\"/></SceneryObject>" + modelData(low, "a.mdl")),
                                   {}, folder.path());
    EXPECT_EQ(listed(made.bytes), "header cells 0x85a33 (level 9)\n"
                                  "section 0x25 class 1: 1 parts\n"
                                  " cell 0x85a33e level 11: 1 records, 48 bytes\n"
                                  "  LibraryObject guid=" +
                                      low +
                                      " scale=1 lat=52.1000000 lon=5.2000000 alt=0.000 pitch=0.0000 "
                                      "bank=0.0000 heading=0.0000 complexity=0\n"
                                      "section 0x2b class 5: 1 parts\n"
                                      "  model " +
                                      low + " {00000001-0000-0000-0000-000000000000} 15 bytes MDL9\n");
}

TEST(Models, FilesThatCannotBeUsed) {
    const TemporaryFolder folder;
    folder.write("good.mdl", "RIFFxxxxMDL9");
    folder.write("folder/x", "");
    folder.write("empty.mdl", "");
    folder.write("text.mdl", "no model");
    folder.write("later.mdl", laterModel("0123456789abcdef"));
    const std::pair<std::string, std::string> rows[] = {
        {"none.mdl", "error: <ModelData> sourceFile=\"none.mdl\": the model file does not exist: " +
                         folder.file("none.mdl")},
        {"folder", "error: <ModelData> sourceFile=\"folder\": the model is not a file but a folder: " +
                       folder.file("folder")},
        {"empty.mdl",
         "error: <ModelData> sourceFile=\"empty.mdl\": the model file is empty: " + folder.file("empty.mdl")},
        {"", "error: <ModelData> sourceFile=\"\": this value is not allowed; allowed: the path of a file"},
        {"text.mdl",
         "warning: <ModelData> sourceFile=\"text.mdl\": this is no model file (RIFF); it is copied as it is"},
        {"later.mdl",
         "warning: <ModelData> sourceFile=\"later.mdl\": a model of the later simulator, which FS2004 "
         "does not show"},
    };
    for (const auto& [file, message] : rows)
        EXPECT_EQ(firstMessage(document(modelData(low, file)), folder), "s.xml(1,74): " + message);
    EXPECT_EQ(
        firstMessage(document("<ModelData sourceFile=\"good.mdl\"/>"), folder),
        "s.xml(1,23): error: <ModelData>: the attribute name is missing; allowed: 32 hexadecimal digits, or "
        "{8-4-4-4-12} hexadecimal digits");
    const std::string twice = document(modelData(low, "good.mdl") + "\n" +
                                       modelData("{00000001-0000-0000-0000-000000000000}", "text.mdl"));
    EXPECT_EQ(compiled(twice, {}, folder.path()).messages.back(),
              "s.xml(2,12): error: <ModelData> name=\"{00000001-0000-0000-0000-000000000000}\": the model at "
              "1,34 has the same GUID; allowed: each once");
}

TEST(Models, OfTheLaterSimulatorBringTheirGuid) {
    const TemporaryFolder folder;
    const std::string guid = bytesOf("b0a00848 56fc434d 917d8620 b36e8cfc");
    folder.write("later.mdl", laterModel(guid));
    folder.write("old.mdl", "RIFFxxxxMDL9");
    folder.write("cut.mdl", laterModel(guid).substr(0, 40));
    const std::string name = "4808A0B04D43FC5620867D91FC8C6EB3";
    for (const std::string& xml :
         {std::string("<ModelData sourceFile=\"later.mdl\"/>"), modelData(name, "later.mdl")}) {
        const Compiled made = compiled(document(xml), forFsx(), folder.path());
        EXPECT_EQ(made.messages, std::vector<std::string>{});
        EXPECT_EQ(digitsOf(made.bytes.substr(0x5c, 16)), digitsOf(guid));
    }
    EXPECT_EQ(firstMessage(document(modelData(low, "later.mdl")), folder, forFsx()),
              "s.xml(1,34): error: <ModelData> name=\"" + low +
                  "\": another GUID than the one in the model file; allowed: "
                  "that one, "
                  "or no name");
    for (const std::string file : {"old.mdl", "cut.mdl"})
        EXPECT_EQ(firstMessage(document("<ModelData sourceFile=\"" + file + "\"/>"), folder, forFsx()),
                  "s.xml(1,34): error: <ModelData> sourceFile=\"" + file +
                      "\": the model holds no GUID (chunk MDLG), which the target fsx needs");
}

TEST(Models, AFileThatChangesAfterItWasLookedAtIsNotCopied) {
    struct Change {
        const char* name;
        void (*change)(const TemporaryFolder&);
    };
    const Change changes[] = {
        {"longer", [](const TemporaryFolder& folder) { folder.write("a.mdl", "RIFFxxxxMDL9 and more"); }},
        {"shorter", [](const TemporaryFolder& folder) { folder.write("a.mdl", "RIFF"); }},
        {"gone",
         [](const TemporaryFolder& folder) {
             std::filesystem::remove(quillset::toPath(folder.file("a.mdl")));
         }},
        {"touched",
         [](const TemporaryFolder& folder) {
             const auto path = quillset::toPath(folder.file("a.mdl"));
             std::filesystem::last_write_time(path,
                                              std::filesystem::last_write_time(path) + std::chrono::hours(1));
         }},
    };
    for (const Change& change : changes) {
        const TemporaryFolder folder;
        folder.write("a.mdl", "RIFFxxxxMDL9");
        const ModelSection section({{quillset::GuidBytes{}, inspectModel(folder.file("a.mdl"))}});
        change.change(folder);
        EXPECT_THROW(section.write([](std::string_view) {}), quillset::RuntimeError) << change.name;
    }
}

TEST(Models, TooLargeForTheFormat) {
    const TemporaryFolder folder;
    folder.write("a.mdl", "RIFFxxxxMDL9");
    const auto file = [&](std::uintmax_t size) { // takes no room on the disk
        std::filesystem::resize_file(quillset::toPath(folder.file("a.mdl")), size);
        return inspectModel(folder.file("a.mdl"));
    };
    const ModelFile half = file(std::uintmax_t{1} << 31);
    EXPECT_THROW(ModelSection({{quillset::GuidBytes{1}, half}, {quillset::GuidBytes{2}, half}}),
                 quillset::RuntimeError);
    EXPECT_EQ(ModelSection({{quillset::GuidBytes{1}, half}}).size(), 24U + (1U << 31));
    EXPECT_THROW((void)file(std::uintmax_t{1} << 32), quillset::RuntimeError);
}
