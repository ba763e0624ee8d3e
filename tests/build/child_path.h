#pragma once

#include <string>

namespace quillset::test {

/// The console program of these tests, see child_program.cpp.
#ifdef _WIN32
inline const std::string childPath = QUILLSET_BIN "/quillset_child.exe";
#else
inline const std::string childPath = QUILLSET_BIN "/quillset_child";
#endif

} // namespace quillset::test
