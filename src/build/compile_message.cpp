#include "build/compile_message.h"

#include <charconv>

namespace quillset {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Takes pieces off the front of a text.
class Front {
public:
    explicit Front(std::string_view text)
        : rest_(text) {}

    bool take(char c) {
        const bool found = rest_.starts_with(c);
        rest_.remove_prefix(found ? 1 : 0);
        return found;
    }
    // A word in any letter case, with no letter behind it.
    bool takeWord(std::string_view word) {
        if (rest_.size() < word.size())
            return false;
        for (std::size_t i = 0; i < word.size(); ++i) {
            if (lower(rest_[i]) != word[i])
                return false;
        }
        if (rest_.size() > word.size() && isLetter(rest_[word.size()]))
            return false;
        rest_.remove_prefix(word.size());
        return true;
    }
    void skipAny(std::string_view characters) {
        while (!rest_.empty() && characters.find(rest_.front()) != std::string_view::npos)
            rest_.remove_prefix(1);
    }
    // A number from 1 on.
    std::optional<std::size_t> number() {
        std::size_t value = 0;
        const auto [end, failure] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
        if (failure != std::errc() || value == 0)
            return std::nullopt;
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        return value;
    }

private:
    std::string_view rest_;
};

// "(12):" and "(12,34):", which follow a file's name.
std::optional<CompilePlace> bracketed(Front text) {
    if (!text.take('('))
        return std::nullopt;
    CompilePlace place;
    const auto line = text.number();
    if (!line)
        return std::nullopt;
    place.line = *line;
    if (text.take(',')) {
        text.skipAny(" ");
        place.column = text.number();
        if (!place.column)
            return std::nullopt;
    }
    if (!text.take(')'))
        return std::nullopt;
    text.skipAny(" ");
    return text.take(':') ? std::optional(place) : std::nullopt;
}

// ":12:" and ":12:34:".
std::optional<CompilePlace> withColons(Front text) {
    if (!text.take(':'))
        return std::nullopt;
    CompilePlace place;
    const auto line = text.number();
    if (!line || !text.take(':'))
        return std::nullopt;
    place.line = *line;
    const auto column = text.number();
    if (column && text.take(':'))
        place.column = column;
    return place;
}

// "line 12, column 34".
std::optional<CompilePlace> inWords(Front text) {
    constexpr std::string_view between = " \t.:,#=";
    if (!text.takeWord("line"))
        return std::nullopt;
    text.skipAny(between);
    CompilePlace place;
    const auto line = text.number();
    if (!line)
        return std::nullopt;
    place.line = *line;
    text.skipAny(between);
    for (const std::string_view word : {"column", "col", "position", "pos", "char", "character"}) {
        if (text.takeWord(word)) {
            text.skipAny(between);
            place.column = text.number();
            break;
        }
    }
    return place;
}

} // namespace

std::optional<CompilePlace> compilePlaceIn(std::string_view message) {
    for (std::size_t i = 0; i < message.size(); ++i) {
        const char before = i > 0 ? message[i - 1] : ' ';
        const Front here(message.substr(i));
        std::optional<CompilePlace> place;
        if (before != ' ') {
            place = bracketed(here);
            if (!place && !isDigit(before)) // a digit: a time of day
                place = withColons(here);
        }
        if (!place && !isLetter(before))
            place = inWords(here);
        if (place)
            return place;
    }
    return std::nullopt;
}

} // namespace quillset
