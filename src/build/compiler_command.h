#pragma once

#include "build/console_process.h"

#include <optional>
#include <string>
#include <vector>

namespace quillset {

/// Names of the working files in the program folder.
inline constexpr const char* compileXmlName = "compile.xml";
inline constexpr const char* compileBatName = "compile.bat";
inline constexpr const char* compileBglName = "compile.bgl";

/// The batch file that runs the compiler in the program folder: five lines, each ending in CR LF.
[[nodiscard]] std::string compileBatch(const std::string& programFolder);

/// How the compiler is run on compile.xml in the program folder: the batch file where there is a command
/// interpreter for it, else `bglcomp` directly: the one in the program folder, else the first on PATH; else a
/// `bglcomp.exe` found in the same order, through `wine`; last the one in `foldersAfterPath`. When there is
/// none at all the request names the missing program.
[[nodiscard]] ProcessRequest compilerCommand(const std::string& programFolder,
                                             const std::vector<std::string>& foldersAfterPath);

/// The compiler that compilerCommand would have run, for a report; nothing when there is none.
[[nodiscard]] std::optional<std::string> compilerInUse(const std::string& programFolder,
                                                       const std::vector<std::string>& foldersAfterPath);

/// What to tell a user for whom compilerCommand found none.
[[nodiscard]] std::string compilerMissingText(const std::string& programFolder);
/// Whether a run of that request ended so because there is no compiler.
[[nodiscard]] bool meansNoCompiler(const std::optional<ProcessEnd>& end);

} // namespace quillset
