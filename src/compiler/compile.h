#pragma once

#include "base/atomic_file.h"
#include "compiler/bgl_file.h"
#include "compiler/message.h"
#include "compiler/target.h"

#include <chrono>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quillset::compiler {

/// Name and version, as the first line of the program's output has them.
inline constexpr const char* compilerName = "Quillset scenery compiler " QUILLSET_COMPILER_VERSION;

struct CompileOptions {
    Target target = Target::fs2004;
    /// Leave out what is not supported, with a warning, in place of an error.
    bool skipUnsupported = false;
    /// Time of compilation for the file's header.
    std::chrono::system_clock::time_point time = std::chrono::system_clock::now();
};

/// What came of one source.
struct CompileResult {
    std::string output; ///< path of the file written; empty when nothing was written
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t placements = 0;
    std::size_t cells = 0;
    std::size_t models = 0;
    std::uint64_t bytes = 0;
    /// What was left out as unsupported: names of elements and how many there were.
    std::map<std::string, std::size_t, std::less<>> leftOut;
};

/// Path of the output beside a source: the extension replaced by ".bgl".
[[nodiscard]] std::string outputPath(std::string_view source);

/// Compiles one source to the file beside it. With an error nothing is written and an older output stays as
/// it is. Never throws for what a user can cause: everything is reported to `messages`.
CompileResult compileFile(const std::string& source, const CompileOptions& options, FileOperations& files,
                          MessageSink& messages);

/// The same without files of its own: compiles the bytes of a source. `name` stands in the messages, `folder`
/// is where relative model paths begin. Nothing when there was an error; `result` gets the counts either way.
[[nodiscard]] std::optional<BglFile> compileBytes(std::string bytes, const std::string& name,
                                                  const std::string& folder, const CompileOptions& options,
                                                  MessageSink& messages, CompileResult& result);

} // namespace quillset::compiler
