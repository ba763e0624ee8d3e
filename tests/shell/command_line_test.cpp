#include "shell/command_line.h"

#include <gtest/gtest.h>

using namespace quillset;

TEST(CommandLine, OptionsAndTheFile) {
    const CommandLineResult result =
        parseCommandLine({"--fs-path", "/fs", "--program-folder=/p q", "my scenery.xml"});
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.options.fsPath, "/fs");
    EXPECT_EQ(result.options.programFolder, "/p q");
    EXPECT_EQ(result.options.file, "my scenery.xml");
    EXPECT_EQ(parseCommandLine({"--", "--odd.xml"}).options.file, "--odd.xml");
    EXPECT_EQ(parseCommandLine({"-h"}).options.action, CommandLine::Action::showHelp);
    EXPECT_EQ(parseCommandLine({"--version"}).options.action, CommandLine::Action::showVersion);
}

TEST(CommandLine, ActionsWithoutAWindowTakeTheirFilesInOrder) {
    const CommandLineResult compile =
        parseCommandLine({"a.xml", "--compile", "--fs-path", "/fs", "--", "-b.bgl"});
    EXPECT_EQ(compile.error, "");
    EXPECT_EQ(compile.options.action, CommandLine::Action::compile);
    EXPECT_EQ(compile.options.operands, (std::vector<std::string>{"a.xml", "-b.bgl"}));
    EXPECT_EQ(compile.options.file, "");
    const CommandLineResult check = parseCommandLine({"--json", "--check", "a.xml"});
    EXPECT_EQ(check.options.action, CommandLine::Action::check);
    EXPECT_EQ(check.options.reportForm, CommandLine::ReportForm::json);
}

TEST(CommandLine, WhatItDoesNotUnderstandIsAnError) {
    const struct {
        std::vector<std::string> arguments;
        const char* problem;
    } rows[] = {
        {{"--fast"}, "unknown option '--fast'"},
        {{"--fs-path"}, "option '--fs-path' needs a value"},
        {{"--program-folder="}, "option '--program-folder' needs a value"},
        {{"a.xml", "b.xml"}, "'b.xml' is one too many"},
        {{""}, "the name of the scenery file is empty"},
        {{"--check"}, "'--check' takes IN.xml"},
        {{"--compile", "a.xml"}, "'--compile' takes IN.xml OUT.bgl"},
        {{"--check", "a.xml", "--format"}, "'--check' and '--format' cannot be combined"},
        {{"--json", "a.xml"}, "option '--json' belongs to '--check'"},
        {{"--check=a.xml"}, "unknown option '--check=a.xml'"},
        {{"--record-simulator", "a.txt", "--replay-simulator=b.txt"}, "a replay cannot be recorded"},
        {{"--check", "a.xml", "--record-simulator", "a.txt"}, "no exchanges with the simulator"},
    };
    for (const auto& row : rows)
        EXPECT_NE(parseCommandLine(row.arguments).error.find(row.problem), std::string::npos) << row.problem;
}
