#include "document/scenery_check.h"

#include "document/placement_ranges.h"
#include "document/scenery_document.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace quillset {
void PrintTo(const SceneryFinding& finding, std::ostream* out) {
    *out << findingName(finding.kind) << " row " << finding.row << " line " << finding.line << " "
         << finding.what << ": " << finding.why;
}
} // namespace quillset

namespace {

const std::string tower = "4808A0B04D43FC5620867D91FC8C6EB3";
const std::string object = "<LibraryObject name=\"" + tower + "\"/>";

std::string placement(const std::string& attributes, const std::string& content = object) {
    return "<SceneryObject " + attributes + ">" + content + "</SceneryObject>\n";
}

/// What the check finds in a file that holds `content` from its second line on, in a world where the tower,
/// the effect "smoke.fx" and the model file "there.mdl" are all there is.
std::vector<SceneryFinding> findingsIn(const std::string& content) {
    const test::TemporaryFolder folder;
    const std::string bytes = "<FSData>\n" + content + "</FSData>";
    SceneryDocument document;
    EXPECT_TRUE(document.load(folder.write("a.xml", bytes)).ok) << content;
    return checkScenery(document, PlacementRanges(bytes),
                        {[](std::string_view guid) { return guid == tower; },
                         [](std::string_view effect) { return effect == "smoke.fx"; },
                         [](const std::string& file) { return file == "there.mdl"; }});
}

std::string building(const std::string& height) {
    return "<GenericBuilding scale=\"1\"><RectangularBuilding sizeX=\"4\" sizeBottomY=\"" + height +
           "\"/></GenericBuilding>";
}

} // namespace

TEST(SceneryCheck, WhatIsFineIsNotFound) {
    const std::string rows[] = {
        placement("lat=\"52.1\" lon=\"-180\" alt=\"12.5F\" heading=\"-725.5\" pitch=\"0\" bank=\"1e1\""),
        placement("lat=\"N43 04.6550\" lon=\"W070* 49.4533\" alt=\" 0M \""),
        placement("lat=\"1\" lon=\"2\"", "<Effect effectName=\"smoke.fx\" effectParams=\"\"/>"),
        placement("lat=\"1\" lon=\"2\"", "<Windsock poleHeight=\"4\"/>"),
        placement("lat=\"1\" lon=\"2\"", "<LibraryObject name=\"{4808a0b0-fc56-4d43-917d-8620b36e8cfd}\"/>") +
            "<ModelData name=\"4808A0B04D43FC5620867D91FD8C6EB3\" sourceFile=\"there.mdl\"/>",
        placement("lat=\"1\" lon=\"2\"") + placement("lat=\"1\" lon=\"2.0000002\""),
        placement("lat=\"1\" lon=\"2\"") + placement("lat=\"1\" lon=\"2\" alt=\"0.5M\""),
        placement("lat=\"1\" lon=\"2\"", building("10")) + placement("lat=\"1\" lon=\"2\"", building("20")),
        placement("lat=\"1\" lon=\"2\"", "<Windsock/>") + placement("lat=\"1\" lon=\"2\"", "<Windsock/>"),
    };
    for (const std::string& row : rows)
        EXPECT_EQ(findingsIn(row), std::vector<SceneryFinding>()) << row;
}

TEST(SceneryCheck, FindsEachKind) {
    using Kind = FindingKind;
    const std::string latitudes = "; allowed: from -90 to 90, or a text such as N43 04.6550";
    const std::string other = "4808A0B04D43FC5620867D91FC8C6EB4";
    const struct {
        const char* name;
        std::string content;
        SceneryFinding finding;
    } rows[] = {
        {"out of range",
         placement("lat=\"90.1\" lon=\"5\""),
         {Kind::coordinate, 1, 2, "lat=\"90.1\"", "out of range" + latitudes}},
        {"out of range as a text",
         placement("lat=\"N91 0\" lon=\"5\""),
         {Kind::coordinate, 1, 2, "lat=\"N91 0\"", "not a number" + latitudes}},
        {"no number",
         placement("lat=\"north\" lon=\"5\""),
         {Kind::coordinate, 1, 2, "lat=\"north\"", "not a number" + latitudes}},
        {"no value",
         placement("lat=\" \" lon=\"5\""),
         {Kind::coordinate, 1, 2, "lat=\" \"", "has no value" + latitudes}},
        {"missing", placement("lon=\"5\""), {Kind::coordinate, 1, 2, "lat", "missing" + latitudes}},
        {"decimal comma",
         placement("lat=\"1\" lon=\"5,25\""),
         {Kind::coordinate, 1, 2, "lon=\"5,25\"", "a decimal comma; write a point"}},
        {"altitude",
         placement("lat=\"1\" lon=\"5\" alt=\"10 feet\""),
         {Kind::coordinate, 1, 2, "alt=\"10 feet\"",
          "not a number; allowed: a number that may end in M (metres) or F (feet), within 2147483 metres"}},
        {"heading",
         placement("lat=\"1\" lon=\"5\" heading=\"east\""),
         {Kind::coordinate, 1, 2, "heading=\"east\"", "not a number; allowed: a number of degrees"}},
        {"unknown object",
         placement("lat=\"1\" lon=\"5\"", "<LibraryObject name=\"" + other + "\"/>"),
         {Kind::unknownObject, 1, 2, other, "neither in a known library nor a model of this file"}},
        {"no GUID",
         placement("lat=\"1\" lon=\"5\"", "<LibraryObject/>"),
         {Kind::unknownObject, 1, 2, "", "not a GUID"}},
        {"unknown effect",
         placement("lat=\"1\" lon=\"5\"", "<Effect effectName=\"fog.fx\"/>"),
         {Kind::unknownEffect, 1, 2, "fog.fx", "no such effect in the simulator's effects folder"}},
        {"the same object in another spelling",
         placement("lat=\"1.5\" lon=\"5\"") + "\n<!--text-->\n" +
             placement("lat=\"N1 30\" lon=\"5.00\" alt=\"0M\" heading=\"90\""),
         {Kind::duplicate, 2, 5, tower, "the same as row 1, at the same place"}},
        {"the same building",
         placement("lat=\"1\" lon=\"5\"", building("10")) + placement("lat=\"1\" lon=\"5\"", building("10")),
         {Kind::duplicate, 2, 3, "rectangular", "the same as row 1, at the same place"}},
        {"missing model",
         "\n<ModelData name=\"" + other + "\" sourceFile=\"gone.mdl\"/>",
         {Kind::missingModel, 0, 3, "gone.mdl", "the model's file is not there"}},
        {"model without a file",
         "<ModelData name=\"" + other + "\"/>",
         {Kind::missingModel, 0, 2, other, "the model names no file"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(findingsIn(row.content), std::vector{row.finding}) << row.name;
}

TEST(SceneryCheck, EveryRowIsLookedAtAndTheModelsComeLast) {
    const std::vector<SceneryFinding> findings =
        findingsIn("<ModelData name=\"x\" sourceFile=\"gone.mdl\"/>\n" + placement("lat=\"x\" lon=\"y\"") +
                   "<Group>" + placement("lat=\"1\" lon=\"2\"", "<Effect effectName=\"fog\"/>") + "</Group>");
    std::vector<std::pair<std::size_t, std::size_t>> places;
    for (const SceneryFinding& finding : findings)
        places.emplace_back(finding.row, finding.line);
    EXPECT_EQ(places, (std::vector<std::pair<std::size_t, std::size_t>>{{1, 3}, {1, 3}, {2, 4}, {0, 2}}));
}
