#pragma once

#include "base/guid_maker.h"

namespace quillset::test {

/// GUIDs that count up; none while `broken`.
class CountingGuids : public GuidMaker {
public:
    std::optional<Guid> create() override {
        if (broken)
            return std::nullopt;
        return Guid{++last, 0x0A0B, 0x0C0D, {1, 2, 3, 4, 5, 6, 7, 8}};
    }

    bool broken = false;
    std::uint32_t last = 0;
};

} // namespace quillset::test
