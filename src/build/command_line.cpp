#include "build/command_line.h"

#include <algorithm>

namespace quillset {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Reads one word from the front of `rest`, which starts with no blank.
std::string takeWord(std::string_view& rest) {
    std::string word;
    bool quoted = false;
    while (!rest.empty() && (quoted || !isBlank(rest.front()))) {
        const std::size_t backslashes = std::min(rest.find_first_not_of('\\'), rest.size());
        const bool beforeQuote = backslashes < rest.size() && rest[backslashes] == '"';
        word.append(beforeQuote ? backslashes / 2 : backslashes, '\\');
        rest.remove_prefix(backslashes);
        if (beforeQuote) {
            if (backslashes % 2 == 1)
                word += '"';
            else
                quoted = !quoted;
            rest.remove_prefix(1);
        } else if (backslashes == 0) {
            word += rest.front();
            rest.remove_prefix(1);
        }
    }
    return word;
}

std::string quotedWord(const std::string& word) {
    if (!word.empty() && word.find_first_of(" \t\"") == std::string::npos)
        return word;
    std::string text = "\"";
    std::size_t backslashes = 0;
    for (const char c : word) {
        if (c == '"')
            text.append(backslashes + 1, '\\'); // doubles those before the quote and escapes it
        backslashes = c == '\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, '\\') + '"';
}

} // namespace

std::vector<std::string> splitCommandLine(std::string_view text) {
    std::vector<std::string> words;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
        if (text.empty())
            return words;
        words.push_back(takeWord(text));
    }
}

std::string commandLineText(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        if (!text.empty())
            text += ' ';
        text += quotedWord(word);
    }
    return text;
}

} // namespace quillset
