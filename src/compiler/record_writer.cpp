#include "compiler/record_writer.h"

#include "compiler/building_layout.h"
#include "compiler/format_choices.h"

#include <algorithm>
#include <numeric>

namespace quillset::compiler {

namespace {

struct RecordIds {
    std::uint16_t building;
    std::uint16_t model;
    std::uint16_t effect;
};
constexpr RecordIds fs2004Ids{0x0001, 0x0002, 0x0004};
constexpr RecordIds fsxIds{0x000A, 0x000B, 0x000D};

constexpr std::size_t fs2004Header = 28;
constexpr std::size_t fsxHeader = 44; // with the instance id

constexpr std::uint16_t buildingChunk = 0x00A0;

class RecordWriter {
public:
    RecordWriter(const SceneryObject& object, const GridPosition& place, Target target, ByteBuffer& out,
                 std::vector<std::size_t>& ends)
        : object_(object)
        , place_(place)
        , target_(target)
        , ids_(target == Target::fsx ? fsxIds : fs2004Ids)
        , out_(out)
        , ends_(ends) {}

    void operator()(const LibraryObject& model) {
        header(ids_.model, model.guid.size() + 4);
        out_.bytes(model.guid);
        out_.float32(model.scale);
        end();
    }

    void operator()(const Effect& effect) {
        header(ids_.effect, format::effectNameField + effect.params.size() + 1);
        out_.bytes(effect.name);
        out_.zeros(format::effectNameField - effect.name.size());
        out_.bytes(effect.params);
        out_.zeros(1); // no byte to make the size even: deliberate
        end();
    }

    void operator()(const GenericBuilding& generic) {
        const std::span<const Building> all(generic.buildings);
        for (std::size_t first = 0; first < all.size(); first += format::buildingsPerRecord)
            buildings(generic.scale,
                      all.subspan(first, std::min(format::buildingsPerRecord, all.size() - first)));
    }

private:
    void header(std::uint16_t id, std::size_t rest) {
        out_.word(id);
        out_.word(static_cast<std::uint16_t>((target_ == Target::fsx ? fsxHeader : fs2004Header) + rest));
        out_.dword(place_.longitude);
        out_.dword(place_.latitude);
        out_.dword(static_cast<std::uint32_t>(millimetres(object_.altitude)));
        out_.word(static_cast<std::uint16_t>((object_.altitudeIsAgl ? 1U : 0U) | object_.suppressions));
        out_.word(angleUnits(object_.pitch));
        out_.word(angleUnits(object_.bank));
        out_.word(angleUnits(object_.heading));
        out_.word(object_.imageComplexity);
        out_.word(0);
        if (target_ == Target::fsx)
            out_.bytes(object_.instanceId);
    }

    void buildings(float scale, std::span<const Building> group) {
        constexpr std::size_t frame = 6; // id, length and shape
        const std::size_t chunks = std::accumulate(
            group.begin(), group.end(), std::size_t{0},
            [](std::size_t sum, const Building& one) { return sum + frame + 2 * one.words.size(); });
        header(ids_.building, 4 + chunks + 2);
        out_.float32(scale);
        for (const Building& building : group) {
            out_.word(buildingChunk);
            out_.word(static_cast<std::uint16_t>(frame + 2 * building.words.size()));
            out_.word(layoutOf(building.shape).code);
            for (const std::uint16_t word : building.words)
                out_.word(word);
        }
        out_.word(format::buildingEnd);
        end();
    }

    void end() { ends_.push_back(out_.size()); }

    const SceneryObject& object_;
    const GridPosition& place_;
    Target target_;
    const RecordIds& ids_;
    ByteBuffer& out_;
    std::vector<std::size_t>& ends_;
};

} // namespace

void writeRecords(const SceneryObject& object, const GridPosition& place, Target target, ByteBuffer& out,
                  std::vector<std::size_t>& ends) {
    std::visit(RecordWriter(object, place, target, out, ends), object.thing);
}

} // namespace quillset::compiler
