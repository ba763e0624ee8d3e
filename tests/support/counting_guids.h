#pragma once

#include "base/guid_maker.h"

namespace quillset::test {

/// GUIDs that count up; none from the given call on.
class CountingGuids : public GuidMaker {
public:
    std::optional<Guid> create() override {
        if (last == failsAt)
            return std::nullopt;
        return Guid{++last, 0x0A0B, 0x0C0D, {1, 2, 3, 4, 5, 6, 7, 8}};
    }

    std::uint32_t last = 0;
    std::uint32_t failsAt = 1'000'000;
};

} // namespace quillset::test
