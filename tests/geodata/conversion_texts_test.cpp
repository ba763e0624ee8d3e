#include "geodata/conversion_texts.h"

#include <gtest/gtest.h>

using namespace quillset;

TEST(ConversionTexts, TypedTextsAreReadLeniently) {
    struct Row {
        const char* x;
        const char* y;
        const char* separator;
        const char* lat;
        const char* lon;
    };
    const Row rows[] = {
        {"155000", "463000", ".", "52.1551732749981", "5.38720358836977"},
        {"155000", "463000", ",", "52,1551732749981", "5,38720358836977"},
        {"  121000,5", "487000 m", ".", "52.3698269751196", "4.88797016841449"},
        {"", "", ".", "47.9747670308824", "3.31358463161248"},
        {"x", "-", ".", "47.9747670308824", "3.31358463161248"},
    };
    for (const Row& row : rows) {
        const ConversionTexts texts = conversionTexts(row.x, row.y, row.separator);
        EXPECT_EQ(texts.latitude, row.lat) << row.x;
        EXPECT_EQ(texts.longitude, row.lon) << row.x;
    }
    EXPECT_EQ(conversionTexts("1e400", "0", ".").latitude, std::nullopt);
}

TEST(ConversionTexts, OnlyTheSeparatorIsAlteredForTheDocument) {
    EXPECT_EQ(textForDocument("52,155 x", ","), "52.155 x");
    EXPECT_EQ(textForDocument("52,155", "."), "52.155");
    EXPECT_EQ(textForDocument("52\u066B155", "\u066B"), "52.155");
    EXPECT_EQ(textForDocument(" N52 9.3 ", "."), " N52 9.3 ");
}
