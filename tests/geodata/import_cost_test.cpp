#include "geodata/import_cost.h"

#include "document/document_fixture.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

std::uint64_t snapshotsOf(const test::DocumentFixture& fixture) {
    std::uint64_t bytes = 0;
    for (const auto& entry : std::filesystem::directory_iterator(toPath(fixture.folder.path())))
        if (entry.path().filename().string().starts_with("undo"))
            bytes += entry.file_size();
    return bytes;
}

} // namespace

TEST(ImportCost, IsWhatTheSnapshotsTake) {
    const std::vector<NewPlacement> points(30, NewPlacement{"a & <x>.fx", 52.25, 5.5, 0});
    const std::string body = "<FSData><!--1--><SceneryObject/></FSData>";
    for (const std::string& file : {body, encodeText("<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + body,
                                                     TextEncoding::utf16BigEndian)}) {
        test::DocumentFixture fixture;
        fixture.open(file);
        const ImportCost cost = importCost(fixture.document, fixture.journal, points);
        fixture.list.addNewObjects(points, [](std::size_t) { return true; });
        EXPECT_EQ(cost.bytes, snapshotsOf(fixture));
        EXPECT_EQ(cost.room, 32001U);
        EXPECT_GT(cost.free, 0U);
    }
}

TEST(ImportCost, AsksAboveAGigabyteAboveTheFreeSpaceAndAboveTheJournalsRoom) {
    constexpr std::uint64_t gigabyte = 1'000'000'000;
    EXPECT_EQ(costQuestion({gigabyte, gigabyte, 10}, 10), "");
    EXPECT_EQ(
        costQuestion({2 * gigabyte + gigabyte / 10, 50 * gigabyte, 32001}, 4000),
        "Each of the 4000 points gets an undo step of its own. They take 2.1 GB of disk space; 50.0 GB are "
        "free. Do you want to import the points?");
    const std::string full = costQuestion({500'000'000, 400'000'000, 32001}, 4000);
    EXPECT_NE(full.find("500 MB of disk space; 400 MB are free."), std::string::npos) << full;
    EXPECT_NE(full.find("will end when the disk is full"), std::string::npos) << full;
    EXPECT_NE(costQuestion({1, 2, 10}, 12).find("the other 2 points will not be added"), std::string::npos);
}
