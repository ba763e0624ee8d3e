#include "compiler/bgl_file.h"

#include "base/runtime_error.h"
#include "compiler/byte_buffer.h"
#include "compiler/format_choices.h"

#include <limits>

namespace quillset::compiler {

namespace {

constexpr std::uint32_t magic = 0x19920201;
constexpr std::uint32_t headerSize = 0x38;
constexpr std::uint32_t pointerSize = 20;
constexpr std::uint32_t entrySize = 16;

// Type and class of data, as a section's pointer names them.
constexpr std::uint32_t sceneryType = 0x25;
constexpr std::uint32_t sceneryClass = 1;
constexpr std::uint32_t modelType = 0x2B;
constexpr std::uint32_t modelClass = 5;
constexpr std::uint32_t modelCell = 0;

// Windows file time: 100-nanosecond steps since 1601. Whole milliseconds, as the original writes them.
std::uint64_t fileTime(std::chrono::system_clock::time_point time) {
    constexpr std::int64_t from1601to1970 = 11'644'473'600'000;
    constexpr std::int64_t stepsPerMillisecond = 10'000;
    const auto since1970 = std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch()).count();
    return static_cast<std::uint64_t>((since1970 + from1601to1970) * stepsPerMillisecond);
}

void writePointer(ByteBuffer& out, std::uint32_t type, std::uint32_t dataClass, std::size_t parts,
                  std::uint32_t table) {
    out.dword(type);
    out.dword(dataClass);
    out.dword(static_cast<std::uint32_t>(parts));
    out.dword(table);
    out.dword(static_cast<std::uint32_t>(parts) * entrySize);
}

void writeEntry(ByteBuffer& out, const CellRecords& part, std::uint32_t& data) {
    out.dword(part.cell);
    out.dword(part.count);
    out.dword(data);
    out.dword(part.size);
    data += part.size;
}

void writeHeader(ByteBuffer& out, std::uint64_t time, std::uint32_t sections,
                 const std::vector<std::uint32_t>& cells) {
    out.dword(magic);
    out.dword(headerSize);
    out.dword(static_cast<std::uint32_t>(time));
    out.dword(static_cast<std::uint32_t>(time >> 32U));
    out.dword(format::secondMagic);
    out.dword(sections);
    for (std::size_t i = 0; i < format::headerCellCount; ++i)
        out.dword(i < cells.size() ? cells[i] : 0);
}

} // namespace

BglFile::BglFile(ScenerySection scenery, ModelSection models, std::chrono::system_clock::time_point time)
    : scenery_(std::move(scenery))
    , models_(std::move(models))
    , time_(time) {
    if (size() > std::numeric_limits<std::uint32_t>::max())
        throw RuntimeError(ErrorNumber::overflow, "the file would be larger than 4 GB");
}

std::uint32_t BglFile::sectionCount() const {
    return (scenery_.cells.empty() ? 0U : 1U) + (models_.count() > 0 ? 1U : 0U);
}

std::uint32_t BglFile::tableBytes() const {
    return entrySize * (static_cast<std::uint32_t>(scenery_.cells.size()) + (models_.count() > 0 ? 1U : 0U));
}

std::uint64_t BglFile::size() const {
    return std::uint64_t{headerSize} + pointerSize * sectionCount() + tableBytes() + scenery_.data.size() +
           (models_.count() > 0 ? models_.size() : 0U);
}

void BglFile::write(const std::function<void(std::string_view)>& put) const {
    const bool hasModels = models_.count() > 0;
    std::vector<std::uint32_t> cells = headerCells(scenery_.cells);
    if (cells.empty() && hasModels)
        cells.push_back(format::wholeWorldCell);

    ByteBuffer out;
    writeHeader(out, fileTime(time_), sectionCount(), cells);
    std::uint32_t table = headerSize + pointerSize * sectionCount();
    std::uint32_t data = table + tableBytes();
    if (!scenery_.cells.empty()) {
        writePointer(out, sceneryType, sceneryClass, scenery_.cells.size(), table);
        table += entrySize * static_cast<std::uint32_t>(scenery_.cells.size());
    }
    if (hasModels)
        writePointer(out, modelType, modelClass, 1, table);
    for (const CellRecords& part : scenery_.cells)
        writeEntry(out, part, data);
    if (hasModels)
        writeEntry(out, {modelCell, models_.count(), models_.size()}, data);
    put(out.text());
    put(scenery_.data);
    if (hasModels)
        models_.write(put);
}

} // namespace quillset::compiler
