#include "shell/known_objects.h"

#include "base/guid_bytes.h"
#include "base/paths.h"
#include "catalogue/folder_listing.h"
#include "catalogue/library_files.h"

namespace quillset {

namespace {

std::string effectKey(std::string_view name) {
    std::string key = lowerCase(name);
    if (key.ends_with(".fx"))
        key.resize(key.size() - 3);
    return key;
}

} // namespace

KnownObjects::KnownObjects(const CatalogueSources& sources) {
    const auto read = [&](const std::string& path, bool (*reader)(const std::string&, const LibrarySink&)) {
        const bool readable = reader(path, [&](std::string_view key, std::string_view text) {
            objects_.insert(comparableGuid(key));
            names_.try_emplace(std::string(key), text);
        });
        if (!readable)
            unreadable_.push_back(path);
    };
    read(sources.genericFile, readDefaultLibrary);
    for (const std::string& path : sources.userLibraries)
        read(path, readUserLibrary);
    for (const std::string& path : sources.rwy12Libraries)
        read(path, readRwy12Library);
    for (const CatalogueModel& model : sources.documentModels)
        names_.try_emplace(model.name, fileNameOf(model.sourceFile));
    if (const std::optional<std::string> folder = effectsFolder(sources.simulatorFolder)) {
        effects_.emplace();
        for (const std::string& name : filesEndingIn(*folder, "fx").usable)
            effects_->insert(effectKey(name));
    }
}

bool KnownObjects::hasObject(std::string_view guid) const {
    return objects_.contains(comparableGuid(guid));
}

std::string KnownObjects::nameOf(const std::string& key) const {
    const auto found = names_.find(key);
    return found == names_.end() ? "!unknown!" : found->second;
}

bool KnownObjects::hasEffect(std::string_view name) const {
    return effects_ && effects_->contains(effectKey(name));
}

} // namespace quillset
