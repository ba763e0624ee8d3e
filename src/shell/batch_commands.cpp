#include "shell/batch_commands.h"

#include "base/paths.h"
#include "base/runtime_error.h"
#include "base/same_file.h"
#include "document/local_models.h"
#include "document/placement_ranges.h"
#include "document/scenery_document.h"
#include "geodata/reference_system.h"
#include "geodata/shapefile_export.h"
#include "geodata/shapefile_import.h"
#include "shell/batch_compile.h"
#include "shell/configuration.h"
#include "shell/known_objects.h"

#include <algorithm>

namespace quillset {

namespace {

constexpr int success = 0;
constexpr int failure = 1;

/// A finding is one line, whatever stands in the file.
std::string onOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return text;
}

class Batch {
public:
    Batch(const CommandLine& options, const BatchEnvironment& environment)
        : options_(options)
        , with_(environment) {}

    int run() {
        try {
            return act();
        } catch (const RuntimeError& error) {
            complain(error.what());
            return failure;
        }
    }

private:
    int act() {
        switch (options_.action) {
        case CommandLine::Action::check:
            return check();
        case CommandLine::Action::format:
            return format();
        case CommandLine::Action::compile:
            return compile();
        case CommandLine::Action::exportShapefile:
            return exportPoints();
        case CommandLine::Action::importShapefile:
            return importPoints();
        default:
            complain("this command needs a window");
            return failure;
        }
    }

    int check() {
        CheckReport report{input(), {}, {}};
        try {
            report.findings = findings();
        } catch (const RuntimeError& error) {
            report.problem = error.what();
        }
        const bool listed = with_.write(ConsoleStream::output, listOf(report));
        if (!listed)
            complain("the list could not be written to the standard output");
        if (!report.problem.empty())
            complain(report.problem);
        else if (!report.findings.empty())
            complain(std::to_string(report.findings.size()) +
                     (report.findings.size() == 1 ? " finding in " : " findings in ") + input());
        return listed && report.problem.empty() && report.findings.empty() ? success : failure;
    }

    std::vector<SceneryFinding> findings() {
        loadDocument();
        const KnownObjects known = knownObjects();
        SceneryKnowledge knowledge;
        knowledge.knowsObject = [&](std::string_view guid) { return known.hasObject(guid); };
        if (known.knowsEffects())
            knowledge.knowsEffect = [&](std::string_view name) { return known.hasEffect(name); };
        else if (settings_.fsPath().empty())
            complain("no simulator folder is known, effects are not checked (--fs-path DIR names one)");
        else
            complain("effects are not checked: there is no folder \"effects\" in the simulator's folder " +
                     settings_.fsPath());
        knowledge.modelExists = [&](const std::string& path) { return modelExists(path); };
        return checkScenery(document_, PlacementRanges(readWholeFile(input())), knowledge);
    }

    KnownObjects knownObjects() {
        readSettings();
        CatalogueSources sources;
        sources.genericFile = with_.programFiles.shipped("generic.xml");
        sources.simulatorFolder = settings_.fsPath();
        sources.userLibraries = settings_.libraries(LibraryKind::user);
        sources.rwy12Libraries = settings_.libraries(LibraryKind::rwy12);
        for (const LocalModel& model : localModels(document_))
            sources.documentModels.push_back({model.name, model.sourceFile});
        KnownObjects known(sources);
        for (const std::string& library : known.unreadable())
            complain("the library cannot be read, its objects count as unknown: " + library);
        return known;
    }

    /// Where Compile would look for a relative path, and beside the scenery file, from where other compilers
    /// would.
    [[nodiscard]] bool modelExists(const std::string& path) const {
        if (toPath(path).is_absolute())
            return fileExists(path);
        const std::string beside = folderOf(absolutePath(input()));
        for (const std::string& folder : {with_.programFiles.data, beside}) {
            const std::optional<std::string> found = findIgnoringCase(folder, path);
            if (fileExists(joinPath(folder, path)) || (found && fileExists(*found)))
                return true;
        }
        return false;
    }

