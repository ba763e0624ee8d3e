// Makes a small simulator folder of our own, so that the editor and its tour run without the real one.

#include "base/paths.h"
#include "sample_simulator/sample_files.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using quillset::SampleFile;

struct Options {
    std::string folder;
    /// Folder of the pictures; without one they are not made.
    std::string pictures;
    bool withModule = false;
};

std::optional<Options> readOptions(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--with-module")
            options.withModule = true;
        else if (argument == "--pictures" && i + 1 < count)
            options.pictures = arguments[++i];
        else if (options.folder.empty() && !argument.starts_with("--"))
            options.folder = argument;
        else
            return std::nullopt;
    }
    return options.folder.empty() ? std::nullopt : std::optional(options);
}

void write(const std::string& folder, const SampleFile& file) {
    const std::filesystem::path path = quillset::toPath(folder) / quillset::toPath(file.path);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary);
    out.write(file.bytes.data(), static_cast<std::streamsize>(file.bytes.size()));
    if (!out.flush().good())
        throw std::runtime_error("cannot write " + quillset::toText(path));
}

void makeSample(const Options& options) {
    for (const SampleFile& file : quillset::sampleSimulator())
        write(options.folder, file);
    if (options.withModule)
        write(options.folder, quillset::sampleModule());
    if (options.pictures.empty())
        return;
    for (const SampleFile& file : quillset::samplePictures())
        write(options.pictures, file);
}

} // namespace

int main(int count, char** arguments) {
    const std::optional<Options> options = readOptions(count, arguments);
    if (!options) {
        std::fputs("usage: quillset_sample_simulator FOLDER [--with-module] [--pictures FOLDER]\n"
                   "  --with-module  an empty file in the place of the simulator's link module\n"
                   "  --pictures     where to put pictures of objects (\"pics\" of a program folder)\n",
                   stderr);
        return 2;
    }
    try {
        makeSample(*options);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
