#pragma once

#include <string>
#include <vector>

namespace quillset {

struct SampleFile {
    /// Relative, parts separated by "/".
    std::string path;
    std::string bytes;
};

/// The sample simulator's folder but for the textures, which have a maker of their own: effects, a user
/// library and a Rwy12 library with invented objects, and models. The same bytes every time.
[[nodiscard]] std::vector<SampleFile> sampleSimulator();

/// An empty file in the place of the simulator's link module.
[[nodiscard]] SampleFile sampleModule();

/// Pictures of some objects of the default library and of all objects of the sample libraries, named as the
/// preview looks for them ("<key in lower case>.bmp").
[[nodiscard]] std::vector<SampleFile> samplePictures();

} // namespace quillset
