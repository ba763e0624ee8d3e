// The compiler's output: any bytes, cut anywhere, show the same text.

#include "build/command_line.h"
#include "build/console_lines.h"
#include "build/console_text.h"
#include "fuzz_input.h"

using namespace quillset;

namespace {

std::u32string shown(std::string_view bytes, std::size_t pieceSize) {
    ConsoleTextDecoder decoder;
    ConsoleLines lines;
    std::u32string view;
    const auto show = [&](const std::string& text) {
        const ConsoleEdit edit = lines.feed(text);
        if (edit.replacesLastLine)
            view.erase(view.rfind(U'\n') + 1);
        view += edit.text;
    };
    for (std::size_t at = 0; at < bytes.size(); at += pieceSize)
        show(decoder.decode(bytes.substr(at, pieceSize)));
    show(decoder.finish());
    return view;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = test::fuzzBytes(data, size);
    const std::u32string whole = shown(bytes, size + 1);
    test::require(shown(bytes, 1) == whole);
    test::require(shown(bytes, 7) == whole);
    const std::vector<std::string> words = splitCommandLine(bytes);
    test::require(splitCommandLine(commandLineText(words)) == words);
    return 0;
}
