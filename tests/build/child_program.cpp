// A console program that does what its arguments tell, one after the other: the child of the runner's tests.
// Called like the scenery compiler, it takes its orders from the file bglcomp.do in its working folder.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

using Words = std::vector<std::string>;

void say(std::FILE* stream, const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
}

/// Numbered lines of 32 bytes, so that a lost or doubled piece shows.
void flood(std::size_t lines) {
    std::string block;
    for (std::size_t i = 0; i < lines; ++i) {
        const std::string number = std::to_string(i);
        block += std::string(31 - number.size(), '.') + number + '\n';
        if (block.size() >= 60000) {
            say(stdout, block);
            block.clear();
        }
    }
    say(stdout, block);
}

void bothStreams(int rounds) {
    for (int i = 0; i < rounds; ++i) {
        say(stdout, "o" + std::to_string(i) + "\n");
        say(stderr, "e" + std::to_string(i) + "\n");
    }
}

std::string fromHex(const std::string& digits) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

/// Far longer than any test waits, yet not for ever should a test fail to end it.
[[noreturn]] void hang() {
    std::this_thread::sleep_for(std::chrono::seconds(120));
    std::_Exit(99);
}

std::size_t inputSize() {
    std::size_t size = 0;
    while (std::getchar() != EOF)
        ++size;
    return size;
}

std::string currentFolder() {
    const std::u8string path = std::filesystem::current_path().u8string();
    return {path.begin(), path.end()};
}

std::string variable(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    return value == nullptr ? "(none)" : value;
}

void obey(const std::string& order, const std::string& operand, const std::string& program) {
    if (order == "folder")
        say(stdout, currentFolder());
    else if (order == "input")
        say(stdout, std::to_string(inputSize()));
    else if (order == "hang")
        hang();
    else if (order == "crash")
        std::abort();
    else if (order == "exit")
        std::_Exit(std::stoi(operand));
    else if (order == "print")
        say(stdout, operand);
    else if (order == "variable")
        say(stdout, variable(operand));
    else if (order == "flood")
        flood(std::stoul(operand));
    else if (order == "both")
        bothStreams(std::stoi(operand));
    else if (order == "bytes")
        say(stdout, fromHex(operand));
    else if (order == "scenery")
        std::ofstream("compile.bgl", std::ios::binary) << operand;
    else if (order == "nested") // a child of its own, which inherits the pipe
        std::exit(std::system((program + " " + operand + " 0").c_str()));
    else
        std::_Exit(98);
}

Words ordersFrom(int count, char** values) {
    Words words(values, values + count);
    if (words.size() == 2 && words[1] == "compile.xml") {
        std::ifstream file("bglcomp.do");
        words.resize(1);
        words.insert(words.end(), std::istream_iterator<std::string>(file), {});
    }
    return words;
}

} // namespace

/// Arguments are pairs of an order and its operand; after "arguments" they are printed.
int main(int count, char** values) {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
#endif
    const Words words = ordersFrom(count, values);
    if (words.size() > 1 && words[1] == "arguments") {
        for (std::size_t i = 2; i < words.size(); ++i)
            say(stdout, "<" + words[i] + ">");
        return 0;
    }
    for (std::size_t i = 1; i + 1 < words.size(); i += 2)
        obey(words[i], words[i + 1], words.front());
    return 0;
}
