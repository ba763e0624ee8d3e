#include "listing.h"

#include "records.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <vector>

namespace bgl_list {

namespace {

constexpr std::uint32_t placements = 0x25;
constexpr std::uint32_t models = 0x2B;

struct Pointer {
    std::uint32_t type = 0;
    std::uint32_t dataClass = 0;
    std::uint32_t parts = 0;
    std::uint32_t table = 0;
    std::uint32_t tableSize = 0;
};

struct Part {
    std::uint32_t cell = 0;
    std::uint32_t records = 0;
    std::uint32_t data = 0;
    std::uint32_t size = 0;
};

std::string hex(std::uint32_t value) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%x", value);
    return text.data();
}

// A cell's number holds its level: the position of its highest bit, less one, halved.
int levelOf(std::uint32_t cell) {
    int bits = 0;
    for (std::uint32_t rest = cell; rest > 1; rest /= 2)
        ++bits;
    return (bits - 1) / 2;
}

// Whether a place lies in a cell, found by walking down from the whole world half by half.
bool contains(std::uint32_t cell, std::uint32_t longitude, std::uint32_t latitude) {
    const int level = levelOf(cell);
    std::uint32_t west = 0;
    std::uint32_t north = 0;
    std::uint32_t side = 1U << 30U;
    for (int step = 1; step <= level; ++step) {
        side /= 2;
        const std::uint32_t quarter = cell >> (2 * (level - step)) & 3U;
        west += (quarter & 1U) != 0 ? side : 0;
        north += (quarter & 2U) != 0 ? side : 0;
    }
    return longitude >= west && longitude - west < side && latitude >= north && latitude - north < side;
}

std::string dateText(std::uint64_t fileTime) {
    constexpr std::uint64_t perSecond = 10'000'000;
    constexpr std::int64_t until1970 = 11'644'473'600;
    constexpr std::int64_t secondsPerDay = 86'400;
    const auto seconds = static_cast<std::int64_t>(fileTime / perSecond) - until1970;
    const auto days =
        seconds >= 0 ? seconds / secondsPerDay : -((secondsPerDay - 1 - seconds) / secondsPerDay);
    const auto rest = seconds - days * secondsPerDay;
    const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(days))};
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d UTC",
                  static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()), static_cast<int>(rest / 3600),
                  static_cast<int>(rest / 60 % 60), static_cast<int>(rest % 60));
    return text.data();
}

class Lister {
public:
    Lister(ByteSource& file, std::ostream& out)
        : file_(file)
        , out_(out) {}

    void run() {
        const std::uint32_t sections = header();
        std::vector<Pointer> pointers(sections);
        Fields fields(file_.read(headerSize, std::uint64_t{20} * sections), headerSize);
        for (Pointer& pointer : pointers)
            pointer = {fields.dword(), fields.dword(), fields.dword(), fields.dword(), fields.dword()};
        claim(0, headerSize + std::uint64_t{20} * sections);
        for (const Pointer& pointer : pointers)
            section(pointer);
        remarkGaps();
    }

private:
    static constexpr std::uint32_t headerSize = 0x38;

    std::uint32_t header();
    void section(const Pointer& pointer);
    void placementPart(const Part& part);
    void modelPart(const Part& part);
    void remark(const std::string& text) { out_ << "REMARK " << text << '\n'; }
    void claim(std::uint64_t offset, std::uint64_t size) { claimed_.emplace_back(offset, offset + size); }
    void remarkGaps();
    [[nodiscard]] bool headerCovers(std::uint32_t cell) const;

    ByteSource& file_;
    std::ostream& out_;
    std::vector<std::uint32_t> cells_;
    std::vector<std::pair<std::uint64_t, std::uint64_t>> claimed_; // parts of the file that something owns
};

std::uint32_t Lister::header() {
    Fields fields(file_.read(0, headerSize), 0);
    if (fields.dword() != 0x19920201 || fields.dword() != headerSize)
        throw Damage(0, "this is no BGL file of FS2004 or later");
    const std::uint64_t low = fields.dword();
    const std::uint64_t high = fields.dword();
    const std::uint32_t second = fields.dword();
    if (second != 0x08051803)
        remark("the second number of the header is " + hex(second));
    const std::uint32_t sections = fields.dword();
    out_ << "BGL " << file_.size() << " bytes, compiled " << dateText(low + (high << 32U)) << '\n';
    out_ << "header cells";
    while (fields.left() > 0) {
        const std::uint32_t cell = fields.dword();
        if (cell == 0)
            continue;
        cells_.push_back(cell);
        out_ << ' ' << hex(cell) << " (level " << levelOf(cell) << ')';
    }
    out_ << '\n';
    if (std::uint64_t{20} * sections > file_.size())
        throw Damage(0x14, std::to_string(sections) + " sections do not fit into the file");
    return sections;
}

