#include "preview/turntable.h"

#include "preview/preview_context.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace quillset {

namespace {

constexpr std::array<std::string_view, 3> buildingKinds{"MultiSidedBuilding", "PyramidalBuilding",
                                                        "RectangularBuilding"};

} // namespace

bool Turntable::tick(const PreviewContext& context) {
    if (!context.documentOpen())
        return false;
    const std::string kind = context.currentKind();
    if (std::find(buildingKinds.begin(), buildingKinds.end(), kind) == buildingKinds.end())
        return false;
    // The tree decides too: a user who looks at another kind of object in the tree sees its picture.
    if (!context.selectedIsGenBuild())
        return false;
    if (rotating_)
        angle_ += degreesPerTick;
    return true;
}

} // namespace quillset
