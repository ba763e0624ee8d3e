#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillset::compiler {

enum class Severity { error, warning };

/// One message of a compilation. Line and column count from 1, columns in characters; 0 when the message
/// concerns the file as a whole.
struct CompilerMessage {
    Severity severity = Severity::error;
    std::string file;
    std::size_t line = 0;
    std::size_t column = 0;
    std::string text;
};

/// "FILE(line,column): error: TEXT", the form that editors follow; without the brackets for a whole file.
[[nodiscard]] std::string messageLine(const CompilerMessage& message);

/// Takes the messages as they come: a damaged file can have millions, so nobody has to keep them.
class MessageSink {
public:
    virtual ~MessageSink() = default;
    virtual void add(const CompilerMessage& message) = 0;
};

/// A text of the source as a message shows it: control characters replaced, cut after 60 characters.
[[nodiscard]] std::string shown(std::string_view utf8);

/// The messages of one source file. Keeps the source only to turn byte offsets into lines and columns: one
/// walk over it for all ascending offsets, a few thousand bytes for one that lies back.
class Report {
public:
    /// `source` and `sink` outlive the report. `source` is UTF-8.
    Report(std::string file, std::string_view source, MessageSink& sink)
        : file_(std::move(file))
        , source_(source)
        , sink_(sink) {}

    void error(std::size_t offset, std::string text);
    void warning(std::size_t offset, std::string text);
    /// An error that no place in the source explains.
    void fileError(std::string text);
    void fileWarning(std::string text);

    [[nodiscard]] std::size_t errors() const { return errors_; }
    [[nodiscard]] std::size_t warnings() const { return warnings_; }
    /// "line,column" of an offset.
    [[nodiscard]] std::string place(std::size_t offset);

private:
    void add(Severity severity, std::size_t line, std::size_t column, std::string text);
    void moveTo(std::size_t offset);
    void advance();

    struct Place {
        std::size_t offset = 0;
        std::size_t line = 1;
        std::size_t column = 1;
    };
    std::string file_;
    std::string_view source_;
    MessageSink& sink_;
    std::size_t errors_ = 0;
    std::size_t warnings_ = 0;
    Place at_;
    std::vector<Place> passed_{Place{}}; // every few thousand bytes
};

} // namespace quillset::compiler
