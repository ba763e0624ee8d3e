// bgl-list: prints BGL files as text. Exit codes: 0 all read, 1 a damaged or unreadable file, 2 a wrong
// command line.

#include "base/console_program.h"
#include "listing.h"

#include <exception>
#include <sstream>

namespace {

constexpr std::string_view usage = "Usage: bgl-list FILE.bgl...\n"
                                   "\n"
                                   "Prints the placements and models of BGL files as text.\n"
                                   "\n"
                                   "Options:\n"
                                   "  --help      show this text and end\n"
                                   "  --version   show name and version and end\n";

bool listFile(const std::string& path) {
    std::ostringstream out;
    std::string problem;
    try {
        bgl_list::FileSource file(path);
        bgl_list::list(file, out);
    } catch (const std::exception& damage) {
        problem = damage.what();
    }
    if (!out.str().empty() &&
        !quillset::writeConsole(quillset::ConsoleStream::output, path + ": " + out.str()))
        problem = "the list could not be written to the standard output";
    if (!problem.empty())
        quillset::writeConsole(quillset::ConsoleStream::error, path + ": error: " + problem + "\n");
    return problem.empty();
}

} // namespace

int main(int count, char** words) {
    using namespace quillset;
    prepareConsole();
    const std::vector<std::string> arguments = programArguments(count, words);
    if (arguments.empty() || arguments.front() == "--help") {
        writeConsole(ConsoleStream::output, usage);
        return arguments.empty() ? 2 : 0;
    }
    if (arguments.front() == "--version") {
        writeConsole(ConsoleStream::output, "bgl-list " QUILLSET_VERSION "\n");
        return 0;
    }
    if (arguments.front().starts_with("-")) {
        writeConsole(ConsoleStream::error,
                     "bgl-list: unknown option \"" + arguments.front() + "\"\nTry bgl-list --help.\n");
        return 2;
    }
    bool good = true;
    for (const std::string& path : arguments)
        good = listFile(path) && good;
    return good ? 0 : 1;
}
