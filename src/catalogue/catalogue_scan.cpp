#include "catalogue/catalogue_scan.h"

#include "base/paths.h"
#include "base/xml_file.h"
#include "catalogue/folder_listing.h"
#include "catalogue/library_files.h"

#include <functional>
#include <string_view>
#include <utility>

namespace quillset {

namespace {

using LibraryReader = bool (*)(const std::string& path, const LibrarySink& sink);

class Scan {
public:
    Scan(Dialogs& dialogs, ErrorFunctions& errors)
        : dialogs_(dialogs)
        , errors_(errors) {}

    void addDefaultLibrary(const std::string& path) {
        const NodeId group = nodes_.add(root, NodeKind::defaultGroup, "generic", "Default library objects");
        bool readable = true;
        reportingDuplicates("rescanObjTree", fileNameOf(path), [&] {
            readable = readDefaultLibrary(path, [&](std::string_view key, std::string_view text) {
                nodes_.add(group, NodeKind::defaultObject, key, text);
            });
        });
        if (!readable)
            tellFailure("Failed to load generic.xml file", problemOf(path));
    }

    void addEffects(const std::string& simulatorFolder) {
        const std::optional<std::string> folder = effectsFolder(simulatorFolder);
        if (!folder) {
            tellFailure("FS path not found, please check your config.xml file",
                        simulatorFolder.empty() ? "No folder is set there."
                                                : "There is no folder \"effects\" in " + simulatorFolder);
            return;
        }
        const NodeId group = nodes_.add(root, NodeKind::effectsGroup, "effects", "Effects");
        reportingDuplicates("rescanObjTree", "the effects", [&] {
            for (const std::string& name : filesEndingIn(*folder, "fx").usable)
                nodes_.add(group, NodeKind::effect, name, name);
        });
    }

    void addUserGroup() {
        userGroup_ = nodes_.add(root, NodeKind::userGroup, "user", "User library objects");
    }

    void addNewUserLibrary(const std::string& path, LibraryReader read) {
        bool readable = true;
        reportingDuplicates("addNewUserLibrary", fileNameOf(path), [&] {
            std::optional<NodeId> group; // a library without objects gets none
            readable = read(path, [&](std::string_view key, std::string_view text) {
                if (!group)
                    group = nodes_.add(userGroup_, NodeKind::library, fileNameOf(path), fileNameOf(path));
                nodes_.add(*group, NodeKind::userObject, key, text);
            });
        });
        if (!readable)
            tellFailure("Please select a valid user library file", problemOf(path));
    }

    void addModels(const std::vector<CatalogueModel>& models) {
        const NodeId group = nodes_.add(root, NodeKind::localGroup, "local", "MDL objects");
        reportingDuplicates("rescanObjTree", "the scenery file", [&] {
            for (const CatalogueModel& model : models)
                nodes_.add(group, NodeKind::localModel, model.name, fileNameOf(model.sourceFile));
        });
    }

    void addBuildings() {
        const NodeId group = nodes_.add(root, NodeKind::buildingGroup, "genbuild", "Generic building");
        nodes_.add(group, NodeKind::building, "rectangular", "Rectangular building");
        nodes_.add(group, NodeKind::building, "pyramidal", "Pyramidal building");
        nodes_.add(group, NodeKind::building, "multisided", "MultiSided building");
    }

    [[nodiscard]] CatalogueNodes take() { return std::move(nodes_); }

private:
    static constexpr NodeId root = 0;

    // Deliberate: a report without the routine that ends the program. The same object in two libraries is
    // common, and the nodes added so far are good.
    void reportingDuplicates(const char* procedure, std::string_view source,
                             const std::function<void()>& add) {
        ErrorText error;
        try {
            add();
            return;
        } catch (const RuntimeError&) {
            error = currentError();
        }
        error.description.append(" in ").append(source);
        errors_.report(error.number, error.description, procedure, "frmObjTree");
    }

    void tellFailure(const char* text, const std::string& detail) {
        dialogs_.tell(text, errorTitle, MessageIcon::critical, detail);
    }
    // Read again, which only a file does that cannot be read.
    static std::string problemOf(const std::string& path) {
        pugi::xml_document document;
        const std::string problem = readXmlFile(path, document).problem;
        return problem.find(path) == std::string::npos ? path + ": " + problem : problem;
    }

    Dialogs& dialogs_;
    ErrorFunctions& errors_;
    CatalogueNodes nodes_;
    NodeId userGroup_ = root;
};

} // namespace

CatalogueNodes scanCatalogue(const CatalogueSources& sources, Dialogs& dialogs, ErrorFunctions& errors) {
    Scan scan(dialogs, errors);
    scan.addDefaultLibrary(sources.genericFile);
    scan.addEffects(sources.simulatorFolder);
    scan.addUserGroup();
    const auto addLibrary = [&](const std::string& path, LibraryReader read) {
        errors.trapped("addNewUserLibrary", "frmObjTree", [&] { scan.addNewUserLibrary(path, read); });
    };
    for (const std::string& path : sources.userLibraries)
        addLibrary(path, readUserLibrary);
    for (const std::string& path : sources.rwy12Libraries)
        addLibrary(path, readRwy12Library);
    scan.addModels(sources.documentModels);
    scan.addBuildings();
    return scan.take();
}

} // namespace quillset
