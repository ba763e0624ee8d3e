#pragma once

#include "catalogue/catalogue_tree.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <string>
#include <vector>

namespace quillset::test {

/// One object of a default library file.
inline std::string defaultObject(const std::string& name, const std::string& guid) {
    return "<LibraryObject><name>" + name + "</name><guid>" + guid + "</guid></LibraryObject>\n";
}

/// A catalogue over files in a folder of its own: a default library of two objects and an effects folder
/// with one effect.
struct CatalogueFixture {
    CatalogueFixture() {
        sources.genericFile = folder.write("generic.xml", "<library>" + defaultObject("Barn", "AA01") +
                                                              defaultObject("Crane", "AA02") + "</library>");
        folder.write("sim/Effects/fx_smoke.fx", "");
        sources.simulatorFolder = folder.file("sim");
    }

    void rescan() { tree.rescanObjTree(sources); }

    /// The nodes below a node as "key=text", in their order; with a leading "  " per level.
    [[nodiscard]] std::vector<std::string> below(const std::string& key) const {
        std::vector<std::string> lines;
        if (const auto id = tree.nodes().find(key))
            appendBelow(*id, "", lines);
        return lines;
    }

    [[nodiscard]] std::vector<std::string> messageTexts() const {
        std::vector<std::string> texts;
        for (const Message& message : dialogs.messages)
            texts.push_back(message.text);
        return texts;
    }

    TemporaryFolder folder;
    CatalogueSources sources;
    ScriptedDialogs dialogs;
    int ended = 0;
    ErrorFunctions errors{dialogs, [] {}, [this] { ++ended; }};
    CatalogueTree tree{dialogs, errors};

private:
    void appendBelow(NodeId id, const std::string& indent, std::vector<std::string>& lines) const {
        for (const NodeId child : tree.nodes().at(id).children) {
            const CatalogueNode& node = tree.nodes().at(child);
            lines.push_back(indent + std::string(node.key) + "=" + std::string(node.text));
            appendBelow(child, indent + "  ", lines);
        }
    }
};

} // namespace quillset::test
