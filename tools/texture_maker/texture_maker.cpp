#include "texture_maker/texture_maker.h"

#include "texture_maker/roof_texture.h"
#include "texture_maker/wall_texture.h"

namespace quillset {

std::string makeTexture(TextureTable table, std::string_view fileName) {
    switch (table) {
    case TextureTable::wall:
        return paintWallTexture(fileName).encode();
    case TextureTable::window:
        return paintWindowTexture(fileName).encode();
    case TextureTable::roof:
        break;
    }
    return paintRoofTexture(fileName).encode();
}

} // namespace quillset
