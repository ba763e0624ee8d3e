#include "shell/command_line.h"

#include <string_view>

namespace quillset {

namespace {

bool isOption(std::string_view argument) {
    return argument.size() > 1 && argument.front() == '-';
}

CommandLineResult failure(const std::string& text) {
    return {{}, "quillset-xml: " + text + "\nTry 'quillset-xml --help'.\n"};
}

class Parser {
public:
    explicit Parser(const std::vector<std::string>& arguments)
        : arguments_(arguments) {}

    CommandLineResult parse() {
        while (at_ < arguments_.size()) {
            const std::string& argument = arguments_[at_++];
            if (!optionsEnded_ && argument == "--")
                optionsEnded_ = true;
            else if (!optionsEnded_ && isOption(argument))
                takeOption(argument);
            else
                takeFile(argument);
            if (!error_.empty())
                return failure(error_);
        }
        return {options_, {}};
    }

private:
    void takeOption(const std::string& argument) {
        const std::size_t mark = argument.find('=');
        const std::string name = argument.substr(0, mark);
        if (name == "--fs-path")
            options_.fsPath = value(name, argument, mark);
        else if (name == "--program-folder")
            options_.programFolder = value(name, argument, mark);
        else if (name == "--record-simulator")
            options_.recordSimulator = value(name, argument, mark);
        else if (name == "--replay-simulator")
            options_.replaySimulator = value(name, argument, mark);
        else if (argument == "--help" || argument == "-h")
            options_.action = CommandLine::Action::showHelp;
        else if (argument == "--version")
            options_.action = CommandLine::Action::showVersion;
        else
            error_ = "unknown option '" + argument + "'";
    }

    std::string value(const std::string& name, const std::string& argument, std::size_t mark) {
        std::string text;
        if (mark != std::string::npos)
            text = argument.substr(mark + 1);
        else if (at_ < arguments_.size())
            text = arguments_[at_++];
        if (text.empty())
            error_ = "option '" + name + "' needs a value";
        return text;
    }

    void takeFile(const std::string& argument) {
        if (!options_.file.empty())
            error_ = "only one scenery file can be opened, '" + argument + "' is one too many";
        else if (argument.empty())
            error_ = "the name of the scenery file is empty";
        options_.file = argument;
    }

    const std::vector<std::string>& arguments_;
    std::size_t at_ = 0;
    bool optionsEnded_ = false;
    CommandLine options_;
    std::string error_;
};

} // namespace

CommandLineResult parseCommandLine(const std::vector<std::string>& arguments) {
    return Parser(arguments).parse();
}

std::string helpText() {
    return "Usage: quillset-xml [OPTIONS] [FILE.xml]\n"
           "Places scenery objects for Flight Simulator 2004.\n"
           "\n"
           "  --fs-path DIR             the simulator's folder (else: the registry, or the last one used)\n"
           "  --program-folder DIR      where settings and working files are kept\n"
           "  --record-simulator FILE   write all exchanges with the simulator to a file\n"
           "  --replay-simulator FILE   play such a file in the simulator's place\n"
           "  --help                    show this text\n"
           "  --version                 show the version\n"
           "\n"
           "FILE.xml is opened after start-up.\n";
}

std::string versionText() {
    return "Quillset XML " QUILLSET_VERSION "\n";
}

} // namespace quillset
