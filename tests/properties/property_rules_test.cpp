#include "properties/property_rules.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillset {
namespace {

TEST(PropertyRules, editorsAndTheirLimits) {
    struct Case {
        const char* name;
        EditorKind kind;
        std::string firstItem;
        std::size_t itemCount;
        SpinLimits limits;
    };
    const std::vector<Case> cases{
        {"imageComplexity", EditorKind::list, "VERY_SPARSE", 6, {}},
        {"roofType", EditorKind::list, "FLAT", 4, {}},
        {"roofTexture", EditorKind::spin, "", 0, {0, 37}},
        {"windowTexture", EditorKind::spin, "", 0, {0, 84}},
        {"buildingSides", EditorKind::spin, "", 0, {3, 999}},
        {"lat", EditorKind::text, "", 0, {}},
        {"RoofType", EditorKind::text, "", 0, {}}, // names are case-sensitive
        {"", EditorKind::text, "", 0, {}},
    };
    for (const Case& c : cases) {
        const EditorChoice choice = editorFor(c.name);
        EXPECT_EQ(choice.kind, c.kind) << c.name;
        ASSERT_EQ(choice.items.size(), c.itemCount) << c.name;
        EXPECT_EQ(choice.items.empty() ? "" : choice.items.front(), c.firstItem) << c.name;
        EXPECT_EQ(choice.limits, c.limits) << c.name;
    }
}

/// The printable ASCII characters that the filter lets through, in code order.
std::string acceptedOf(std::string_view name) {
    std::string accepted;
    for (char c = ' '; c <= '~'; ++c) {
        if (acceptsCharacter(name, static_cast<char32_t>(c)))
            accepted += c;
    }
    return accepted;
}

TEST(PropertyRules, charactersByRow) {
    for (const char* name : {"lon", "lat", "heading", "pitch", "bank", "scale"})
        EXPECT_EQ(acceptedOf(name), " ,-.0123456789") << name;
    EXPECT_EQ(acceptedOf("alt"), "-.0123456789FM");
    EXPECT_EQ(acceptedOf("comment").size(), 95U);
    EXPECT_EQ(acceptedOf("effectParam").size(), 95U);
    for (const char* name : {"effectParams", "sizeX", "roofType", "name", "Lat", "unheard of"})
        EXPECT_EQ(acceptedOf(name), "0123456789") << name;
    EXPECT_TRUE(acceptsCharacter("comment", U'\u20AC'));
    EXPECT_FALSE(acceptsCharacter("lat", U'\u0661')) << "digits of other scripts are no digits here";
}

} // namespace
} // namespace quillset
