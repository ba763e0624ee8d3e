#include "shell/document_commands.h"

#include "base/paths.h"
#include "base/runtime_error.h"

namespace quillset {

namespace {

constexpr const char* form = "MDIForm1";
constexpr const char* xmlFilter = "XML file (*.xml)|*.xml|";

} // namespace

class DocumentCommands::Working {
public:
    Working(DocumentCommands& commands, const std::string& what)
        : commands_(commands) {
        commands_.working.notify(what);
    }
    ~Working() { commands_.working.notify({}); }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

private:
    DocumentCommands& commands_;
};

DocumentCommands::SaveQuestion DocumentCommands::askToSave() {
    session_.commitEdits();
    if (!session_.document().isOpen())
        return SaveQuestion::goOn;
    const Answer answer =
        session_.dialogs().ask({"Do you want to save your current XML file first?", applicationTitle,
                                MessageButtons::yesNoCancel, MessageIcon::question});
    const bool stays = answer == Answer::cancel || (answer == Answer::yes && !savedOnRequest());
    return stays ? SaveQuestion::cancelled : SaveQuestion::goOn;
}

// Trapped by itself: a disk that is full must not end the program, nor go on to throw the document away.
bool DocumentCommands::savedOnRequest() {
    return session_.errors().trapped("mSave_Click", form, [&] { writeTo(session_.document().path()); });
}

bool DocumentCommands::mayOverwrite(const std::string& path) {
    if (!fileExists(path))
        return true;
    return session_.dialogs().ask({"File already exists. Are you sure you want to overwrite it?",
                                   applicationTitle, MessageButtons::yesNo, MessageIcon::question}) ==
           Answer::yes;
}

void DocumentCommands::newDocument() {
    session_.errors().trapped("mNew_Click", form, [&] {
        for (;;) {
            if (askToSave() == SaveQuestion::cancelled)
                return;
            const std::string folder = folderOf(session_.configuration().xmlPath());
            const std::string path = session_.dialogs().saveFile(
                {"New XML file", xmlFilter, folder.empty() ? "new.xml" : joinPath(folder, "new.xml"),
                 folder});
            if (path.empty())
                return drop();
            if (mayOverwrite(path))
                return create(path);
        }
    });
}

void DocumentCommands::open() {
    session_.errors().trapped("mOpen_Click", form, [&] {
        if (askToSave() == SaveQuestion::cancelled)
            return;
        const std::string path = session_.dialogs().openFile(
            {"Select XML file", xmlFilter, {}, folderOf(session_.configuration().xmlPath())});
        if (!path.empty())
            load(path);
    });
}

void DocumentCommands::openRecent(std::size_t index) {
    session_.errors().trapped("mLastFile_Click", form, [&] {
        const std::vector<std::string> paths = session_.recentFiles().paths();
        if (index >= paths.size() || askToSave() == SaveQuestion::cancelled)
            return;
        // Taken before the question: saving puts the current document at the head of the list.
        if (fileExists(paths[index]))
            load(paths[index]);
        else
            session_.recentFiles().remove(paths[index]);
    });
}

void DocumentCommands::openFile(const std::string& path) {
    session_.errors().trapped("mOpen_Click", form, [&] { load(path); });
}

void DocumentCommands::save() {
    session_.errors().trapped("mSave_Click", form, [&] {
        session_.commitEdits();
        if (session_.document().isOpen())
            writeTo(session_.document().path());
    });
}

void DocumentCommands::saveAs() {
    session_.errors().trapped("mSaveAs_Click", form, [&] {
        session_.commitEdits();
        if (!session_.document().isOpen())
            return;
        std::string path;
        do {
            path = session_.dialogs().saveFile({"Save XML file as", xmlFilter, session_.document().path(),
                                                folderOf(session_.configuration().xmlPath())});
            if (path.empty())
                return;
        } while (!mayOverwrite(path));
        writeTo(path);
        session_.configuration().setXmlPath(path);
        session_.configuration().ensureBglPath(path);
        documentShown.notify(path);
    });
}

void DocumentCommands::writeTo(const std::string& path) {
    {
        const Working saving(*this, "Saving " + path + " ...");
        session_.document().save(session_.fileOperations(), path);
    }
    session_.recentFiles().add(foldedForStorage(path));
    session_.activity().show(path + " saved");
    session_.log().write("saved " + path);
}

void DocumentCommands::create(const std::string& path) {
    session_.configuration().ensureBglPath(path);
    session_.configuration().setXmlPath(path);
    session_.document().create(path);
    session_.journal().reset();
    session_.list().XMLListClick();
    session_.rescanCatalogue();
    documentShown.notify(path);
    session_.activity().show(path + " created");
    session_.log().write("new " + path);
}

void DocumentCommands::load(const std::string& path) {
    session_.configuration().ensureBglPath(path);
    session_.configuration().setXmlPath(path);
    const XmlRead read = [&] {
        const Working opening(*this, "Opening " + path + " ...");
        return session_.document().load(path);
    }();
    session_.rescanCatalogue();
    session_.journal().reset();
    session_.list().fillXMLList();
    session_.list().click(1);
    documentShown.notify(path);
    session_.recentFiles().add(path);
    session_.activity().show(path + " loaded");
    session_.log().write(read.ok ? "opened " + path +
                                       ", placements: " + std::to_string(session_.document().placementCount())
                                 : path + " could not be read: " + read.problem);
    if (!read.ok)
        session_.dialogs().tell(
            path + " could not be read: " + read.problem +
                "\r\n\r\nAn empty document is shown in its place; the file itself is unchanged.",
            errorTitle, MessageIcon::critical);
}

void DocumentCommands::undo() {
    session_.errors().trapped("mUndo_Click", form, [&] {
        session_.commitEdits();
        const std::optional<std::string> undone = [&] {
            const Working undoing(*this, session_.journal().caption() + " ...");
            return session_.journal().undo();
        }();
        if (!undone)
            return;
        // The names of restored models must be known before the rows are filled.
        session_.rescanCatalogue();
        session_.list().fillXMLList();
        session_.list().XMLListClick();
        session_.activity().show(*undone);
        if (!session_.document().hasRoot())
            session_.dialogs().tell(
                "The undo file could not be read. The document is empty now; the scenery file on "
                "disk is unchanged.",
                errorTitle, MessageIcon::critical);
    });
}

void DocumentCommands::close() {
    session_.errors().trapped("Form_QueryUnload", "frmXMLList", [&] {
        session_.commitEdits();
        if (!session_.document().isOpen())
            return;
        const Answer answer =
            session_.dialogs().ask({"Do you want to save the currently open XML file?", "QuillsetXML",
                                    MessageButtons::yesNo, MessageIcon::question});
        if (answer == Answer::no || savedOnRequest())
            drop();
    });
}

void DocumentCommands::drop() {
    session_.document().close();
    session_.journal().reset();
    session_.list().fillXMLList();
    session_.list().XMLListClick();
    session_.rescanCatalogue();
    documentShown.notify(std::string());
}

} // namespace quillset