    [[nodiscard]] std::string listOf(const CheckReport& report) const {
        if (options_.reportForm == CommandLine::ReportForm::json)
            return with_.json(report);
        std::string text;
        for (const SceneryFinding& finding : report.findings) {
            text += input();
            if (finding.line > 0)
                text += "(" + std::to_string(finding.line) + ")";
            text += finding.row > 0 ? ": row " + std::to_string(finding.row) : ": model";
            text.append(": ").append(findingName(finding.kind)).append(": ");
            text += onOneLine(finding.what) + ": " + finding.why + "\n";
        }
        return text;
    }

    int format() {
        loadDocument();
        // A file that is laid out already keeps its time stamp.
        if (document_.fileBytes() != readWholeFile(input()))
            document_.save(with_.files, input());
        return success;
    }

    int compile() {
        loadDocument();
        const BatchCompile compilation{
            with_.files, with_.processes, with_.programFiles,
            [this](std::string_view text) { with_.write(ConsoleStream::error, text); }};
        return compilation.run(document_, absolutePath(input()), absolutePath(options_.operands.at(1)))
                   ? success
                   : failure;
    }

    int exportPoints() {
        loadDocument();
        const KnownObjects known = knownObjects();
        const ExportCount count = exportShapefile(
            document_, [&](const std::string& key) { return known.nameOf(key); }, with_.files,
            shapefilePath(options_.operands.at(1)));
        if (count.unclear == 0)
            return success;
        complain("placements whose position or heading is no number: " + std::to_string(count.unclear));
        return failure;
    }

    int importPoints() {
        loadDocument();
        const std::string& points = options_.operands.at(1);
        const std::string& target = options_.operands.at(2);
        for (const std::string& file : shapefileFiles(points))
            if (sameFile(file, target))
                throw RuntimeError(ErrorNumber::invalidCall,
                                   "the result would overwrite the points: " + target);
        const std::optional<ReferenceSystem> system = referenceSystemBeside(points);
        if (system && !system->isRd)
            throw RuntimeError(ErrorNumber::invalidCall, "the .prj file beside " + points +
                                                             " says that its points are not in RD (" +
                                                             system->name + "); remove it if they are");
        const ImportResult result = importShapefile(document_, points);
        if (result.verdict != PointFile::Verdict::points)
            throw RuntimeError(ErrorNumber::invalidCall, refusalText(result.verdict));
        document_.save(with_.files, target);
        complain(importText(result.added, result.skipped));
        return result.skipped.empty() ? success : failure;
    }

    void loadDocument() {
        const XmlRead read = document_.load(input());
        if (!read.ok)
            throw RuntimeError(ErrorNumber::invalidCall, input() + " could not be read: " + read.problem);
    }

    void readSettings() {
        const std::string file = with_.programFiles.config();
        settings_.createFresh({});
        if (fileExists(file)) {
            if (const std::optional<std::string> problem = settings_.load(file)) {
                complain("the settings cannot be read and are left out: " + *problem);
                settings_.createFresh({});
            }
        }
        if (options_.fsPath)
            settings_.setFsPath(*options_.fsPath);
        else if (settings_.fsPath().empty())
            settings_.setFsPath(with_.registeredSimulatorFolder());
    }

    [[nodiscard]] const std::string& input() const { return options_.operands.front(); }

    void complain(std::string text) {
        std::erase(text, '\r'); // some messages are made for windows, where they fill several lines
        with_.write(ConsoleStream::error, "quillset-xml: " + onOneLine(std::move(text)) + "\n");
    }

    const CommandLine& options_;
    const BatchEnvironment& with_;
    SceneryDocument document_;
    Configuration settings_;
};

} // namespace

int runBatchCommand(const CommandLine& options, const BatchEnvironment& environment) {
    return Batch(options, environment).run();
}

} // namespace quillset
