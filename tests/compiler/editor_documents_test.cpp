// What the editor writes by itself, the compiler takes without a word.

#include "compiled.h"
#include "document/new_placement.h"
#include "document/roof_types.h"
#include "document/scenery_document.h"

#include <gtest/gtest.h>

using namespace quillset;
using namespace quillset::compiler::test;

TEST(EditorDocuments, EveryKindEverywhere) {
    SceneryDocument document;
    document.create("new.xml");
    const std::string guid = "4808A0B04D43FC5620867D91FC8C6EB3";
    const NewPlacement placements[] = {
        {guid, 52.123456789012345, 5.2, 359.99999999999994},
        {"smoke.fx", 90, -180, 0},
        {"multisided", -90, 180, 360},
        {"pyramidal", 1e-9, -1e-300, 1e-20},
        {"rectangular", 0.1 + 0.2, 1.0 / 3, 180},
    };
    for (const NewPlacement& placement : placements)
        addPlacement(document, placement, {});
    for (const char* roof : {"SLANT", "PEAKED", "RIDGE", "FLAT"}) {
        const std::size_t index = addPlacement(document, {"rectangular", 1, 2, 3}, {});
        const pugi::xml_node generic = document.placement(index).child("GenericBuilding");
        generic.child("RectangularBuilding").attribute("roofType").set_value(roof);
        reshapeRoof(document, index);
    }
    const Compiled made = compiled(document.serialise());
    EXPECT_EQ(made.messages, std::vector<std::string>{});
    EXPECT_EQ(made.result.placements, std::size(placements) + 4);
    const std::string listing = listed(made.bytes);
    for (const char* part : {" FLAT ", " SLANT ", " PEAKED ", " RIDGE ", " PYRAMIDAL ", " MULTISIDED ",
                             "Effect", "LibraryObject"})
        EXPECT_NE(listing.find(part), std::string::npos) << part << '\n' << listing;
}
