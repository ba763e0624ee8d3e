#include "shell/diagnostics.h"

#include "base/paths.h"
#include "build/compiler_command.h"
#include "catalogue/folder_listing.h"

#include <optional>

namespace quillset {

namespace {

constexpr std::size_t shownLogLines = 40;

std::string orNothing(const std::optional<std::string>& found) {
    return found ? *found : "not found";
}

std::string existing(const std::string& path, bool exists) {
    if (path.empty())
        return "none";
    return exists ? path : path + " (missing)";
}

/// The setting may have been removed by hand; that must not spoil a report about it.
std::string simulatorFolder(Session& session) {
    try {
        return session.configuration().fsPath();
    } catch (const RuntimeError& error) {
        return std::string("unknown: ") + error.what();
    }
}

class Lines {
public:
    void add(const char* name, const std::string& value) {
        text_.append(name).append(": ").append(value).append("\n");
    }
    void add(const std::string& line) { text_ += line + "\n"; }
    [[nodiscard]] const std::string& text() const { return text_; }

private:
    std::string text_;
};

void addSimulator(Lines& lines, Session& session, const PlatformFacts& facts) {
    const std::string folder = simulatorFolder(session);
    lines.add("Simulator folder", existing(folder, folderExists(folder)));
    if (folderExists(folder)) {
        lines.add("Effects", orNothing(effectsFolder(folder)));
        lines.add("Textures", orNothing(findIgnoringCase(folder, "texture")));
        lines.add("FSUIPC module", orNothing(findIgnoringCase(folder, "modules/fsuipc.dll")));
    }
    lines.add("Simulator link", facts.simulatorLink.empty() ? "not checked yet" : facts.simulatorLink);
}

} // namespace

std::string diagnosticsText(Session& session, const PlatformFacts& facts) {
    const ProgramFiles& files = session.files();
    const std::string generic = files.shipped("generic.xml");
    Lines lines;
    lines.add("Quillset XML " QUILLSET_VERSION);
    lines.add("Qt", facts.toolkit);
    lines.add("System", facts.system);
    lines.add("Screens", facts.screens);
    lines.add("OpenGL", facts.openGl);
    lines.add("Program", files.executable);
    lines.add("Settings", existing(files.config(), fileExists(files.config())));
    lines.add("Working files", files.undo);
    lines.add("Default library", existing(generic, fileExists(generic)));
    lines.add("Manual", orNothing(files.manual()));
    addSimulator(lines, session, facts);
    lines.add("Compiler", orNothing(compilerInUse(files.data, {files.compilerFolder()})));
    lines.add("Catalogue entries", std::to_string(session.catalogue().nodes().size()));
    if (session.document().isOpen())
        lines.add("Scenery", session.document().path() +
                                 ", placements: " + std::to_string(session.document().placementCount()));
    else
        lines.add("Scenery", "none open");
    lines.add("");
    lines.add("Log", session.log().path());
    for (const std::string& line : session.log().lastLines(shownLogLines))
        lines.add(line);
    return lines.text();
}

} // namespace quillset
