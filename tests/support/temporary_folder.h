#pragma once

#include "base/paths.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace quillset::test {

/// A folder of its own for one test, removed with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("quillset-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string path() const { return toText(path_); }
    /// With the system's own separators.
    [[nodiscard]] std::string file(std::string_view name) const {
        return toText((path_ / toPath(name)).make_preferred());
    }
    /// Writes a file (folders on the way are made) and gives its path.
    std::string write(std::string_view name, std::string_view bytes) const {
        const std::filesystem::path target = path_ / toPath(name);
        std::filesystem::create_directories(target.parent_path());
        std::ofstream(target, std::ios::binary) << bytes;
        return file(name);
    }
    [[nodiscard]] std::string read(std::string_view name) const {
        std::ifstream in(path_ / toPath(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    [[nodiscard]] bool has(std::string_view name) const {
        return std::filesystem::exists(path_ / toPath(name));
    }

private:
    std::filesystem::path path_;
};

} // namespace quillset::test
