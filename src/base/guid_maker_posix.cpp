#include "base/guid_maker.h"

#include <cstring>
#include <sys/random.h>

namespace quillset {

namespace {

class RandomGuidMaker : public GuidMaker {
public:
    std::optional<Guid> create() override {
        std::array<std::uint8_t, 16> bytes{};
        if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
            return std::nullopt;
        Guid guid;
        std::memcpy(&guid.data1, bytes.data(), 4);
        std::memcpy(&guid.data2, bytes.data() + 4, 2);
        std::memcpy(&guid.data3, bytes.data() + 6, 2);
        std::memcpy(guid.data4.data(), bytes.data() + 8, 8);
        // Version 4, variant 1, as in RFC 9562 section 5.4.
        guid.data3 = static_cast<std::uint16_t>((guid.data3 & 0x0FFF) | 0x4000);
        guid.data4[0] = static_cast<std::uint8_t>((guid.data4[0] & 0x3F) | 0x80);
        return guid;
    }
};

} // namespace

std::unique_ptr<GuidMaker> systemGuidMaker() {
    return std::make_unique<RandomGuidMaker>();
}

} // namespace quillset
