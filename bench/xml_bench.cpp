// Reading, writing and saving a scenery document of 100,000 placements, against the bare libraries on the
// same bytes. Each benchmark prints its ratio and the limit that the ratio should keep.
#include "base/atomic_file.h"
#include "base/paths.h"
#include "base/tag_lines.h"
#include "base/xml_check.h"
#include "base/xml_file.h"
#include "comparison.h"
#include "scenery_generator.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <libxml/parser.h>
#include <vector>

using namespace quillset;
using bench::compare;
using bench::Measure;

namespace {

constexpr std::size_t placements = 100'000;

const std::string& scenery() {
    static const std::string bytes = bench::sceneryOf(placements);
    return bytes;
}

// The file as a temporary that is removed at the end.
class ScratchFile {
public:
    explicit ScratchFile(const char* name)
        : path_(toText(std::filesystem::temp_directory_path() / name)) {}
    ~ScratchFile() {
        std::error_code ignored;
        std::filesystem::remove(toPath(path_), ignored);
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
};

void parseBare(const std::string& bytes) {
    pugi::xml_document document;
    const auto result = document.load_buffer(bytes.data(), bytes.size(),
                                             pugi::parse_default | pugi::parse_declaration | pugi::parse_pi |
                                                 pugi::parse_comments | pugi::parse_doctype);
    benchmark::DoNotOptimize(result);
}

void openFile(const std::string& path) {
    pugi::xml_document document;
    const XmlRead read = readXmlFile(path, document);
    std::vector<pugi::xml_node> index;
    for (const pugi::xml_node& node : document.document_element().children("SceneryObject"))
        index.push_back(node);
    if (!read.ok || index.size() != placements)
        std::abort();
}

void checkAgainstParse(benchmark::State& state) {
    compare(
        state, 1.2, [] { benchmark::DoNotOptimize(findXmlFault(scenery())); }, [] { parseBare(scenery()); });
}

void openAgainstParse(benchmark::State& state) {
    const ScratchFile file("quillset-xml-bench.xml");
    writeFileAtomically(*systemFileOperations(), file.path(), scenery());
    compare(
        state, 4, [&] { openFile(file.path()); }, [] { parseBare(scenery()); });
}

void openAgainstLibxml(benchmark::State& state) {
    const ScratchFile file("quillset-xml-bench.xml");
    writeFileAtomically(*systemFileOperations(), file.path(), scenery());
    compare(
        state, 1, [&] { openFile(file.path()); },
        [] {
            const auto& bytes = scenery();
            xmlFreeDoc(xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr,
                                     XML_PARSE_HUGE | XML_PARSE_NONET));
        });
}

void writeAgainstPrint(benchmark::State& state) {
    pugi::xml_document document;
    (void)readXml(scenery(), document);
    struct Appender : pugi::xml_writer {
        std::string bytes;
        void write(const void* data, std::size_t size) override {
            bytes.append(static_cast<const char*>(data), size);
        }
    };
    compare(
        state, 1.3, [&] { benchmark::DoNotOptimize(writeXml(document)); },
        [&] {
            Appender appender;
            document.print(appender, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
            benchmark::DoNotOptimize(appender.bytes);
        },
        Measure::elapsedTime); // ours works with several threads
}

void splitAgainstWrite(benchmark::State& state) {
    pugi::xml_document document;
    (void)readXml(scenery(), document);
    compare(
        state, 1, [] { benchmark::DoNotOptimize(splitTagsOnLines(scenery())); },
        [&] { benchmark::DoNotOptimize(writeXml(document)); });
}

void saveAgainstFlush(benchmark::State& state) {
    pugi::xml_document document;
    (void)readXml(scenery(), document);
    const std::string lines = splitTagsOnLines(scenery());
    const ScratchFile ours("quillset-xml-bench-saved.xml");
    const ScratchFile plain("quillset-xml-bench-plain.xml");
    const auto files = systemFileOperations();
    compare(
        state, 3, [&] { saveXmlLines(*files, ours.path(), document, TextEncoding::utf8); },
        [&] {
            files->remove(plain.path());
            files->writeAndFlush(plain.path(), wholeContent(lines), plain.path());
        },
        Measure::elapsedTime); // most of it is waiting for the disk
}

BENCHMARK(checkAgainstParse)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(openAgainstParse)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(openAgainstLibxml)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(writeAgainstPrint)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(splitAgainstWrite)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(saveAgainstFlush)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);

} // namespace

BENCHMARK_MAIN();
