#include "build/compiler_command.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace quillset;

TEST(CompilerCommand, TheBatchFileToTheByte) {
    EXPECT_EQ(
        compileBatch("C:\\Program Files\\Quillset XML"),
        "@echo off\r\nC:\r\ncd \"C:\\Program Files\\Quillset XML\"\r\n@echo on\r\nbglcomp compile.xml\r\n");
}

#ifndef _WIN32

namespace {

/// Sets PATH for one test.
class SearchPath {
public:
    explicit SearchPath(const std::string& value)
        : old_(std::getenv("PATH")) {
        setenv("PATH", value.c_str(), 1);
    }
    SearchPath(const SearchPath&) = delete;
    SearchPath& operator=(const SearchPath&) = delete;
    ~SearchPath() { setenv("PATH", old_.c_str(), 1); }

private:
    std::string old_;
};

void addProgram(const test::TemporaryFolder& folder, const std::string& name) {
    std::filesystem::permissions(toPath(folder.write(name, "#!/bin/sh\n")),
                                 std::filesystem::perms::owner_all);
}

} // namespace

TEST(CompilerCommand, WhichCompilerIsTaken) {
    const struct {
        const char* name;
        std::vector<std::string> files;
        std::vector<std::string> words;
        std::string linkToOurs = {};
    } rows[] = {
        {"the program folder first",
         {"program/bglcomp", "path/bglcomp", "program/bglcomp.exe", "path/wine"},
         {"program/bglcomp", "compile.xml"}},
        {"then the search path, though a Windows one is nearer",
         {"path/bglcomp", "program/bglcomp.exe", "path/wine"},
         {"path/bglcomp", "compile.xml"}},
        {"a Windows one through wine, before our own",
         {"program/BGLComp.exe", "path/bglcomp.exe", "path/wine", "own/bglcomp"},
         {"path/wine", "program/BGLComp.exe", "compile.xml"}},
        {"our own one does not count as installed when it is linked into the search path",
         {"path/wine", "program/bglcomp.exe", "own/bglcomp"},
         {"path/wine", "program/bglcomp.exe", "compile.xml"},
         "path/bglcomp"},
        {"our own one in the end, though linked",
         {"own/bglcomp"},
         {"bglcomp", "compile.xml"},
         "path/bglcomp"},
        {"a Windows one without wine is of no use", {"program/bglcomp.exe"}, {"bglcomp", "compile.xml"}},
        {"none: by name", {}, {"bglcomp", "compile.xml"}},
    };
    for (const auto& row : rows) {
        const test::TemporaryFolder folder;
        for (const std::string& file : row.files)
            addProgram(folder, file);
        if (!row.linkToOurs.empty()) {
            std::filesystem::create_directories(toPath(folder.file("path")));
            std::filesystem::create_symlink("../own/bglcomp", toPath(folder.file(row.linkToOurs)));
        }
        const SearchPath path(folder.file("path"));
        const ProcessRequest request = compilerCommand(folder.file("program"), {folder.file("own")});
        std::vector<std::string> words{request.program};
        words.insert(words.end(), request.arguments.begin(), request.arguments.end());
        for (std::string& word : words)
            if (word.starts_with(folder.path()))
                word.erase(0, folder.path().size() + 1);
        EXPECT_EQ(words, row.words) << row.name;
        EXPECT_EQ(request.surroundings.workingFolder, folder.file("program"));
    }
}

TEST(CompilerCommand, TheOneInUseIsTheOneThatWouldRun) {
    const test::TemporaryFolder folder;
    const SearchPath path(folder.file("path"));
    const auto inUse = [&] { return compilerInUse(folder.file("program"), {folder.file("own")}); };
    addProgram(folder, "program/bglcomp.exe");
    EXPECT_EQ(inUse(), std::nullopt) << "there is no Wine";
    addProgram(folder, "own/bglcomp");
    EXPECT_EQ(inUse(), folder.file("own/bglcomp"));
    addProgram(folder, "path/wine");
    EXPECT_EQ(inUse(), folder.file("program/bglcomp.exe") + ", run by " + folder.file("path/wine"));
    addProgram(folder, "path/bglcomp");
    EXPECT_EQ(inUse(), folder.file("path/bglcomp"));
}

#endif
