#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

namespace quillset {

/// The fields of a GUID as the system delivers them.
struct Guid {
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::array<std::uint8_t, 8> data4{};
};

/// Makes new GUIDs; nothing when the system cannot.
class GuidMaker {
public:
    virtual ~GuidMaker() = default;
    [[nodiscard]] virtual std::optional<Guid> create() = 0;
};

/// The operating system's own GUID maker.
[[nodiscard]] std::unique_ptr<GuidMaker> systemGuidMaker();

} // namespace quillset
