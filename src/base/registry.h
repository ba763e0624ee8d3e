#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quillset {

/// The machine-wide registry, read only: where programs note their folders.
class Registry {
public:
    virtual ~Registry() = default;

    /// A text value under a key of the local-machine hive, such as "SOFTWARE\Company\Program"; empty when the
    /// key or the value is missing or is no text. Keys of 32-bit programs come first.
    [[nodiscard]] virtual std::string text(std::string_view key, std::string_view valueName) const = 0;
    /// A path from the registry as this system's file functions know it: the same on Windows; elsewhere the
    /// place in the Wine prefix, in the spelling that the files have.
    [[nodiscard]] virtual std::string nativePath(std::string_view windowsPath) const = 0;
};

/// On Windows the system's; elsewhere that of the Wine prefix in the environment variable WINEPREFIX, else of
/// ".wine" in the home folder. Without a prefix every value is empty.
[[nodiscard]] std::unique_ptr<Registry> systemRegistry();

} // namespace quillset
