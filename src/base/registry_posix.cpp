#include "base/paths.h"
#include "base/registry.h"
#include "base/user_folder.h"
#include "base/wine_registry.h"

#include <cstdlib>

namespace quillset {

std::unique_ptr<Registry> systemRegistry() {
    const char* const prefix = std::getenv("WINEPREFIX");
    const bool named = prefix != nullptr && *prefix != '\0';
    return std::make_unique<WineRegistry>(named ? prefix : joinPath(homeFolder(), ".wine"));
}

} // namespace quillset
