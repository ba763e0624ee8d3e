#include "base/guid_maker.h"

#include <algorithm>
#include <iterator>
#include <windows.h>

#include <objbase.h>

namespace quillset {

namespace {

class ComGuidMaker : public GuidMaker {
public:
    std::optional<Guid> create() override {
        GUID created{};
        if (CoCreateGuid(&created) != S_OK)
            return std::nullopt;
        Guid guid;
        guid.data1 = created.Data1;
        guid.data2 = created.Data2;
        guid.data3 = created.Data3;
        std::copy(std::begin(created.Data4), std::end(created.Data4), guid.data4.begin());
        return guid;
    }
};

} // namespace

std::unique_ptr<GuidMaker> systemGuidMaker() {
    return std::make_unique<ComGuidMaker>();
}

} // namespace quillset