void Lister::section(const Pointer& pointer) {
    out_ << "section " << hex(pointer.type) << " class " << pointer.dataClass << ": " << pointer.parts
         << " parts\n";
    const std::uint32_t entry = ((pointer.dataClass & 0x10000U) | 0x40000U) >> 14U;
    const std::uint64_t size = std::uint64_t{entry} * pointer.parts;
    if (size != pointer.tableSize)
        throw Damage(pointer.table, "the table should have " + std::to_string(size) +
                                        " bytes, but its size is " + std::to_string(pointer.tableSize));
    Fields table(file_.read(pointer.table, size), pointer.table);
    claim(pointer.table, size);
    std::uint32_t before = 0;
    for (std::uint32_t i = 0; i < pointer.parts; ++i) {
        const std::string bytes = table.text(entry);
        Fields fields(bytes, table.place() - entry);
        Part part;
        part.cell = fields.dword();
        (void)(entry == 20 ? fields.dword() : 0U); // the larger form has a second cell number
        part.records = fields.dword();
        part.data = fields.dword();
        part.size = fields.dword();
        if (i > 0 && part.cell <= before)
            remark("the cells are not in ascending order");
        before = part.cell;
        claim(part.data, part.size);
        if (pointer.type == placements)
            placementPart(part);
        else if (pointer.type == models)
            modelPart(part);
        else
            (void)file_.read(part.data, std::min<std::uint32_t>(part.size, 1));
    }
}

bool Lister::headerCovers(std::uint32_t cell) const {
    return std::any_of(cells_.begin(), cells_.end(), [&](std::uint32_t header) {
        const int down = levelOf(cell) - levelOf(header);
        return down >= 0 && cell >> (2 * down) == header;
    });
}

void Lister::placementPart(const Part& part) {
    constexpr std::uint32_t smallestRecord = 28;
    out_ << " cell " << hex(part.cell) << " level " << levelOf(part.cell) << ": " << part.records
         << " records, " << part.size << " bytes\n";
    if (!headerCovers(part.cell))
        remark("no cell of the header covers this one");
    std::uint64_t at = part.data;
    const std::uint64_t end = std::uint64_t{part.data} + part.size;
    for (std::uint32_t i = 0; i < part.records; ++i) {
        Fields head(file_.read(at, 4), at);
        (void)head.word();
        const std::uint16_t size = head.word();
        if (size < smallestRecord || at + size > end)
            throw Damage(at, "a record of " + std::to_string(size) + " bytes does not fit");
        const ListedRecord record = listRecord(Fields(file_.read(at, size), at));
        out_ << "  " << record.line << '\n';
        if (!contains(part.cell, record.longitude, record.latitude))
            remark("the placement lies outside its cell");
        at += size;
    }
    if (at != end)
        throw Damage(at, std::to_string(end - at) + " bytes follow the last record of the cell");
}

void Lister::modelPart(const Part& part) {
    constexpr std::uint64_t entry = 24;
    if (entry * part.records > part.size)
        throw Damage(part.data, "the models' index does not fit");
    Fields index(file_.read(part.data, entry * part.records), part.data);
    std::uint64_t next = entry * part.records;
    std::string before;
    for (std::uint32_t i = 0; i < part.records; ++i) {
        const std::string guid = index.text(16);
        const std::uint32_t offset = index.dword();
        const std::uint32_t size = index.dword();
        if (std::uint64_t{offset} + size > part.size)
            throw Damage(index.place() - 8, "a model lies outside its section");
        const std::string head =
            file_.read(std::uint64_t{part.data} + offset, std::min<std::uint32_t>(size, 12));
        const std::string form = head.starts_with("RIFF") && head.size() == 12 ? " " + head.substr(8, 4) : "";
        out_ << "  model " << plainGuid(guid) << ' ' << dashedGuid(guid) << ' ' << size << " bytes" << form
             << '\n';
        if (offset != next)
            remark("the model does not follow the one before");
        if (!before.empty() && guid <= before)
            remark("the models are not in ascending order");
        next = std::uint64_t{offset} + size;
        before = guid;
    }
    if (next != part.size)
        remark("bytes follow the last model");
}

void Lister::remarkGaps() {
    std::sort(claimed_.begin(), claimed_.end());
    std::uint64_t end = 0;
    for (const auto& [from, to] : claimed_) {
        if (from > end)
            remark("bytes " + std::to_string(end) + " to " + std::to_string(from) + " belong to nothing");
        else if (from < end)
            remark("byte " + std::to_string(from) + " belongs to two parts");
        end = std::max(end, to);
    }
    if (end < file_.size())
        remark("bytes " + std::to_string(end) + " to " + std::to_string(file_.size()) + " belong to nothing");
}

} // namespace

void list(ByteSource& file, std::ostream& out) {
    Lister(file, out).run();
}

} // namespace bgl_list
