#include "catalogue/guid_text.h"

#include <cstdint>

namespace quillset {

namespace {

void appendHex(std::string& text, std::uint32_t value, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text.push_back("0123456789ABCDEF"[(value >> shift) & 0xF]);
}

} // namespace

std::string guidText(const Guid& guid) {
    std::string text;
    text.reserve(32);
    appendHex(text, guid.data1, 8);
    appendHex(text, guid.data2, 4);
    appendHex(text, guid.data3, 4);
    for (const std::uint8_t byte : guid.data4)
        appendHex(text, byte, 2);
    return text;
}

std::string newGuidText(GuidMaker& maker) {
    const std::optional<Guid> guid = maker.create();
    return guid ? guidText(*guid) : std::string();
}

} // namespace quillset
