// Any bytes given to the texture decoder: no read outside them, no picture larger than they can fill.

#include "preview/texture_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::optional<quillset::Picture> picture = quillset::decodeTexture(bytes);
    if (!picture)
        return 0;
    const std::size_t pixels =
        static_cast<std::size_t>(picture->width) * static_cast<std::size_t>(picture->height);
    // Eight bytes of DXT1 make sixteen pixels: nothing is packed closer.
    if (picture->pixels.size() != pixels * 3 || pixels > size * 2)
        std::abort();
    if (quillset::decodeTexture(quillset::encodeBitmap(*picture)) != picture)
        std::abort();
    return 0;
}
