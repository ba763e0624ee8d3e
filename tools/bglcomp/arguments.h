#pragma once

#include "compiler/target.h"

#include <string>
#include <vector>

namespace quillset::compiler {

/// The command line of bglcomp.
struct Arguments {
    bool help = false;
    bool version = false;
    bool skipUnsupported = false;
    Target target = Target::fs2004;
    std::vector<std::string> files; ///< as given, patterns not resolved
    std::string problem;            ///< why the command line makes no sense; empty when it does
};

[[nodiscard]] Arguments parseArguments(const std::vector<std::string>& words);

/// The files that a name with "*" and "?" in its last part stands for, sorted; the name itself when it holds
/// none of them or is the name of a file. Empty when nothing matches.
[[nodiscard]] std::vector<std::string> resolvePattern(const std::string& pattern);

} // namespace quillset::compiler
