#include "shell/session.h"

#include "base/paths.h"
#include "document/local_models.h"

#include <utility>

namespace quillset {

std::string Session::CatalogueLink::getObjectName(const std::string& key) const {
    return tree_.getObjectName(key);
}

void Session::CatalogueLink::setObjTreeItem(const std::string& key) {
    tree_.setObjTreeItem(key);
}

std::string Session::CatalogueLink::selectedText() const {
    const std::optional<CatalogueItem> item = tree_.selected();
    return item ? item->text : std::string();
}

Session::Session(SessionEnvironment environment)
    : environment_(std::move(environment))
    , log_(environment_.programFiles.log())
    , activity_(environment_.clock)
    , recentFiles_(configuration_)
    , errors_(
          environment_.dialogs,
          [this] {
              if (document_.isOpen())
                  document_.save(environment_.files, document_.path());
          },
          environment_.endProgram)
    , journal_(document_, environment_.programFiles.undo)
    , catalogue_(environment_.dialogs, errors_)
    , catalogueLink_(catalogue_)
    , list_(document_, journal_, catalogueLink_, activity_, errors_, environment_.readHeading)
    , errorsToLog_(
          errors_.reported.connect([this](const std::string& text) { log_.write("error: " + text); })) {}

CatalogueSources Session::catalogueSources() const {
    CatalogueSources sources;
    sources.genericFile = files().shipped("generic.xml");
    sources.simulatorFolder = configuration_.fsPath();
    sources.userLibraries = configuration_.libraries(LibraryKind::user);
    sources.rwy12Libraries = configuration_.libraries(LibraryKind::rwy12);
    for (const LocalModel& model : localModels(document_))
        sources.documentModels.push_back({model.name, model.sourceFile});
    return sources;
}

void Session::rescanCatalogue() {
    catalogue_.rescanObjTree(catalogueSources());
    list_.refreshNames();
}

} // namespace quillset
