#include "compiler/scenery_section.h"

#include "base/runtime_error.h"
#include "compiler/crt_sort.h"
#include "compiler/format_choices.h"
#include "compiler/grid.h"
#include "compiler/record_writer.h"

#include <algorithm>
#include <limits>

namespace quillset::compiler {

namespace {

struct Record {
    std::uint32_t cell;
    std::uint32_t offset;
    std::uint32_t size;
};

std::uint32_t cellOf(const Record& record) {
    return record.cell;
}

std::vector<Record> writeAll(const std::deque<SceneryObject>& objects, Target target, ByteBuffer& buffer) {
    constexpr std::size_t usualSize = 80;
    buffer.reserve(objects.size() * usualSize);
    std::vector<Record> records;
    records.reserve(objects.size());
    std::vector<std::size_t> ends;
    std::size_t start = 0;
    for (const SceneryObject& object : objects) {
        const GridPosition place = gridPosition(object.latitude, object.longitude);
        const std::uint32_t cell = quadCell(format::placementCellLevel, place);
        ends.clear();
        writeRecords(object, place, target, buffer, ends);
        for (const std::size_t end : ends) {
            if (end > std::numeric_limits<std::uint32_t>::max())
                throw RuntimeError(ErrorNumber::overflow, "the placements would take more than 4 GB");
            records.push_back(
                {cell, static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end - start)});
            start = end;
        }
    }
    return records;
}

void sortByCell(std::vector<Record>& records, Target target) {
    if (target == Target::fs2004 && format::fs2004KeepsDocumentOrder)
        std::stable_sort(records.begin(), records.end(),
                         [](const Record& a, const Record& b) { return a.cell < b.cell; });
    else
        CrtSort(records, cellOf).run();
}

void keepDistinct(std::vector<std::uint32_t>& ascending) {
    ascending.erase(std::unique(ascending.begin(), ascending.end()), ascending.end());
}

} // namespace

ScenerySection buildScenerySection(const std::deque<SceneryObject>& objects, Target target) {
    ByteBuffer buffer;
    std::vector<Record> records = writeAll(objects, target, buffer);
    sortByCell(records, target);
    ScenerySection section;
    section.data.reserve(buffer.size());
    for (const Record& record : records) {
        if (section.cells.empty() || section.cells.back().cell != record.cell)
            section.cells.push_back({record.cell, 0, 0});
        ++section.cells.back().count;
        section.cells.back().size += record.size;
        section.data.append(buffer.text(), record.offset, record.size);
    }
    return section;
}

std::vector<std::uint32_t> headerCells(const std::vector<CellRecords>& cells) {
    std::vector<std::uint32_t> header;
    header.reserve(cells.size());
    for (const CellRecords& records : cells)
        header.push_back(records.cell >> (2 * (format::placementCellLevel - format::headerCellLevel)));
    keepDistinct(header); // they ascend, as the section's cells do
    while (header.size() > format::headerCellCount) {
        for (std::uint32_t& cell : header)
            cell >>= 2;
        keepDistinct(header);
    }
    return header;
}

} // namespace quillset::compiler
