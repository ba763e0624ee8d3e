#pragma once

#include "shell/session.h"

#include <span>

namespace quillset {

class Progress;

/// The exchange with programs for geographic data: export of all placements, import of points. Both report
/// their own failures and return.
class GeodataCommands {
public:
    GeodataCommands(Session& session, Progress& progress)
        : session_(session)
        , progress_(progress) {}

    void exportShapefile();
    void importPoints();

private:
    void exportTo(const std::string& path);
    void importFrom(const std::string& path);
    std::size_t addPoints(std::span<const NewPlacement> points);
    [[nodiscard]] bool coordinatesMayBeRd(const std::string& path);
    [[nodiscard]] bool confirmed(const std::string& question);

    Session& session_;
    Progress& progress_;
};

} // namespace quillset
