#pragma once

#include "preview/preview_context.h"

#include <string>

namespace quillset::test {

/// A document with one placement, settable in every answer.
class SampleContext : public PreviewContext {
public:
    bool documentOpen() const override { return open; }
    std::string currentKind() const override { return kind; }
    bool selectedIsGenBuild() const override { return genBuildSelected; }
    pugi::xml_node currentBuilding() const override { return document.child("GenericBuilding"); }
    int getFormDockStatus(std::string_view formName) const override {
        return formName == "frmPreview" ? dockState : -1;
    }

    bool open = true;
    std::string kind = "RectangularBuilding";
    bool genBuildSelected = true;
    int dockState = 0;
    pugi::xml_document document;
};

} // namespace quillset::test
