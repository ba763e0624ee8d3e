#include "geodata/import_cost.h"

#include "base/growing_xml.h"
#include "base/paths.h"
#include "document/scenery_document.h"
#include "document/undo_journal.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <optional>
#include <system_error>

namespace quillset {

namespace {

constexpr std::uint64_t gigabyte = 1'000'000'000;
constexpr std::uint64_t megabyte = 1'000'000;

/// How many bytes each further placement adds to a serialisation.
class PlacementSizes {
public:
    /// `placements` is the number that the document has already, which their comments count on from.
    explicit PlacementSizes(std::size_t placements)
        : number_(placements) {
        document_.create({});
        addPlacement(document_, {}, std::nullopt);
        text_.emplace(document_.growingSerialisation());
    }

    std::size_t next(const NewPlacement& placement) {
        const std::size_t before = text_->head().size();
        const std::size_t index = addPlacement(document_, placement, std::nullopt);
        text_->append(document_.placement(index).previous_sibling());
        ++number_;
        // The scratch document counts from 1.
        return text_->head().size() - before + std::to_string(number_).size() -
               std::to_string(index + 1).size();
    }

private:
    SceneryDocument document_;
    std::optional<GrowingXml> text_;
    std::size_t number_;
};

std::string sizeText(std::uint64_t bytes) {
    std::array<char, 32> text{};
    const bool large = bytes >= gigabyte;
    std::snprintf(text.data(), text.size(), large ? "%llu.%llu GB" : "%llu MB",
                  static_cast<unsigned long long>(bytes / (large ? gigabyte : megabyte)),
                  static_cast<unsigned long long>(bytes % gigabyte / (gigabyte / 10)));
    return text.data();
}

} // namespace

ImportCost importCost(const SceneryDocument& document, const UndoJournal& journal,
                      std::span<const NewPlacement> placements) {
    ImportCost cost;
    cost.room = journal.room();
    std::error_code failed;
    cost.free = std::filesystem::space(toPath(journal.folder()), failed).available;
    if (failed)
        cost.free = std::numeric_limits<std::uint64_t>::max();
    const bool wide = document.encoding() == TextEncoding::utf16LittleEndian ||
                      document.encoding() == TextEncoding::utf16BigEndian;
    PlacementSizes sizes(document.placementCount());
    std::uint64_t size = document.serialise().size();
    for (const NewPlacement& placement : placements.first(std::min(placements.size(), cost.room))) {
        cost.bytes += size;
        size += sizes.next(placement) * (wide ? 2 : 1);
    }
    return cost;
}

std::string costQuestion(const ImportCost& cost, std::size_t placements) {
    if (cost.bytes <= gigabyte && cost.bytes <= cost.free && placements <= cost.room)
        return {};
    const std::size_t added = std::min(placements, cost.room);
    std::string text = "Each of the " + std::to_string(added) +
                       " points gets an undo step of its own. They take " + sizeText(cost.bytes) +
                       " of disk space; " + sizeText(cost.free) + " are free.";
    if (placements > cost.room)
        text += " There is no room for more undo steps, so the other " +
                std::to_string(placements - cost.room) + " points will not be added.";
    if (cost.bytes > cost.free)
        text += " The import will end when the disk is full.";
    return text + " Do you want to import the points?";
}

} // namespace quillset
