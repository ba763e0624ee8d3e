#pragma once

#include "build/console_process.h"

#include <optional>
#include <string>

namespace quillset {

/// How a run of the compiler went.
enum class CompileOutcome { madeScenery, madeNothing, endedByUser, notFound };

/// All that is known of a run when it is over.
struct CompileRun {
    CompileOutcome outcome = CompileOutcome::madeNothing;
    /// How the compiler's process ended, where that is known.
    std::optional<ProcessEnd> end;
    bool printed = false;
    /// What to say when there is no compiler.
    std::string missing;
};

/// The run in words for the user, one or two sentences.
[[nodiscard]] std::string compileVerdict(const CompileRun& run);

} // namespace quillset
