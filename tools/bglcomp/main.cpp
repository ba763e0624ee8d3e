// bglcomp: compiles scenery XML to BGL files. Exit codes: 0 everything written, 1 an error, 2 a command line
// that makes no sense.

#include "arguments.h"
#include "base/console_program.h"
#include "base/runtime_error.h"
#include "compiler/compile.h"

#include <exception>
#include <new>

namespace {

using namespace quillset;
using namespace quillset::compiler;

constexpr std::string_view usage =
    "Usage: bglcomp [options] FILE.xml...\n"
    "\n"
    "Compiles scenery placements and models (XML) to FILE.bgl beside each FILE.xml.\n"
    "FILE may hold the wildcards * and ?.\n"
    "\n"
    "Options:\n"
    "  --target fs2004       write for Flight Simulator 2004 (the default)\n"
    "  --target fsx          write for the later simulator, FSX\n"
    "  --skip-unsupported    leave out what this compiler cannot write, in place of stopping with an error\n"
    "  --help                show this text and end\n"
    "  --version             show name and version and end\n"
    "\n"
    "Messages have the form FILE(line,column): error: TEXT. With an error nothing is written for that file\n"
    "and an older FILE.bgl stays as it is. Exit code: 0 all written, 1 an error, 2 a wrong command line.\n";

class ConsoleMessages : public MessageSink {
public:
    void add(const CompilerMessage& message) override {
        pending_ += messageLine(message) + "\n";
        flushIfLong();
    }
    void say(const std::string& line) {
        pending_ += line + "\n";
        flush();
    }
    void flush() {
        writeConsole(ConsoleStream::output, pending_);
        pending_.clear();
    }

private:
    // A file can have a hundred thousand messages: not one write for each.
    void flushIfLong() {
        constexpr std::size_t longEnough = 1 << 14;
        if (pending_.size() >= longEnough)
            flush();
    }

    std::string pending_;
};

std::string counted(std::uint64_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

void summarise(const std::string& source, const CompileResult& result, ConsoleMessages& messages) {
    std::string left;
    for (const auto& [name, count] : result.leftOut)
        left += (left.empty() ? "" : ", ") + std::to_string(count) + " " + name;
    if (!left.empty())
        messages.say(source + ": left out as not supported: " + left);
    const std::string tally = counted(result.errors, "error") + ", " + counted(result.warnings, "warning");
    if (result.output.empty())
        messages.say(source + ": " + tally + "; nothing was written");
    else
        messages.say(result.output + ": written, " + counted(result.placements, "placement") + " in " +
                     counted(result.cells, "cell") + ", " + counted(result.models, "model") + ", " +
                     counted(result.bytes, "byte") + "; " + tally);
}

// True when everything was written.
bool compileAll(const Arguments& arguments, ConsoleMessages& messages) {
    bool good = true;
    const auto files = systemFileOperations();
    for (const std::string& pattern : arguments.files) {
        const std::vector<std::string> sources = resolvePattern(pattern);
        if (sources.empty()) {
            messages.add({Severity::error, pattern, 0, 0, "no file matches"});
            good = false;
        }
        for (const std::string& source : sources) {
            messages.say("Compiling " + source);
            CompileOptions options;
            options.target = arguments.target;
            options.skipUnsupported = arguments.skipUnsupported;
            const CompileResult result = compileFile(source, options, *files, messages);
            summarise(source, result, messages);
            good = good && !result.output.empty();
        }
    }
    messages.flush();
    return good;
}

int run(const Arguments& arguments) {
    if (!arguments.problem.empty()) {
        writeConsole(ConsoleStream::error, "bglcomp: " + arguments.problem + "\nTry bglcomp --help.\n");
        return 2;
    }
    ConsoleMessages messages;
    const bool later = arguments.target == Target::fsx;
    messages.say(std::string(compilerName) + (arguments.version ? ""
                                              : later           ? " (target fsx)"
                                                                : " (target fs2004)"));
    if (arguments.version)
        return 0;
    if (arguments.help || arguments.files.empty()) {
        writeConsole(ConsoleStream::output, usage);
        return arguments.help ? 0 : 2;
    }
    return compileAll(arguments, messages) ? 0 : 1;
}

} // namespace

int main(int count, char** words) {
    prepareConsole();
    try {
        return run(parseArguments(programArguments(count, words)));
    } catch (const std::bad_alloc&) {
        writeConsole(ConsoleStream::output, "bglcomp: error: out of memory; nothing more was written\n");
    } catch (const std::exception& problem) {
        writeConsole(ConsoleStream::output, std::string("bglcomp: error: ") + problem.what() + "\n");
    }
    return 1;
}
