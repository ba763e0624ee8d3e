#pragma once

#include "base/activity_line.h"
#include "base/atomic_file.h"
#include "base/clock.h"
#include "base/dialogs.h"
#include "base/error_functions.h"
#include "base/guid_maker.h"
#include "base/log_file.h"
#include "catalogue/catalogue_tree.h"
#include "document/object_list.h"
#include "document/scenery_document.h"
#include "document/undo_journal.h"
#include "shell/configuration.h"
#include "shell/program_files.h"
#include "shell/recent_files.h"

#include <functional>
#include <string>

namespace quillset {

/// What a session takes from the platform and from `main`. Everything referred to must outlive the session.
struct SessionEnvironment {
    Dialogs& dialogs;
    const Clock& clock;
    FileOperations& files;
    GuidMaker& guids;
    ProgramFiles programFiles;
    /// The simulator's folder as the system knows it; empty when it does not.
    std::function<std::string()> registeredSimulatorFolder;
    /// The simulated aircraft's place in degrees, 0 without a simulator; and the end of that link.
    std::function<double()> readLatitude;
    std::function<double()> readLongitude;
    std::function<double()> readHeading;
    std::function<void()> closeSimulatorLink;
    /// Ends the program at once, without saving the configuration.
    std::function<void()> endProgram;
};

/// Everything that lives for the whole run, once per running program: tests make as many as they like.
class Session {
public:
    explicit Session(SessionEnvironment environment);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() = default;

    [[nodiscard]] Dialogs& dialogs() { return environment_.dialogs; }
    [[nodiscard]] FileOperations& fileOperations() { return environment_.files; }
    [[nodiscard]] GuidMaker& guidMaker() { return environment_.guids; }
    [[nodiscard]] const ProgramFiles& files() const { return environment_.programFiles; }
    [[nodiscard]] std::string registeredSimulatorFolder() const {
        return environment_.registeredSimulatorFolder();
    }

    [[nodiscard]] double readLatitude() const { return environment_.readLatitude(); }
    [[nodiscard]] double readLongitude() const { return environment_.readLongitude(); }
    void closeSimulatorLink() const { environment_.closeSimulatorLink(); }

    [[nodiscard]] const LogFile& log() const { return log_; }
    [[nodiscard]] ActivityLine& activity() { return activity_; }
    [[nodiscard]] ErrorFunctions& errors() { return errors_; }
    [[nodiscard]] Configuration& configuration() { return configuration_; }
    [[nodiscard]] RecentFiles& recentFiles() { return recentFiles_; }
    [[nodiscard]] SceneryDocument& document() { return document_; }
    [[nodiscard]] UndoJournal& journal() { return journal_; }
    [[nodiscard]] CatalogueTree& catalogue() { return catalogue_; }
    [[nodiscard]] ObjectList& list() { return list_; }

    /// Writes what an open property editor holds into the document.
    void commitEdits() { list_.commitEdits(); }
    /// Where the catalogue's objects come from now, the models of the open document among them.
    [[nodiscard]] CatalogueSources catalogueSources() const;
    /// Builds the catalogue again from the configuration, the simulator's folder and the open document.
    void rescanCatalogue();

private:
    /// The catalogue as the object list sees it.
    class CatalogueLink : public PlacementCatalogue {
    public:
        explicit CatalogueLink(CatalogueTree& tree)
            : tree_(tree) {}
        [[nodiscard]] std::string getObjectName(const std::string& key) const override;
        void setObjTreeItem(const std::string& key) override;
        [[nodiscard]] std::string selectedText() const override;

    private:
        CatalogueTree& tree_;
    };

    SessionEnvironment environment_;
    LogFile log_;
    ActivityLine activity_;
    Configuration configuration_;
    RecentFiles recentFiles_;
    SceneryDocument document_;
    ErrorFunctions errors_;
    UndoJournal journal_;
    CatalogueTree catalogue_;
    CatalogueLink catalogueLink_;
    ObjectList list_;
    Connection errorsToLog_;
};

} // namespace quillset
