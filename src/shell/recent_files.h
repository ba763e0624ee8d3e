#pragma once

#include "base/notifier.h"
#include "shell/configuration.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quillset {

/// The list of recently used scenery files, most recent first; lives in the configuration.
class RecentFiles {
public:
    static constexpr std::size_t limit = 8;

    explicit RecentFiles(Configuration& configuration)
        : configuration_(configuration) {}

    [[nodiscard]] std::vector<std::string> paths() const { return configuration_.lastFiles(); }
    /// Puts the path at the head. Compared exactly (deliberate: a file can stand twice in two spellings).
    void add(const std::string& path);
    void remove(const std::string& path);

    Notifier<> changed;

private:
    Configuration& configuration_;
};

} // namespace quillset
