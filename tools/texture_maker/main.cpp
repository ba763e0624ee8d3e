// Fills a folder with textures of our own for generic buildings, under the names of the simulator's files.

#include "base/paths.h"
#include "texture_maker/texture_maker.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace {

bool writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream out(quillset::toPath(path), std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return out.flush().good();
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: quillset_texture_maker FOLDER\n", stderr);
        return 2;
    }
    const std::string folder = arguments[1];
    std::error_code failed;
    std::filesystem::create_directories(quillset::toPath(folder), failed);
    for (const quillset::TextureTable table : quillset::textureTables) {
        for (const std::string_view name : quillset::textureFiles(table)) {
            const std::string path = quillset::joinPath(folder, name);
            if (!writeFile(path, quillset::makeTexture(table, name))) {
                std::fprintf(stderr, "cannot write %s\n", path.c_str());
                return 1;
            }
        }
    }
    return 0;
}
