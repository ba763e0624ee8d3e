#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillset {

class FileOperations;

/// One file of several that belong together.
struct SetFile {
    std::string path;
    std::string_view bytes;
};

/// Writes files that are of use together only, all in one folder: either all of them are new, or all are as
/// they were (also those that did not exist). Throws RuntimeError in the second case and leaves no working
/// copies behind. The first one is the file by which programs find the others: whenever it is there, it and
/// the others belong together, also after a power failure.
void writeFilesTogether(FileOperations& files, const std::vector<SetFile>& set);

} // namespace quillset
