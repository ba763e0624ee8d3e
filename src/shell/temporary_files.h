#pragma once

#include <string>

namespace quillset {

/// Removes from the folder of a running instance what was needed for a moment only: at the end of a run, and
/// at the start of the next one what a crash has left. Undo snapshots and recovery files are not among them.
/// Failures are of no consequence.
void removeTemporaryFiles(const std::string& instanceFolder);

} // namespace quillset
