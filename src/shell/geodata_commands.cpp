#include "shell/geodata_commands.h"

#include "base/paths.h"
#include "base/progress.h"
#include "geodata/import_cost.h"
#include "geodata/point_file.h"
#include "geodata/reference_system.h"
#include "geodata/shapefile_export.h"

#include <algorithm>

namespace quillset {

namespace {

constexpr const char* form = "MDIForm1";
constexpr const char* shapefileFilter = "SHP file (*.shp)|*.shp|";

// The scenery's name with ".shp" in the place of ".xml".
std::string proposedName(const std::string& scenery) {
    constexpr std::string_view extension = ".xml";
    const bool usual = lowerCase(scenery).ends_with(extension);
    return scenery.substr(0, scenery.size() - (usual ? extension.size() : 0)) + ".shp";
}

/// The progress of one command, which ends with it, however that ends.
class ProgressShown {
public:
    ProgressShown(Progress& progress, const std::string& what, std::size_t total)
        : progress_(progress) {
        progress_.begin(what, total);
    }
    ~ProgressShown() { progress_.end(); }
    ProgressShown(const ProgressShown&) = delete;
    ProgressShown& operator=(const ProgressShown&) = delete;

private:
    Progress& progress_;
};

std::string exportText(const ExportCount& count, const std::string& path) {
    std::string text =
        std::to_string(count.points) + (count.points == 1 ? " point" : " points") + " exported to " + path;
    if (count.unclear > 0)
        text +=
            ", " + std::to_string(count.unclear) + " of them with a position or heading that is no number";
    return text;
}

} // namespace

void GeodataCommands::exportShapefile() {
    session_.errors().trapped("mExportSHP_Click", form, [&] {
        session_.commitEdits();
        if (!session_.document().isOpen())
            return;
        if (!session_.document().hasRoot()) {
            session_.dialogs().tell(
                "There is nothing to export: the scenery file could not be read, or has no "
                "content.",
                errorTitle, MessageIcon::critical);
            return;
        }
        const std::string chosen = session_.dialogs().saveFile(
            {"Export as SHP", shapefileFilter, proposedName(session_.document().path()), {}});
        if (chosen.empty())
            return;
        const std::string path = shapefilePath(chosen);
        if (!exportReplaces(path) || confirmed("File already exists. Are you sure you want to overwrite it?"))
            exportTo(path);
    });
}

void GeodataCommands::exportTo(const std::string& path) {
    const auto names = [this](const std::string& key) { return session_.catalogue().getObjectName(key); };
    const ExportCount count =
        quillset::exportShapefile(session_.document(), names, session_.fileOperations(), path);
    session_.activity().show(exportText(count, path));
    session_.log().write(exportText(count, path));
}

void GeodataCommands::importPoints() {
    session_.errors().trapped("mImportSHP_Click", form, [&] {
        session_.commitEdits();
        if (!session_.document().isOpen() || !session_.document().hasRoot())
            return;
        const std::string path = session_.dialogs().openFile(
            {"Import SHP", shapefileFilter, {}, folderOf(session_.document().path())});
        if (!path.empty())
            importFrom(path);
    });
}

void GeodataCommands::importFrom(const std::string& path) {
    const PointFile file = readPointFile(path);
    if (file.verdict != PointFile::Verdict::points) {
        session_.dialogs().tell(refusalText(file.verdict));
        return;
    }
    if (!coordinatesMayBeRd(path))
        return;
    const ImportCost cost = importCost(session_.document(), session_.journal(), file.points);
    const std::string question = costQuestion(cost, file.points.size());
    if (!question.empty() && !confirmed(question))
        return;
    const std::size_t added =
        addPoints(std::span(file.points).first(std::min(file.points.size(), cost.room)));
    std::string text = importText(added, file.skipped);
    if (added < file.points.size())
        text += "; ended before the other " + std::to_string(file.points.size() - added);
    session_.activity().show(text);
    session_.log().write("import of " + path + ": " + text);
    // The status line may be too short for the names.
    if (!file.skipped.empty())
        session_.dialogs().tell(text + ".");
}

std::size_t GeodataCommands::addPoints(std::span<const NewPlacement> points) {
    const ProgressShown shown(progress_, "Adding points to the scenery", points.size());
    return session_.list().addNewObjects(points, [this](std::size_t done) { return progress_.goOn(done); });
}

bool GeodataCommands::coordinatesMayBeRd(const std::string& path) {
    const std::optional<ReferenceSystem> stated = referenceSystemBeside(path);
    if (!stated || stated->isRd)
        return true;
    const std::string name =
        stated->name.empty() ? "something that is not recognised" : '"' + stated->name + '"';
    return confirmed("Points are imported as RD coordinates, but the coordinate system of this file is " +
                     name +
                     ". The points would get wrong positions. Do you want to import them all the same?");
}

bool GeodataCommands::confirmed(const std::string& question) {
    return session_.dialogs().ask(
               {question, applicationTitle, MessageButtons::yesNo, MessageIcon::question}) == Answer::yes;
}

} // namespace quillset
