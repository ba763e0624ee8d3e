#pragma once

#include "compiler/compile.h"
#include "listing.h"

#include <sstream>
#include <string>
#include <vector>

namespace quillset::compiler::test {

class Messages : public MessageSink {
public:
    void add(const CompilerMessage& message) override { lines.push_back(messageLine(message)); }

    std::vector<std::string> lines;
};

/// What came of compiling a text called "s.xml".
struct Compiled {
    std::string bytes; ///< empty when there was an error
    std::vector<std::string> messages;
    CompileResult result;
};

/// 2004-02-29 12:34:56.789 UTC; in a header 50 bc 4e 70 c0 fe c3 01.
inline const std::chrono::system_clock::time_point compileTime{std::chrono::milliseconds(1'078'058'096'789)};

inline Compiled compiled(const std::string& xml, CompileOptions options = {},
                         const std::string& folder = {}) {
    options.time = compileTime;
    Messages messages;
    Compiled made;
    if (const auto file = compileBytes(xml, "s.xml", folder, options, messages, made.result))
        file->write([&](std::string_view piece) { made.bytes += piece; });
    made.messages = messages.lines;
    return made;
}

inline CompileOptions forFsx() {
    CompileOptions options;
    options.target = Target::fsx;
    return options;
}

inline std::string document(const std::string& content) {
    return "<FSData version=\"9.0\">" + content + "</FSData>";
}

/// A placement in the document's first line, at latitude 1 and longitude 2.
inline std::string placed(const std::string& thing) {
    return document("<SceneryObject lat=\"1\" lon=\"2\">" + thing + "</SceneryObject>");
}

/// The bytes of hexadecimal digits; blanks are passed over.
inline std::string bytesOf(std::string_view digits) {
    std::string bytes;
    std::string pair;
    for (const char c : digits) {
        if (c != ' ')
            pair += c;
        if (pair.size() == 2) {
            bytes.push_back(static_cast<char>(std::stoi(pair, nullptr, 16)));
            pair.clear();
        }
    }
    return bytes;
}

inline std::string digitsOf(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += {digits[byte / 16U], digits[byte % 16U]};
    }
    return text;
}

/// The file as the independent reader prints it, without the first line (size and time); "damaged: ..." when
/// it cannot.
inline std::string listed(const std::string& bytes) {
    std::ostringstream out;
    bgl_list::MemorySource source(bytes);
    try {
        bgl_list::list(source, out);
    } catch (const bgl_list::Damage& damage) {
        return std::string("damaged: ") + damage.what();
    }
    const std::string text = out.str();
    return text.substr(text.find('\n') + 1);
}

} // namespace quillset::compiler::test
