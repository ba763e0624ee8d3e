// Any text through the compiler and back through the independent reader: what compiles is a file that the
// reader accepts without a remark and that holds as many things as the compiler counted; what does not
// compile has an error.

#include "base/paths.h"
#include "compiler/compile.h"
#include "fuzz_input.h"
#include "listing.h"

#include <filesystem>
#include <fstream>
#include <sstream>

using namespace quillset;
using namespace quillset::compiler;

namespace {

class Counter : public MessageSink {
public:
    void add(const CompilerMessage& message) override {
        ++(message.severity == Severity::error ? errors : warnings);
        test::require((message.line == 0) == (message.column == 0) && !message.text.empty());
    }
    std::size_t errors = 0;
    std::size_t warnings = 0;
};

// Models that the corpus names.
const std::string& modelFolder() {
    static const std::string folder = [] {
        const auto path = std::filesystem::temp_directory_path() / "quillset-fuzz-models";
        std::filesystem::create_directories(path);
        std::ofstream(path / "a.mdl", std::ios::binary) << "RIFFxxxxMDL9odd";
        std::ofstream(path / "b.mdl", std::ios::binary)
            << std::string("RIFFxxxxMDLXMDLG\x10\0\0\0", 20) << "0123456789abcdef";
        return toText(path);
    }();
    return folder;
}

std::size_t linesWith(const std::string& text, std::string_view start) {
    std::size_t count = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        count += line.starts_with(start) ? 1U : 0U;
    return count;
}

void compileAndRead(std::string_view xml, Target target, bool skipUnsupported) {
    Counter counter;
    CompileResult result;
    CompileOptions options;
    options.target = target;
    options.skipUnsupported = skipUnsupported;
    const auto file = compileBytes(std::string(xml), "x.xml", modelFolder(), options, counter, result);
    test::require(counter.errors == result.errors && counter.warnings == result.warnings);
    test::require(file.has_value() == (result.errors == 0));
    if (!file)
        return;
    std::string bytes;
    file->write([&](std::string_view piece) { bytes += piece; });
    test::require(bytes.size() == file->size());
    std::ostringstream listing;
    bgl_list::MemorySource source(bytes);
    bgl_list::list(source, listing); // what it throws ends the run
    const std::string text = listing.str();
    test::require(linesWith(text, "REMARK") == 0);
    test::require(linesWith(text, " cell") == result.cells);
    test::require(linesWith(text, "  model") == result.models);
    test::require(linesWith(text, "  ") >= result.placements + result.models);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view xml = test::fuzzBytes(data, size);
    compileAndRead(xml, Target::fs2004, false);
    compileAndRead(xml, Target::fs2004, true);
    compileAndRead(xml, Target::fsx, true);
    return 0;
}
