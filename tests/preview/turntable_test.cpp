#include "preview/turntable.h"

#include "sample_context.h"

#include <gtest/gtest.h>

namespace quillset {
namespace {

TEST(Turntable, turnsAndDrawsOnlyASelectedBuilding) {
    struct Row {
        const char* name;
        bool open;
        const char* kind;
        bool genBuildSelected;
        bool draws;
    };
    const Row rows[] = {
        {"rectangular", true, "RectangularBuilding", true, true},
        {"pyramidal", true, "PyramidalBuilding", true, true},
        {"multi-sided", true, "MultiSidedBuilding", true, true},
        {"no document", false, "RectangularBuilding", true, false},
        {"library object", true, "LibraryObject", true, false},
        {"no row", true, "", true, false},
        {"other case", true, "rectangularbuilding", true, false},
        {"tree elsewhere", true, "RectangularBuilding", false, false},
    };
    for (const Row& row : rows) {
        test::SampleContext context;
        context.open = row.open;
        context.kind = row.kind;
        context.genBuildSelected = row.genBuildSelected;
        Turntable turntable;
        EXPECT_EQ(turntable.tick(context), row.draws) << row.name;
        EXPECT_EQ(turntable.angle(), row.draws ? 2.0F : 0.0F) << row.name;
    }
}

TEST(Turntable, stopsAndGoesOnFromTheSameAngle) {
    const test::SampleContext context;
    Turntable turntable;
    for (int i = 0; i < 200; ++i)
        turntable.tick(context);
    EXPECT_EQ(turntable.angle(), 400.0F);
    turntable.toggleRotation();
    EXPECT_TRUE(turntable.tick(context)) << "a stopped building is still redrawn: it may have been edited";
    EXPECT_EQ(turntable.angle(), 400.0F);
    turntable.toggleRotation();
    turntable.tick(context);
    EXPECT_EQ(turntable.angle(), 402.0F);
}

} // namespace
} // namespace quillset
