#pragma once

#include "base/atomic_file.h"
#include "build/console_process.h"
#include "document/scenery_document.h"
#include "shell/program_files.h"

#include <functional>
#include <string>
#include <string_view>

namespace quillset {

/// The command "Compile BGL" without windows: the compiler's output and all messages go to `write`.
struct BatchCompile {
    FileOperations& files;
    ProcessStarter& processes;
    ProgramFiles programFiles;
    std::function<void(std::string_view utf8)> write;

    /// Compiles the open document, which came from `source`, to `target`; both absolute. True when the
    /// compiler made scenery and it was put there. Throws RuntimeError.
    [[nodiscard]] bool run(const SceneryDocument& document, const std::string& source,
                           const std::string& target) const;
};

} // namespace quillset
