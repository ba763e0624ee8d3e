#include "base/wine_registry.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

constexpr const char* simulatorKey = "SOFTWARE\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0";

constexpr const char* registryFile = R"(WINE REGISTRY Version 2
;; All keys relative to \\Machine

#arch=win64

[Software\\Company] 1100000000
#time=1c4a9f0a0b0c0d0
"EXE Path"="wrong key"
@="default"

[Software\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0] 1100000000
"EXE Path"="D:\\64 bit"
"Only here"="here"

[Software\\Wow6432Node\\Microsoft\\Microsoft Games\\Flight Simulator\\9.0] 1100000000
#time=1c4a9f0a0b0c0d0
"EXE Paths"="wrong value"
"Data"=hex:01,02,\
  03
"Number"=dword:00000009
"EXE Path"="C:\\Program Files\\Flight Simulator 9"
"Escapes"="\"quoted\"\ttab \x20ac\xe9t\x00e9 \101 \xd83d\xde00 end\0cut"
"Expanded"=str(2):"%ProgramFiles%\\x"
"Open"="never closed
)";

} // namespace

TEST(WineRegistry, ReadsTextValues) {
    const test::TemporaryFolder prefix;
    prefix.write("system.reg", registryFile);
    const WineRegistry registry(prefix.path());
    const struct {
        const char* name;
        const char* value;
    } rows[] = {
        {"EXE Path", "C:\\Program Files\\Flight Simulator 9"},
        {"exe path", "C:\\Program Files\\Flight Simulator 9"},
        {"Only here", "here"},
        {"Escapes", "\"quoted\"\ttab €été A 😀 end"},
        {"Expanded", "%ProgramFiles%\\x"},
        {"Number", ""},
        {"Data", ""},
        {"Open", ""},
        {"Missing", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(registry.text(simulatorKey, row.name), row.value) << row.name;
    EXPECT_EQ(registry.text("Software\\Missing", "EXE Path"), "");
    EXPECT_EQ(WineRegistry(prefix.file("no prefix")).text(simulatorKey, "EXE Path"), "");
}

TEST(WineRegistry, FindsTheFilesOfAWindowsPath) {
    const test::TemporaryFolder prefix;
    prefix.write("drive_c/Program Files/Flight Simulator 9/FS9.EXE", "x");
    const WineRegistry registry(prefix.path());
    const auto native = [&](const char* path) { return toPath(registry.nativePath(path)); };
    const auto simulator = toPath(prefix.file("drive_c/Program Files/Flight Simulator 9"));
    EXPECT_EQ(native("C:\\Program Files\\Flight Simulator 9"), simulator);
    EXPECT_EQ(native("c:/PROGRAM FILES\\flight simulator 9\\"), simulator);
    EXPECT_EQ(native("C:\\Missing"), toPath(prefix.file("drive_c/Missing")));
    EXPECT_EQ(native("C:\\"), toPath(prefix.file("drive_c")));
    EXPECT_EQ(native("Q:\\No such drive"), "Q:\\No such drive");
    EXPECT_EQ(native(""), "");
    prefix.write("games/sim/fs9.exe", "x");
    std::filesystem::create_directory(toPath(prefix.file("dosdevices")));
    std::filesystem::create_symlink("../games", toPath(prefix.file("dosdevices/d:")));
    EXPECT_EQ(native("D:\\SIM\\"), toPath(prefix.file("games/sim")));
}
