#include "shell/commands.h"

#include <array>

namespace quillset {

namespace {

using Icon = CommandIcon;

constexpr std::array fileMenu{
    CommandRow{"mNew", "&New XML", "Ctrl+N", Icon::newFile, "Start a new scenery file"},
    CommandRow{"mOpen", "&Open XML", "Ctrl+O", Icon::openFile, "Open a scenery file"},
    CommandRow{"mSave", "&Save XML", "Ctrl+S", Icon::save, "Save the scenery file"},
    CommandRow{"mSaveAs", "Save XML &As", "Ctrl+Shift+S", Icon::saveAs,
               "Save the scenery file under another name"},
    CommandRow{"mCompile", "Compile &BGL", "F7", Icon::compile, "Compile the scenery to a BGL file"},
    CommandRow{"mNothingExport", "-"},
    CommandRow{"mExportSHP", "Export as SHP file", "", Icon::exportFile,
               "Write the placements as a point shapefile"},
    CommandRow{"mNothingLastFile", "-"},
    CommandRow{"mLastFile(0)", ""},
    CommandRow{"mLastFile(1)", ""},
    CommandRow{"mLastFile(2)", ""},
    CommandRow{"mLastFile(3)", ""},
    CommandRow{"mLastFile(4)", ""},
    CommandRow{"mLastFile(5)", ""},
    CommandRow{"mLastFile(6)", ""},
    CommandRow{"mLastFile(7)", ""},
    CommandRow{"mNothingClose", "-"},
    CommandRow{"mClose", "&Close XML", "Ctrl+W", Icon::close, "Close the scenery file"},
    CommandRow{"mExit", "E&xit", "Ctrl+Q", Icon::quit, "End the program"},
};

constexpr std::array editMenu{
    CommandRow{"mUndo", "&Undo", "Ctrl+Z", Icon::undo, "Take back the last change"},
    CommandRow{"mNothingEdit", "-"},
    CommandRow{"mCoorConv", "Coordinate conversion", "", Icon::convert, "Convert RD coordinates"},
    CommandRow{"mImportSHP", "Import SHP points (RD coordinates)", "", Icon::importFile,
               "Add a placement for each point of a shapefile"},
};

constexpr std::array objectsMenu{
    CommandRow{"mAddNewBefore", "Add new &object before selected", "Ctrl+Shift+Return", Icon::addBefore,
               "Place the catalogue's object before the selected row"},
    CommandRow{"mAddNewEnd", "Add new object at &end of list", "Ctrl+Return", Icon::addEnd,
               "Place the catalogue's object at the end of the list"},
    CommandRow{"mUpdateObject", "&Update selected object", "Ctrl+U", Icon::update,
               "Give the selected placement the catalogue's object"},
    CommandRow{"mNothing2", "-"},
    CommandRow{"mAddLib", "Add user &library", "", Icon::library, "Register a user library file"},
    CommandRow{"mRwy12Library", "Add R&wy12 library", "", Icon::library, "Register a Rwy12 library file"},
    CommandRow{"mAddMDL", "Add local &MDL", "", Icon::model, "Declare a model file in the scenery"},
    CommandRow{"mRemoveMDL", "&Remove local MDL", "", Icon::removeModel,
               "Remove the selected model and its placements"},
    CommandRow{"mAddMDLFolder", "Mass add MDL &folder", "", Icon::folder,
               "Declare every model file of a folder"},
    CommandRow{"mRescanTree", "Rescan object &tree", "F5", Icon::rescan, "Read all object sources again"},
};

constexpr std::array viewMenu{
    CommandRow{"mObjectTree", "Object tree", "", Icon::tree, "Show or hide the catalogue"},
    CommandRow{"mObjectProperties", "Object properties", "", Icon::properties, "Show or hide the properties"},
    CommandRow{"mPreviewWindow", "Preview window", "", Icon::preview, "Show or hide the preview"},
    CommandRow{"mNothingView", "-"},
    CommandRow{"mNextWindow", "&Next window", "F6", Icon::none, "Move the keyboard to the next window"},
    CommandRow{"mPreviousWindow", "&Previous window", "Shift+F6", Icon::none,
               "Move the keyboard to the window before"},
    CommandRow{"mFloatWindow", "&Float or dock window", "Ctrl+F6", Icon::none,
               "Take the tool window that has the keyboard out of the main window, or put it back"},
};

constexpr std::array helpMenu{
    CommandRow{"mManual", "&Manual", "F1", Icon::help, "Open the manual in the browser"},
    CommandRow{"mCopyDiagnostics", "Copy &diagnostics", "", Icon::copy,
               "Copy versions, folders and the last events for a report of a problem"},
    CommandRow{"mNothingHelp", "-"},
    CommandRow{"mAbout", "&About Quillset XML", "", Icon::about, "Version and licence"},
};

constexpr std::array listMenu{
    CommandRow{"mRemoveObject", "Remove object", "Del", Icon::remove, "Remove the selected placement"},
    CommandRow{"mMoveUp", "Move upwards", "Alt+Up", Icon::moveUp, "Move the selected placement one place up"},
    CommandRow{"mMoveDown", "Move downwards", "Alt+Down", Icon::moveDown,
               "Move the selected placement one place down"},
};

constexpr std::array allMenus{
    MenuRow{"mFile", "&File", fileMenu},          MenuRow{"mEdit", "&Edit", editMenu},
    MenuRow{"mObjects", "&Objects", objectsMenu}, MenuRow{"mView", "&View", viewMenu},
    MenuRow{"mHelp", "&Help", helpMenu},          MenuRow{"mXMLList", "XMLList menu", listMenu},
};

} // namespace

std::span<const MenuRow> menus() {
    return allMenus;
}

} // namespace quillset
