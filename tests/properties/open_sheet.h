#pragma once

#include "base/activity_line.h"
#include "base/error_functions.h"
#include "document/object_list.h"
#include "document/placement.h"
#include "document/undo_journal.h"
#include "properties/document_target.h"
#include "support/fixed_clock.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_folder.h"

#include <string>
#include <vector>

namespace quillset::test {

class NoCatalogue : public PlacementCatalogue {
public:
    [[nodiscard]] std::string getObjectName(const std::string& key) const override { return key; }
    void setObjTreeItem(const std::string&) override {}
    [[nodiscard]] std::string selectedText() const override { return {}; }
};

/// Three placements: a library object, a rectangular building and a many-sided one.
inline constexpr const char* threePlacements =
    R"(<FSData version="9.0"><!--Object 1--><SceneryObject lat="52.1" lon="5.2" alt="0M" pitch="0.0" bank="0.0" heading="90" altitudeIsAgl="TRUE" imageComplexity="NORMAL"><LibraryObject name="AA" scale="1.0"/></SceneryObject><!--Object 2--><SceneryObject lat="52.2" lon="5.3" alt="0M" pitch="0.0" bank="0.0" heading="90" altitudeIsAgl="TRUE" imageComplexity="NORMAL"><GenericBuilding scale="1.0" bottomTexture="18" windowTexture="32" topTexture="18" roofTexture="60"><RectangularBuilding roofType="FLAT" sizeX="40" sizeZ="40" sizeBottomY="10" textureIndexBottomX="256" textureIndexBottomZ="256" sizeWindowY="80" textureIndexWindowX="512" textureIndexWindowY="1024" textureIndexWindowZ="512" sizeTopY="10" textureIndexTopX="256" textureIndexTopZ="256" textureIndexRoofX="256" textureIndexRoofZ="256"/></GenericBuilding></SceneryObject><!--Object 3--><SceneryObject lat="52.3" lon="5.4" alt="0M" pitch="0.0" bank="0.0" heading="90" altitudeIsAgl="TRUE" imageComplexity="NORMAL"><GenericBuilding scale="1.0" bottomTexture="18" windowTexture="32" topTexture="18" roofTexture="25"><MultiSidedBuilding buildingSides="12" smoothing="FALSE" sizeX="40"/></GenericBuilding></SceneryObject></FSData>)";

/// A document, its list and journal, and the property sheet without a window.
struct OpenSheet {
    OpenSheet() {
        document.load(folder.write("three.xml", threePlacements));
        list.showPropertiesIn(&editor);
        list.click(1);
    }
    /// Value of a property in the document, whatever the sheet shows.
    [[nodiscard]] std::string stored(std::size_t placement, const std::string& name) const {
        for (const PropertyEntry& entry : propertyTable(document, placement)) {
            if (entry.name == name)
                return entry.value;
        }
        return "(none)";
    }
    [[nodiscard]] int rowOf(const std::string& name) const {
        const std::vector<PropertyRow>& rows = editor.rows();
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (rows[row].name == name)
                return static_cast<int>(row);
        }
        return -1;
    }

    TemporaryFolder folder;
    FixedClock clock;
    ScriptedDialogs dialogs;
    NoCatalogue catalogue;
    bool ended = false;
    ErrorFunctions errors{dialogs, [] {}, [this] { ended = true; }};
    ActivityLine activity{clock};
    SceneryDocument document;
    UndoJournal journal{document, folder.path()};
    ObjectList list{document, journal, catalogue, activity, errors, [] { return 0.0; }};
    DocumentTarget target{document, list};
    std::optional<double> simulated = 51.5;
    std::vector<double> sent;
    PropertyEditor editor{target,
                          document,
                          {[this](Coordinate) { return simulated; },
                           [this](Coordinate, double degrees) { sent.push_back(degrees); }},
                          errors};
};

} // namespace quillset::test
