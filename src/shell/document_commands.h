#pragma once

#include "base/notifier.h"
#include "shell/session.h"

#include <string>

namespace quillset {

/// The commands of the File and Edit menus that act on the whole document. Each commits an open property
/// editor first, reports its own failures and returns.
class DocumentCommands {
public:
    explicit DocumentCommands(Session& session)
        : session_(session) {}

    void newDocument();
    void open();
    /// Opens the recent file at `index`; one that is gone leaves the list without a message.
    void openRecent(std::size_t index);
    /// Opens a file named on the command line.
    void openFile(const std::string& path);
    void save();
    void saveAs();
    void undo();
    /// The user closes the document window: asks whether to save, then drops the document.
    void close();

    /// Told with the path when a document was opened, created or got another path; with an empty text when it
    /// was dropped.
    Notifier<const std::string&> documentShown;
    /// Told what takes a moment with a large document, before it is done, and with an empty text after it.
    Notifier<const std::string&> working;

private:
    /// Tells about work for as long as it lives; no message box may be shown meanwhile.
    class Working;

    enum class SaveQuestion { goOn, cancelled };

    SaveQuestion askToSave();
    bool savedOnRequest();
    bool mayOverwrite(const std::string& path);
    void create(const std::string& path);
    void load(const std::string& path);
    void writeTo(const std::string& path);
    void drop();

    Session& session_;
};

} // namespace quillset
