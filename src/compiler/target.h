#pragma once

namespace quillset::compiler {

/// The simulator whose record layouts are written: Flight Simulator 2004 or the one after it (FSX).
enum class Target { fs2004, fsx };

} // namespace quillset::compiler
