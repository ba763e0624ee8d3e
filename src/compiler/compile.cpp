#include "compiler/compile.h"

#include "base/paths.h"
#include "base/runtime_error.h"
#include "compiler/document_reader.h"
#include "compiler/model_check.h"
#include "compiler/source_text.h"

namespace quillset::compiler {

namespace {

// Reads and checks the document; only the models' contents are left on disk.
std::vector<Model> readAndCheck(const SourceText& source, const std::string& folder,
                                const CompileOptions& options, Report& report, CompileResult& result,
                                SceneryRecords& records) {
    TagScanner scanner(source.soundPart());
    ReadContext context{scanner, report, options.target,
                        options.skipUnsupported ? Unsupported::isLeftOut : Unsupported::isError};
    records = readDocument(context);
    result.leftOut = std::move(context.leftOut);
    std::vector<Model> models = checkModels(records.models, options.target, folder, report);
    if (source.fault())
        report.error(source.fault()->offset, source.fault()->problem);
    return models;
}

std::optional<BglFile> compileSource(const SourceText& source, const std::string& folder,
                                     const CompileOptions& options, Report& report, CompileResult& result) {
    SceneryRecords records;
    std::vector<Model> models = readAndCheck(source, folder, options, report, result, records);
    if (report.errors() > 0)
        return std::nullopt;
    if (records.objects.empty() && models.empty())
        report.fileWarning("the file places nothing and holds no model; the output is empty");
    try {
        BglFile file(buildScenerySection(records.objects, options.target), ModelSection(std::move(models)),
                     options.time);
        result.placements = records.objects.size();
        result.cells = file.scenery().cells.size();
        result.models = file.models().count();
        result.bytes = file.size();
        return file;
    } catch (const RuntimeError& problem) {
        report.fileError(problem.what());
        return std::nullopt;
    }
}

// A report for what concerns the file before or after its text is at hand.
void reportForFile(const std::string& name, const std::string& problem, MessageSink& messages,
                   CompileResult& result) {
    messages.add({Severity::error, name, 0, 0, problem});
    ++result.errors;
}

} // namespace

std::string outputPath(std::string_view source) {
    return toText(toPath(source).replace_extension(".bgl"));
}

std::optional<BglFile> compileBytes(std::string bytes, const std::string& name, const std::string& folder,
                                    const CompileOptions& options, MessageSink& messages,
                                    CompileResult& result) {
    const SourceText source(std::move(bytes));
    Report report(name, source.text(), messages);
    std::optional<BglFile> file = compileSource(source, folder, options, report, result);
    result.errors += report.errors();
    result.warnings += report.warnings();
    return file;
}

CompileResult compileFile(const std::string& source, const CompileOptions& options, FileOperations& files,
                          MessageSink& messages) {
    CompileResult result;
    const std::string output = outputPath(source);
    try {
        if (sameIgnoringCase(output, source))
            throw RuntimeError(ErrorNumber::invalidCall, "the output would take the place of the source");
        const auto file =
            compileBytes(readWholeFile(source), source, folderOf(source), options, messages, result);
        if (!file)
            return result;
        writeFileAtomically(files, output, [&](const PieceSink& put) { file->write(put); });
        result.output = output;
    } catch (const RuntimeError& problem) {
        reportForFile(source, problem.what(), messages, result);
    }
    return result;
}

} // namespace quillset::compiler
