#pragma once

#include "support/temporary_folder.h"

#include <string>

namespace quillset::test {

/// A scenery file of `count` placements at latitudes 1, 2, ...
inline std::string document(const TemporaryFolder& folder, std::string_view name, int count) {
    std::string text = "<FSData version=\"9.0\">";
    for (int i = 1; i <= count; ++i)
        text += "<!--Object " + std::to_string(i) + "--><SceneryObject lat=\"" + std::to_string(i) +
                "\" lon=\"5\"><LibraryObject name=\"AA01\" scale=\"1.0\"/></SceneryObject>";
    return folder.write(name, text + "</FSData>");
}

/// A small catalogue and a simulator folder for an EditorRun.
inline void writeProgramFiles(const TemporaryFolder& folder) {
    folder.write("program/generic.xml", "<Objects><LibraryObject><n>Hangar</n><g>AA01</g></LibraryObject>"
                                        "<LibraryObject><n>Tower</n><g>AA02</g></LibraryObject></Objects>");
    folder.write("fs/Effects/smoke.fx", "[x]");
}

} // namespace quillset::test
