#include "arguments.h"

#include "base/paths.h"

#include <algorithm>

namespace quillset::compiler {

namespace {

// The letter case of file names means nothing on the simulator's system.
bool matches(std::string_view name, std::string_view pattern) {
    std::size_t afterStar = std::string_view::npos;
    std::size_t nameAtStar = 0;
    std::size_t n = 0;
    std::size_t p = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            afterStar = ++p;
            nameAtStar = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
            ++n;
            ++p;
        } else if (afterStar != std::string_view::npos) {
            p = afterStar;
            n = ++nameAtStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

void setTarget(const std::string& name, Arguments& arguments) {
    if (name == "fs2004")
        arguments.target = Target::fs2004;
    else if (name == "fsx")
        arguments.target = Target::fsx;
    else
        arguments.problem = "unknown target \"" + name + "\"; allowed: fs2004, fsx";
}

} // namespace

Arguments parseArguments(const std::vector<std::string>& words) {
    Arguments arguments;
    bool onlyFiles = false;
    for (std::size_t i = 0; i < words.size() && arguments.problem.empty(); ++i) {
        const std::string& word = words[i];
        if (onlyFiles || !word.starts_with("-"))
            arguments.files.push_back(word);
        else if (word == "--")
            onlyFiles = true;
        else if (word == "--help" || word == "-h")
            arguments.help = true;
        else if (word == "--version")
            arguments.version = true;
        else if (word == "--skip-unsupported")
            arguments.skipUnsupported = true;
        else if (word == "--target" && i + 1 < words.size())
            setTarget(words[++i], arguments);
        else if (word.starts_with("--target="))
            setTarget(word.substr(word.find('=') + 1), arguments);
        else
            arguments.problem = word == "--target" ? "--target needs a name: fs2004 or fsx"
                                                   : "unknown option \"" + word + "\"";
    }
    return arguments;
}

std::vector<std::string> resolvePattern(const std::string& pattern) {
    const std::string namePattern = lowerCase(toText(toPath(pattern).filename()));
    if (namePattern.find_first_of("*?") == std::string::npos || fileExists(pattern))
        return {pattern};
    const std::string folder = folderOf(pattern);
    std::vector<std::string> found;
    std::error_code failed;
    std::filesystem::directory_iterator entries(toPath(folder.empty() ? "." : folder), failed);
    for (; !failed && entries != std::filesystem::directory_iterator(); entries.increment(failed)) {
        const std::string name = toText(entries->path().filename());
        std::error_code unknown;
        if (matches(lowerCase(name), namePattern) && entries->is_regular_file(unknown))
            found.push_back(folder.empty() ? name : joinPath(folder, name));
    }
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace quillset::compiler
