#include "shell/batch_compile.h"

#include "base/paths.h"
#include "base/runtime_error.h"
#include "build/bgl_compilation.h"
#include "build/compile_message.h"
#include "build/console_text.h"
#include "document/placement_ranges.h"
#include "shell/console_dialogs.h"

namespace quillset {

namespace {

/// Passes on the compiler's output line by line and notes what came of the run. The compiler sees a working
/// copy on one line; what it says about a placement is told with the place in the user's own file too.
class ConsoleLog : public CompileLog {
public:
    ConsoleLog(const std::function<void(std::string_view)>& write, std::string source)
        : write_(write)
        , source_(std::move(source))
        , inSource_(readWholeFile(source_)) {}

    void compiles(std::string_view workingCopy) { inCopy_ = PlacementRanges(workingCopy); }
    void runBegins(const std::string& commandLine) override { write_(commandLine + "\n"); }
    void append(const std::string& piece) override { take(decoder_.decode(piece)); }
    WaitAnswer wait() override { return WaitAnswer::goOn; }
    void runEnds(CompileOutcome outcome, const std::string& verdict) override {
        take(decoder_.finish());
        if (!line_.empty())
            endLine();
        write_(verdict + "\n");
        outcome_ = outcome;
    }
    void showModal() override {}

    [[nodiscard]] bool madeScenery() const { return outcome_ == CompileOutcome::madeScenery; }

private:
    void take(std::string_view text) {
        for (const char c : text) {
            if (c == '\n')
                endLine();
            else if (c != '\r')
                line_ += c;
        }
    }

    void endLine() {
        if (const std::optional<CompilePlace> place = compilePlaceIn(line_))
            if (const std::optional<std::size_t> index = inCopy_.placementAt(place->line, place->column))
                line_ += " [" + source_ + "(" + std::to_string(inSource_.lineOf(*index)) + "): row " +
                         std::to_string(*index + 1) + "]";
        write_(line_ + "\n");
        line_.clear();
    }

    const std::function<void(std::string_view)>& write_;
    std::string source_;
    PlacementRanges inSource_;
    PlacementRanges inCopy_;
    ConsoleTextDecoder decoder_;
    std::string line_;
    CompileOutcome outcome_ = CompileOutcome::madeNothing;
};

/// One scenery file with one output; the user's settings stay as they are.
class OneFile : public CompileSettings {
public:
    OneFile(std::string source, std::string target)
        : source_(std::move(source))
        , target_(std::move(target)) {}

    [[nodiscard]] std::string xmlPath() const override { return source_; }
    [[nodiscard]] std::vector<BglPathEntry> bglPaths() const override { return {{source_, target_}}; }
    void setBglPath(std::size_t /*index*/, const std::string& output) override { target_ = output; }

private:
    std::string source_;
    std::string target_;
};

class NoTime : public Clock {
public:
    [[nodiscard]] std::string timeText() const override { return {}; }
};

} // namespace

bool BatchCompile::run(const SceneryDocument& document, const std::string& source,
                       const std::string& target) const {
    // Before the compiler's work, which would be in vain.
    (void)files.writableTarget(target);
    if (const std::string folder = folderOf(target); !folderExists(folder))
        throw RuntimeError(ErrorNumber::pathNotFound, "Path not found: " + folder);
    ConsoleDialogs dialogs(write, target);
    ConsoleLog log(write, source);
    OneFile settings(source, target);
    const NoTime clock;
    ActivityLine nobodyLooks(clock);
    DOSOutputs runner(dialogs, processes);
    BglCompilation compilation({settings,
                                dialogs,
                                files,
                                nobodyLooks,
                                runner,
                                log,
                                programFiles.data,
                                {programFiles.compilerFolder()}});
    compilation.run([&](const std::string& path) {
        const std::string bytes = document.serialise();
        log.compiles(bytes);
        writeFileAtomically(files, path, bytes);
    });
    if (!log.madeScenery())
        write("quillset-xml: no BGL file was made\n");
    return log.madeScenery();
}

} // namespace quillset
