#pragma once

#include <pugixml.hpp>

namespace quillset {

/// Brings together two configurations that both began as `before`: what `theirs` (the file on the disk, which
/// another running editor has written meanwhile, or the user by hand) has changed or added since is taken
/// over into `ours`, except where ours has changed the same setting. What they removed stays: an entry too
/// many is easier to bear than one lost. Of recent
/// files ours come first, then theirs, then those that both had.
void mergeConfiguration(pugi::xml_node ours, const pugi::xml_node& before, const pugi::xml_node& theirs);

} // namespace quillset
