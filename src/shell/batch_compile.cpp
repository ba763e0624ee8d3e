#include "shell/batch_compile.h"

#include "base/runtime_error.h"
#include "build/bgl_compilation.h"
#include "build/console_text.h"
#include "shell/console_dialogs.h"

namespace quillset {

namespace {

/// Passes on the compiler's output and notes what came of the run.
class ConsoleLog : public CompileLog {
public:
    explicit ConsoleLog(const std::function<void(std::string_view)>& write)
        : write_(write) {}

    void runBegins(const std::string& commandLine) override { write_(commandLine + "\n"); }
    void append(const std::string& piece) override { write_(decoder_.decode(piece)); }
    WaitAnswer wait() override { return WaitAnswer::goOn; }
    void runEnds(CompileOutcome outcome) override {
        write_(decoder_.finish());
        outcome_ = outcome;
    }
    void showModal() override {}

    [[nodiscard]] bool madeScenery() const { return outcome_ == CompileOutcome::madeScenery; }

private:
    const std::function<void(std::string_view)>& write_;
    ConsoleTextDecoder decoder_;
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
    ConsoleDialogs dialogs(write, target);
    ConsoleLog log(write);
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
    compilation.run([&](const std::string& path) { writeFileAtomically(files, path, document.serialise()); });
    if (!log.madeScenery())
        write("quillset-xml: no BGL file was made\n");
    return log.madeScenery();
}

} // namespace quillset
