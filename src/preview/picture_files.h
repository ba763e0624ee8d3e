#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillset {

/// The stored pictures of the catalogue's objects: the files "<key>.bmp" and "<key>.jpg" in "pics" below some
/// folders; letter case does not matter. A folder is listed when it is first asked for and again when it has
/// changed, so that a look-up costs the same with thousands of pictures.
class PictureFiles {
public:
    explicit PictureFiles(const std::vector<std::string>& folders);

    /// The picture of a key in the first of the folders that has one, a .bmp before a .jpg. Nothing when
    /// there is none.
    [[nodiscard]] std::optional<std::string> find(std::string_view key);

private:
    struct Listing {
        std::string folder;
        std::string pictures; ///< "pics" as it is spelled there; empty for none
        std::filesystem::file_time_type changed{};
        std::unordered_map<std::string, std::string> paths; ///< by folded file name
    };
    static void refresh(Listing& listing);

    std::vector<Listing> listings_;
};

} // namespace quillset
