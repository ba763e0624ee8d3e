#include "records.h"

#include <array>
#include <cstdio>
#include <sstream>

namespace bgl_list {

namespace {

std::string number(double value, int decimals) {
    std::array<char, 400> text{}; // the largest double has 309 digits
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

std::string shortest(float value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

std::string hex(unsigned value, int digits) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*x", digits, value);
    return text.data();
}

// Words of a drawing chunk behind its shape, separated by blanks in the order of the file.
constexpr const char* walls = "sizeX sizeZ bottomTexture sizeBottomY textureIndexBottomX textureIndexBottomZ "
                              "windowTexture sizeWindowY textureIndexWindowX textureIndexWindowY "
                              "textureIndexWindowZ topTexture sizeTopY textureIndexTopX textureIndexTopZ "
                              "roofTexture textureIndexRoofX textureIndexRoofZ ";
constexpr const char* leaningWalls =
    "sizeX sizeZ sizeTopX sizeTopZ bottomTexture sizeBottomY textureIndexBottomX textureIndexBottomZ "
    "windowTexture sizeWindowY textureIndexWindowX textureIndexWindowY textureIndexWindowZ topTexture "
    "sizeTopY "
    "textureIndexTopX textureIndexTopZ roofTexture textureIndexRoofX textureIndexRoofZ";
constexpr const char* roundWalls =
    "buildingSides sizeX sizeZ bottomTexture sizeBottomY textureIndexBottomX windowTexture sizeWindowY "
    "textureIndexWindowX textureIndexWindowY topTexture sizeTopY textureIndexTopX roofTexture sizeRoofY "
    "textureIndexRoofX textureIndexRoofZ";

struct Shape {
    const char* name;
    std::string words;
};

Shape shapeOf(std::uint16_t code, std::uint64_t place) {
    const std::string base = walls;
    switch (code) {
    case 4:
        return {"FLAT", base};
    case 6:
        return {"RIDGE", base + "sizeRoofY textureIndexGableY gableTexture textureIndexGableZ"};
    case 7:
        return {"PEAKED", base + "sizeRoofY textureIndexRoofY"};
    case 8:
        return {"SLANT", base + "sizeRoofY textureIndexGableY gableTexture textureIndexGableZ faceTexture "
                                "textureIndexFaceX textureIndexFaceY"};
    case 9:
        return {"PYRAMIDAL", leaningWalls};
    case 10:
        return {"MULTISIDED", roundWalls};
    default:
        throw Damage(place, "unknown building shape " + std::to_string(code));
    }
}

std::string building(Fields& fields) {
    constexpr unsigned chunkId = 0xA0;
    constexpr unsigned endOfDrawing = 0x22;
    std::string line = "GenericBuilding scale=" + shortest(fields.real());
    for (std::uint16_t id = fields.word(); id != endOfDrawing; id = fields.word()) {
        if (id != chunkId)
            throw Damage(fields.place() - 2, "no building, but command " + std::to_string(id));
        const std::uint16_t length = fields.word();
        const Shape shape = shapeOf(fields.word(), fields.place());
        line += std::string(" ") + shape.name;
        std::istringstream names(shape.words);
        unsigned counted = 6;
        for (std::string name; names >> name; counted += 2)
            line += " " + name + "=" + std::to_string(fields.word());
        if (counted != length)
            throw Damage(fields.place(), "the building should have " + std::to_string(counted) +
                                             " bytes, but its length is " + std::to_string(length));
    }
    return line;
}

std::string zeroEnded(const std::string& field, std::uint64_t place) {
    const std::size_t end = field.find('\0');
    if (end == std::string::npos)
        throw Damage(place, "a text without an end");
    return field.substr(0, end);
}

// Between quotes; what is not plain ASCII as \xNN.
std::string quoted(const std::string& text) {
    std::string out = "\"";
    for (const char c : text) {
        const bool plain = c >= ' ' && c <= '~' && c != '"' && c != '\\';
        out += plain ? std::string(1, c) : "\\x" + hex(static_cast<unsigned char>(c), 2);
    }
    return out + "\"";
}

std::string effect(Fields& fields) {
    constexpr std::size_t nameField = 80;
    const std::string name = zeroEnded(fields.text(nameField), fields.place());
    const std::string params = zeroEnded(fields.text(fields.left()), fields.place());
    return "Effect name=" + quoted(name) + " params=" + quoted(params);
}

std::string model(Fields& fields, bool later) {
    const std::string guid = fields.text(16);
    return "LibraryObject guid=" + (later ? dashedGuid(guid) : plainGuid(guid)) +
           " scale=" + shortest(fields.real());
}

std::string thing(std::uint16_t id, Fields& fields) {
    switch (id) {
    case 0x01:
    case 0x0A:
        return building(fields);
    case 0x02:
    case 0x0B:
        return model(fields, id == 0x0B);
    case 0x04:
    case 0x0D:
        return effect(fields);
    default: {
        const std::size_t rest = fields.text(fields.left()).size();
        return "Record 0x" + hex(id, 4) + " with " + std::to_string(rest) + " more bytes";
    }
    }
}

std::string hexadecimal(const std::string& bytes, std::initializer_list<int> order) {
    std::string text;
    for (const int index : order)
        text +=
            index < 0 ? "-" : hex(static_cast<unsigned char>(bytes.at(static_cast<std::size_t>(index))), 2);
    return text;
}

} // namespace

std::string plainGuid(const std::string& bytes) {
    return hexadecimal(bytes, {3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12});
}

std::string dashedGuid(const std::string& bytes) {
    return "{" + hexadecimal(bytes, {3, 2, 1, 0, -1, 5, 4, -1, 7, 6, -1, 8, 9, -1, 10, 11, 12, 13, 14, 15}) +
           "}";
}

ListedRecord listRecord(Fields fields) {
    const std::uint16_t id = fields.word();
    (void)fields.word(); // the size, by which the caller cut the record
    ListedRecord record;
    record.longitude = fields.dword();
    record.latitude = fields.dword();
    record.line = " lat=" + number(90 - record.latitude * 180.0 / 0x20000000, 7);
    record.line += " lon=" + number(record.longitude * 360.0 / 0x30000000 - 180, 7);
    record.line += " alt=" + number(static_cast<std::int32_t>(fields.dword()) / 1000.0, 3);
    const unsigned flags = fields.word();
    record.line += (flags & 1U) != 0 ? " agl" : "";
    for (const char* angle : {" pitch=", " bank=", " heading="})
        record.line += angle + number(fields.word() * 360.0 / 65536.0, 4);
    record.line += " complexity=" + std::to_string(fields.word());
    const unsigned unused = fields.word();
    if ((flags & ~1U) != 0)
        record.line += " flags=0x" + hex(flags, 1);
    if (unused != 0)
        record.line += " unused=0x" + hex(unused, 1);
    const bool later = id >= 0x0A;
    if (later) {
        const std::string instance = fields.text(16);
        if (instance != std::string(16, '\0'))
            record.line += " instance=" + dashedGuid(instance);
    }
    record.line = thing(id, fields) + record.line;
    if (fields.left() > 0)
        throw Damage(fields.place(), std::to_string(fields.left()) + " bytes too many in the record");
    return record;
}

} // namespace bgl_list
