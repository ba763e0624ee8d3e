#pragma once

#include "catalogue/catalogue_scan.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace quillset {

/// Everything that libraries and the simulator offer, for telling whether what a scenery file names is there.
/// Unlike the catalogue it takes every spelling of a GUID, and objects that several libraries hold.
/// Needs no simulator and asks nobody.
class KnownObjects {
public:
    /// Reads the libraries and the effects folder of `sources`.
    explicit KnownObjects(const CatalogueSources& sources);

    /// In whatever spelling. The models of `sources` are not among them.
    [[nodiscard]] bool hasObject(std::string_view guid) const;
    /// The name that the catalogue shows for exactly this key, the models' file names among them.
    [[nodiscard]] std::string nameOf(const std::string& key) const;
    /// With or without ".fx", in any letter case, as the simulator takes it.
    [[nodiscard]] bool hasEffect(std::string_view name) const;
    /// False when no effects folder was found.
    [[nodiscard]] bool knowsEffects() const { return effects_.has_value(); }
    /// The library files that could not be read.
    [[nodiscard]] const std::vector<std::string>& unreadable() const { return unreadable_; }

private:
    std::unordered_set<std::string> objects_;
    std::unordered_map<std::string, std::string> names_;
    std::optional<std::unordered_set<std::string>> effects_;
    std::vector<std::string> unreadable_;
};

} // namespace quillset
