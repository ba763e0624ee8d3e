#include "build/compile_outcome.h"

namespace quillset {

namespace {

std::string madeSceneryVerdict(const std::optional<ProcessEnd>& end) {
    if (end && !end->crash.empty())
        return "The compiler crashed (" + end->crash +
               ") after it had made a scenery file, which may be incomplete.";
    if (end && end->exitCode != 0)
        return "The compiler made a new scenery file, but reported a failure (exit code " +
               std::to_string(end->exitCode) + ").";
    return "The compiler made a new scenery file.";
}

std::string madeNothingVerdict(const CompileRun& run) {
    if (run.end && !run.end->crash.empty())
        return "The compiler crashed (" + run.end->crash + ") and made no scenery file.";
    std::string verdict = "The compiler made no scenery file";
    if (run.end && run.end->exitCode != 0)
        verdict = "The compiler failed (exit code " + std::to_string(run.end->exitCode) +
                  ") and made no scenery file";
    return verdict + (run.printed ? "; its messages say why." : ". It printed nothing.");
}

} // namespace

std::string compileVerdict(const CompileRun& run) {
    switch (run.outcome) {
    case CompileOutcome::madeScenery:
        return madeSceneryVerdict(run.end);
    case CompileOutcome::madeNothing:
        return madeNothingVerdict(run);
    case CompileOutcome::endedByUser:
        return "The compiler was ended before it had finished.";
    case CompileOutcome::notFound:
        return run.missing;
    }
    return {};
}

} // namespace quillset
