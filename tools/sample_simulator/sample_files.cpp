#include "sample_simulator/sample_files.h"

#include "base/paths.h"
#include "sample_simulator/motifs.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace quillset {

namespace {

struct SampleObject {
    std::string_view guid;
    std::string_view name;
    Motif motif;
    Ink colour;
};

constexpr std::array userObjects{
    SampleObject{"5E6B1C0947A24F0D8C31A70000000001", "qs_hangar_green", Motif::hangar, {92, 126, 100}},
    SampleObject{"5E6B1C0947A24F0D8C31A70000000002", "qs_hangar_blue", Motif::hangar, {84, 116, 160}},
    SampleObject{"5E6B1C0947A24F0D8C31A70000000003", "qs_tower", Motif::controlTower, {196, 190, 176}},
    SampleObject{"5E6B1C0947A24F0D8C31A70000000004", "qs_fuel_tanks", Motif::fuelTanks, {214, 214, 208}},
    SampleObject{"5E6B1C0947A24F0D8C31A70000000005", "qs_radio_mast", Motif::mast, {176, 60, 50}},
};

constexpr std::array rwy12Objects{
    SampleObject{"5E6B1C0947A24F0D8C31A70000000011", "Windmill, tarred", Motif::windmill, {92, 84, 80}},
    SampleObject{
        "5E6B1C0947A24F0D8C31A70000000012", "Lighthouse, blue bands", Motif::lighthouse, {48, 84, 150}},
    SampleObject{"5E6B1C0947A24F0D8C31A70000000013", "Row of birches", Motif::trees, {136, 164, 84}},
    SampleObject{"5E6B1C0947A24F0D8C31A70000000014", "Clubhouse", Motif::house, {222, 204, 170}},
};

// Objects of the default library that the motifs fit.
constexpr std::array defaultObjects{
    SampleObject{"6DC7E21E4F0C4D7395488DAC102499A1", "ag_barn", Motif::house, {172, 70, 56}},
    SampleObject{"93802D8B45EBBA4F029F72A2B3EE0F9A", "ag_watertower_1", Motif::waterTower, {206, 212, 216}},
    SampleObject{"F2EF2CD249C3539C81122D81B0EBD667", "gen_watertower01", Motif::waterTower, {150, 176, 196}},
    SampleObject{"0C37A99B458B40A34B35869B29EEC675", "broadleaftree", Motif::trees, {84, 128, 62}},
    SampleObject{"1D6E82C94E7BB74205044A86D45315D7", "checker_hangar", Motif::hangar, {188, 72, 60}},
    SampleObject{"FB833CDC41204FEAFD84D1827F5EEF47", "jfk_tower", Motif::controlTower, {208, 206, 200}},
    SampleObject{"F21DB452424D6D9DC3A908B6C14C194C", "gen_windmill01", Motif::windmill, {186, 160, 126}},
    SampleObject{"BE7FA03648CD6133C3BDA3B335ABE639", "lighthouse1", Motif::lighthouse, {190, 48, 42}},
    SampleObject{"4808A0B04D43FC5620867D91FC8C6EB3", "ndbhigh", Motif::mast, {120, 124, 130}},
};

constexpr std::array<std::string_view, 12> effectNames{
    "fx_qs_beacon_green", "fx_qs_beacon_white", "fx_qs_bonfire",      "fx_qs_chimney_smoke",
    "fx_qs_fountain",     "fx_qs_fog_patch",    "fx_qs_lamp_row",     "fx_qs_obstacle_light",
    "fx_qs_searchlight",  "fx_qs_steam_vent",   "fx_qs_strobe_white", "fx_qs_welding_sparks"};

std::string modelFileName(const SampleObject& object) {
    return std::string(object.name) + ".mdl";
}

void append32(std::string& out, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8)
        out.push_back(static_cast<char>(value >> shift & 0xFF));
}

// The shell of a model file: a RIFF file of the form MDL9 with one chunk of our own. No simulator shows it.
std::string modelFile(const SampleObject& object) {
    std::string text = "Sample model " + std::string(object.name) + " without geometry.";
    text.append(text.size() % 2, ' '); // chunks have an even size
    std::string riff = "RIFF";
    append32(riff, static_cast<std::uint32_t>(4 + 8 + text.size()));
    riff += "MDL9QSTX";
    append32(riff, static_cast<std::uint32_t>(text.size()));
    return riff + text;
}

std::string effectFile(std::string_view name) {
    return "; A sample effect: it has a name for the object tree and shows nothing in a simulator.\r\n"
           "[Sample]\r\nName=" +
           std::string(name) + "\r\n";
}

std::string userLibrary() {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<FSData version=\"9.0\">\n";
    for (const SampleObject& object : userObjects)
        xml += "<ModelData name=\"" + std::string(object.guid) + "\" sourceFile=\"models\\" +
               modelFileName(object) + "\"/>\n";
    return xml + "</FSData>\n";
}

std::string rwy12Library() {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<objectsLibrary>\n"
                      "<category name=\"Sample airfield - Quillset\">\n";
    for (const SampleObject& object : rwy12Objects)
        xml += "<obj name=\"" + std::string(object.name) + "\" guid=\"" + std::string(object.guid) + "\"/>\n";
    return xml + "</category>\n</objectsLibrary>\n";
}

} // namespace

std::vector<SampleFile> sampleSimulator() {
    std::vector<SampleFile> files;
    files.reserve(effectNames.size() + userObjects.size() + 2);
    for (const std::string_view name : effectNames)
        files.push_back({"effects/" + std::string(name) + ".fx", effectFile(name)});
    for (const SampleObject& object : userObjects)
        files.push_back({"models/" + modelFileName(object), modelFile(object)});
    files.push_back({"libraries/Sample user library.xml", userLibrary()});
    files.push_back({"libraries/Sample Rwy12 library.xml", rwy12Library()});
    return files;
}

SampleFile sampleModule() {
    return {"modules/fsuipc.dll", {}};
}

std::vector<SampleFile> samplePictures() {
    std::vector<SampleFile> files;
    const auto add = [&](const auto& objects) {
        for (const SampleObject& object : objects)
            files.push_back({lowerCase(object.guid) + ".bmp", motifPicture(object.motif, object.colour)});
    };
    add(defaultObjects);
    add(userObjects);
    add(rwy12Objects);
    return files;
}

} // namespace quillset
