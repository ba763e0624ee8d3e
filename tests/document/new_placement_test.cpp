#include "document/new_placement.h"
#include "document/scenery_document.h"

#include <gtest/gtest.h>

namespace quillset {
namespace {

constexpr const char* rootTag =
    "<FSData version=\"9.0\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    "xsi:noNamespaceSchemaLocation=\"bglcomp.xsd\"";

std::string placed(const std::string& comment, const std::string& child) {
    return "<!--" + comment +
           "--><SceneryObject lat=\"52.1\" lon=\"5.2\" alt=\"0M\" pitch=\"0.0\" bank=\"0.0\" heading=\"90\" "
           "altitudeIsAgl=\"TRUE\" imageComplexity=\"NORMAL\">" +
           child + "</SceneryObject>";
}

TEST(NewPlacement, WritesEachKindAsTheCompilerExpectsIt) {
    SceneryDocument document;
    document.create("new.xml");
    EXPECT_EQ(document.serialise(), rootTag + std::string("/>"));

    for (const char* key : {"4808A0B04D43FC5620867D91FC8C6EB3", "my.fx", "MY.FX"})
        addPlacement(document, {key, 52.1, 5.2, 90}, std::nullopt);
    const std::string generic = "<LibraryObject name=\"4808A0B04D43FC5620867D91FC8C6EB3\" scale=\"1.0\"/>";
    EXPECT_EQ(document.serialise(),
              rootTag + std::string(">") + placed("Object 1", generic) +
                  placed("Object 2", "<Effect effectName=\"my.fx\" effectParams=\"\"/>") +
                  placed("Object 3", "<LibraryObject name=\"MY.FX\" scale=\"1.0\"/>") + "</FSData>");
}

} // namespace
} // namespace quillset
