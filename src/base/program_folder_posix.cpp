#include "base/paths.h"
#include "base/program_folder.h"

namespace quillset {

std::string executableFolder() {
    std::error_code failed;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
    return failed ? toText(std::filesystem::current_path(failed)) : toText(program.parent_path());
}

} // namespace quillset
