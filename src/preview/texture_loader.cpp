#include "preview/texture_loader.h"

#include "base/dialogs.h"
#include "base/input_file.h"
#include "base/paths.h"
#include "base/runtime_error.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <system_error>

namespace quillset {

namespace {

constexpr const char* temporaryName = "temp.bmp";
constexpr const char* keepQuiet = "Do not show this again until the next start";
// A picture of the largest sides with all its smaller ones has less.
constexpr std::size_t largestTextureFile = std::size_t{128} << 20;

std::optional<Picture> loadTexture(const std::string& path) {
    try {
        InputFile file(path);
        if (file.size() > largestTextureFile)
            return std::nullopt;
        std::string bytes(file.size(), '\0');
        bytes.resize(file.read(bytes.data(), bytes.size()));
        return decodeTexture(bytes);
    } catch (const RuntimeError&) {
        return std::nullopt; // missing or unreadable: reported in one way by the caller
    }
}

/// Finds textures without regard to letter case. Thousands of files lie in the simulator's folder, so that it
/// is listed once at most, and only when some name is not there as it is spelled.
class TextureFolder {
public:
    explicit TextureFolder(const std::string& simulator)
        : folder_(findIgnoringCase(simulator, "texture").value_or(joinPath(simulator, "texture"))) {}

    [[nodiscard]] std::string pathOf(std::string_view name) {
        std::string exact = joinPath(folder_, name);
        if (fileExists(exact))
            return exact;
        if (!listing_)
            listing_ = list();
        const auto found = listing_->find(lowerCase(name));
        return found == listing_->end() ? exact : found->second;
    }

private:
    using Listing = std::map<std::string, std::string>;

    [[nodiscard]] Listing list() const {
        Listing listing;
        std::error_code failed;
        for (std::filesystem::directory_iterator it(toPath(folder_), failed), end; !failed && it != end;
             it.increment(failed))
            listing.emplace(lowerCase(toText(it->path().filename())), toText(it->path()));
        return listing;
    }

    std::string folder_;
    std::optional<Listing> listing_;
};

// Writes over what is there: making the file anew 154 times, or cutting it to nothing first, takes file
// systems many times as long as the decoding.
bool writeTemporary(const std::filesystem::path& path, const std::string& bytes) {
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    if (!file.is_open())
        file.open(path, std::ios::out | std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    std::error_code failed;
    if (file.good() && std::filesystem::file_size(path, failed) != bytes.size())
        std::filesystem::resize_file(path, bytes.size(), failed);
    return file.good() && !failed;
}

// After a failed conversion nothing may be left, or the picture of the texture before would be shown.
void convertTexture(const std::string& source, const std::string& destination) {
    const std::optional<Picture> picture = loadTexture(source);
    if (picture && writeTemporary(toPath(destination), encodeBitmap(*picture)))
        return;
    std::error_code ignored;
    std::filesystem::remove(toPath(destination), ignored);
}

} // namespace

void loadTextures(const TextureFolders& folders, Dialogs& dialogs, TextureSink& sink) {
    const std::string temporary = joinPath(folders.work, temporaryName);
    TextureFolder textures(folders.simulator);
    Quiet quiet = Quiet::no;
    for (const TextureTable table : textureTables) {
        int index = 0;
        for (const std::string_view name : textureFiles(table)) {
            convertTexture(textures.pathOf(name), temporary);
            if (const std::optional<Picture> picture = loadTexture(temporary))
                sink.upload(table, index, *picture);
            else if (quiet == Quiet::no)
                quiet = dialogs.tellQuietable({"Loading Texture File: '" + temporary + "' Failed!",
                                               applicationTitle, MessageButtons::ok, MessageIcon::critical},
                                              keepQuiet);
            ++index;
        }
    }
}

} // namespace quillset
