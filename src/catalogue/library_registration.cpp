#include "catalogue/library_registration.h"

#include "base/paths.h"

namespace quillset {

std::string startFolderOf(const std::string& rememberedPath) {
    return folderExists(rememberedPath) ? rememberedPath : folderOf(rememberedPath);
}

bool LibraryRegistration::addLibrary(LibraryKind kind) {
    const bool user = kind == LibraryKind::user;
    bool registered = false;
    with_.errors.trapped(user ? "mAddLib_Click" : "mRwy12Library_Click", "MDIForm1", [&] {
        const std::string path = with_.dialogs.openFile({user ? "Select XML file" : "Select Rwy12 XML file",
                                                         "XML file (*.xml)|*.xml|",
                                                         {},
                                                         startFolderOf(with_.configuration.xmlPath())});
        if (path.empty())
            return;
        with_.configuration.appendLibrary(kind, path);
        with_.tree.rescanObjTree(with_.configuration.sources());
        with_.activity.show(path + (user ? " added as user library" : " added as Rwy12 library"));
        registered = true;
    });
    return registered;
}

} // namespace quillset
