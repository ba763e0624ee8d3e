#pragma once

#include "base/registry.h"

#include <string>

namespace quillset {

/// Not on Windows: the registry of a Wine prefix, read from its file "system.reg" without running Wine. The
/// file is text: a line "[Key\\Sub key]" opens a key, lines "Name"="value" below it hold its values;
/// backslashes, quotes and characters beyond ASCII are written as escapes.
class WineRegistry : public Registry {
public:
    explicit WineRegistry(std::string prefix);

    /// Reads the file anew each time: it is asked once or twice in a run.
    [[nodiscard]] std::string text(std::string_view key, std::string_view valueName) const override;
    [[nodiscard]] std::string nativePath(std::string_view windowsPath) const override;

private:
    [[nodiscard]] std::string driveFolder(char letter) const;

    std::string prefix_;
};

} // namespace quillset
