#include "shell/program_files.h"
#include "shell/runtime_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillset;

TEST(RuntimeFiles, LooksInTheProgramFolderAndTheSystemFolders) {
    const test::TemporaryFolder folder;
    folder.write("program/own.dll", "x");
    folder.write("windows/system/old.dll", "x");
    folder.write("windows/system32/new.dll", "x");
    const RuntimeFiles files(folder.file("program"), folder.file("windows"));
    const std::vector<std::string> missing =
        files.missing({"none.dll", "own.dll", "old.dll", "gone.ocx", "new.dll"});
    EXPECT_EQ(missing, (std::vector<std::string>{"none.dll", "gone.ocx"}));
    EXPECT_EQ(missingRuntimeFilesText(missing),
              "The following runtime files could not be found in your Windows system folder\r\n"
              "or in the folder of Quillset XML. Please download the full installer version\r\n"
              "which includes all needed runtime files\r\n\r\nnone.dll\r\ngone.ocx");
    EXPECT_FALSE(RuntimeFiles(folder.file("program"), "").present("new.dll")) << "no windir";
}

TEST(ProgramFiles, TheCompilerOfAPackageIsFoundUnlessOneLiesBesideTheProgram) {
    const test::TemporaryFolder folder;
    const ProgramFiles files{folder.file("usr/bin"), folder.file("home"), folder.file("home")};
    EXPECT_EQ(toPath(files.compilerFolder()), toPath(folder.file("usr/bin/compiler")));
    folder.write("usr/libexec/quillset-xml/compiler/bglcomp", "x");
    EXPECT_EQ(toPath(files.compilerFolder()), toPath(folder.file("usr/libexec/quillset-xml/compiler")));
    folder.write("usr/bin/compiler/bglcomp", "x");
    EXPECT_EQ(toPath(files.compilerFolder()), toPath(folder.file("usr/bin/compiler")));
}

TEST(ProgramFiles, AUsersOwnCopyOfAShippedFileWins) {
    const test::TemporaryFolder folder;
    const ProgramFiles files{folder.file("opt/bin"), folder.file("home"), folder.file("home")};
    EXPECT_EQ(files.shipped("generic.xml"), folder.file("home/generic.xml"));
    const std::string packaged = folder.write("opt/share/quillset-xml/generic.xml", "x");
    EXPECT_EQ(toPath(files.shipped("generic.xml")), toPath(packaged));
    const std::string beside = folder.write("opt/bin/generic.xml", "x");
    EXPECT_EQ(toPath(files.shipped("generic.xml")), toPath(beside));
    const std::string own = folder.write("home/generic.xml", "x");
    EXPECT_EQ(toPath(files.shipped("generic.xml")), toPath(own));
}
