#pragma once

#include "preview/texture_file.h"
#include "preview/texture_tables.h"

#include <string>

namespace quillset {

class Dialogs;

/// Where the textures come from and where they pass through.
struct TextureFolders {
    /// The simulator's folder; the textures are in its "texture".
    std::string simulator;
    /// Folder of the temporary bitmap, writable.
    std::string work;
};

/// Takes the loaded textures: the renderer.
class TextureSink {
public:
    virtual ~TextureSink() = default;
    virtual void upload(TextureTable table, int index, const Picture& picture) = 0;
};

/// Loads every texture of the three tables in their order, each by way of a plain bitmap "temp.bmp" in the
/// work folder, which is left there at the end. For a texture that is missing or unreadable, nothing is
/// uploaded and a message names the temporary bitmap (deliberate: that is the file whose loading failed);
/// the user may ask to be spared the rest of these messages.
void loadTextures(const TextureFolders& folders, Dialogs& dialogs, TextureSink& sink);

} // namespace quillset
