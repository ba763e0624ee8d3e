#pragma once

#include <string>
#include <vector>

namespace quillset {

/// Looks for files that the program needs beside itself: in the program's own folder, then in the folder
/// named by the environment variable windir followed by "\system\", then "\system32\"; the first hit wins.
class RuntimeFiles {
public:
    /// `windowsFolder` is the value of windir, empty where there is none.
    RuntimeFiles(std::string programFolder, const std::string& windowsFolder);

    [[nodiscard]] bool present(const std::string& name) const;
    /// Those of the table that are missing, in its order.
    [[nodiscard]] std::vector<std::string> missing(const std::vector<std::string>& table) const;

private:
    std::vector<std::string> folders_;
};

/// The run-time files that this build needs beside its executable; empty where everything is linked in.
[[nodiscard]] const std::vector<std::string>& runtimeFileTable();

/// The files of the texture converter whose absence turns the 3-D preview off; empty while our own decoder is
/// used.
[[nodiscard]] const std::vector<std::string>& textureConverterTable();

[[nodiscard]] std::string missingRuntimeFilesText(const std::vector<std::string>& missing);

} // namespace quillset
