#include "base/registry.h"

#include <gtest/gtest.h>

using namespace quillset;

TEST(Registry, ReadsTheSystemsOwn) {
    const auto registry = systemRegistry();
    const char* const key = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    const std::string version = registry->text(key, "CurrentVersion");
    EXPECT_NE(version.find('.'), std::string::npos) << version;
    EXPECT_EQ(version.find('\0'), std::string::npos);
    EXPECT_EQ(registry->text(key, "No such value"), "");
    EXPECT_EQ(registry->text("SOFTWARE\\No such key", "CurrentVersion"), "");
    EXPECT_EQ(registry->nativePath("C:\\x"), "C:\\x");
}
