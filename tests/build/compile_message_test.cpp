#include "build/compile_message.h"

#include <gtest/gtest.h>

using namespace quillset;

TEST(CompileMessage, PlaceInALineOfOutput) {
    struct Row {
        const char* message;
        std::optional<CompilePlace> place;
    };
    const Row rows[] = {
        {"compile.xml(1,2345): error: <SceneryObject> lat=\"95\": ...", CompilePlace{1, 2345}},
        {"C:\\My (old) files\\compile.xml(12,34): warning: x", CompilePlace{12, 34}},
        {"compile.xml(12, 34) : error X1: y", CompilePlace{12, 34}},
        {"compile.xml(12): error", CompilePlace{12, {}}},
        {"/home/a b/compile.xml:12:34: error", CompilePlace{12, 34}},
        {"C:\\compile.xml:12: error", CompilePlace{12, {}}},
        {"ERROR at line 12, column 34", CompilePlace{12, 34}},
        {"XML parse error (Line: 12 Col: 34)", CompilePlace{12, 34}},
        {"Line 1 Char 345: unexpected", CompilePlace{1, 345}},
        {"in line 7.", CompilePlace{7, {}}},
        {"Quillset scenery compiler 1.0.0 (target fs2004)", {}},
        {"compile.bgl: written, 1 placement in 1 cell, 0 models, 140 bytes; 0 errors, 0 warnings", {}},
        {"[12:34:56] compile.bgl created", {}},
        {"INTERNAL COMPILER ERROR:  #C2032: XML Parse Error!", {}},
        {"compile.xml(0,5): zero is no line", {}},
        {"compile.xml(12,x): error", {}},
        {"compile.xml(99999999999999999999,1): error", {}},
        {"airline 12", {}},
        {"online: 3 errors", {}},
        {"f(12)", {}},
        {"", {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(compilePlaceIn(row.message), row.place) << row.message;
}
