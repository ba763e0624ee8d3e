#include "catalogue/folder_listing.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace quillset::test {
namespace {

using Names = std::vector<std::string>;

TEST(FolderListing, TakesFilesByTheEndOfTheirNamesSortedWithoutCase) {
    const TemporaryFolder folder;
    for (const char* name : {"b.fx", "A.FX", "fx_Zündung.fX", "smokefx", "C.Fx", "fx.txt", "x.fx.bak", "f"})
        folder.write(name, "");
    folder.write("folder.fx/inner.fx", "");
    EXPECT_EQ(filesEndingIn(folder.path(), "fx").usable,
              (Names{"A.FX", "b.fx", "C.Fx", "fx_Zündung.fX", "smokefx"}));
    EXPECT_EQ(filesEndingIn(folder.file("none"), "fx").usable, Names{});
    EXPECT_EQ(filesEndingIn(folder.file("b.fx"), "fx").usable, Names{});
}

TEST(FolderListing, FindsTheEffectsFolderHoweverItIsSpelled) {
    const TemporaryFolder folder;
    EXPECT_EQ(effectsFolder(folder.path()), std::nullopt);
    EXPECT_EQ(effectsFolder(""), std::nullopt);
    folder.write("EFFECTS/a.fx", "");
    const auto found = effectsFolder(folder.path());
    ASSERT_TRUE(found);
    EXPECT_EQ(filesEndingIn(*found, "fx").usable, Names{"a.fx"});
}

} // namespace
} // namespace quillset::test
