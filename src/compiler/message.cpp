#include "compiler/message.h"

#include <algorithm>

namespace quillset::compiler {

namespace {

constexpr std::size_t longestShown = 60;
constexpr std::size_t placeDistance = 4096;

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

} // namespace

std::string messageLine(const CompilerMessage& message) {
    std::string line = message.file;
    if (message.line > 0)
        line += "(" + std::to_string(message.line) + "," + std::to_string(message.column) + ")";
    line += message.severity == Severity::error ? ": error: " : ": warning: ";
    return line + message.text;
}

std::string shown(std::string_view utf8) {
    std::string out;
    std::size_t characters = 0;
    for (const char c : utf8) {
        if (!continuesCharacter(c) && ++characters > longestShown)
            return out + "...";
        out.push_back(static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? '?' : c);
    }
    return out;
}

void Report::error(std::size_t offset, std::string text) {
    moveTo(offset);
    add(Severity::error, at_.line, at_.column, std::move(text));
}

void Report::warning(std::size_t offset, std::string text) {
    moveTo(offset);
    add(Severity::warning, at_.line, at_.column, std::move(text));
}

void Report::fileError(std::string text) {
    add(Severity::error, 0, 0, std::move(text));
}

void Report::fileWarning(std::string text) {
    add(Severity::warning, 0, 0, std::move(text));
}

std::string Report::place(std::size_t offset) {
    moveTo(offset);
    return std::to_string(at_.line) + "," + std::to_string(at_.column);
}

void Report::add(Severity severity, std::size_t line, std::size_t column, std::string text) {
    ++(severity == Severity::error ? errors_ : warnings_);
    sink_.add({severity, file_, line, column, std::move(text)});
}

void Report::moveTo(std::size_t offset) {
    if (offset < at_.offset)
        at_ = passed_[offset / placeDistance];
    for (const std::size_t end = std::min(offset, source_.size()); at_.offset < end;)
        advance();
}

void Report::advance() {
    const char c = source_[at_.offset++];
    const bool returnAlone = c == '\r' && source_.substr(at_.offset, 1) != "\n";
    if (c == '\n' || returnAlone) {
        ++at_.line;
        at_.column = 1;
    } else if (!continuesCharacter(c)) {
        ++at_.column;
    }
    if (at_.offset == passed_.size() * placeDistance)
        passed_.push_back(at_);
}

} // namespace quillset::compiler
