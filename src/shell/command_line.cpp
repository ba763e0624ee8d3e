#include "shell/command_line.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quillset {

namespace {

using Action = CommandLine::Action;

/// An option that says what to do in place of opening the editor.
struct ActionRow {
    std::string_view option;
    Action action;
    std::size_t operands;
    std::string_view operandNames;
};
constexpr std::array<ActionRow, 8> actionTable{{
    {"--help", Action::showHelp, 0, ""},
    {"-h", Action::showHelp, 0, ""},
    {"--version", Action::showVersion, 0, ""},
    {"--compile", Action::compile, 2, "IN.xml OUT.bgl"},
    {"--export-shp", Action::exportShapefile, 2, "IN.xml OUT.shp"},
    {"--import-shp", Action::importShapefile, 3, "IN.xml POINTS.shp OUT.xml"},
    {"--check", Action::check, 1, "IN.xml"},
    {"--format", Action::format, 1, "IN.xml"},
}};

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
        while (at_ < arguments_.size() && error_.empty()) {
            const std::string& argument = arguments_[at_++];
            if (!optionsEnded_ && argument == "--")
                optionsEnded_ = true;
            else if (!optionsEnded_ && isOption(argument))
                takeOption(argument);
            else if (argument.empty())
                error_ = "the name of the scenery file is empty";
            else
                options_.operands.push_back(argument);
        }
        if (error_.empty())
            assignOperands();
        if (error_.empty() && options_.recordSimulator && options_.replaySimulator)
            error_ = "a replay cannot be recorded: give '--record-simulator' or '--replay-simulator'";
        if (!error_.empty())
            return failure(error_);
        return {options_, {}};
    }

private:
    void takeOption(const std::string& argument) {
        const std::size_t mark = argument.find('=');
        const std::string name = argument.substr(0, mark);
        const auto row =
            std::find_if(actionTable.begin(), actionTable.end(),
                         [&](const ActionRow& candidate) { return candidate.option == argument; });
        if (row != actionTable.end())
            takeAction(*row);
        else if (name == "--fs-path")
            options_.fsPath = value(name, argument, mark);
        else if (name == "--program-folder")
            options_.programFolder = value(name, argument, mark);
        else if (name == "--record-simulator")
            options_.recordSimulator = value(name, argument, mark);
        else if (name == "--replay-simulator")
            options_.replaySimulator = value(name, argument, mark);
        else if (argument == "--json")
            options_.reportForm = CommandLine::ReportForm::json;
        else
            error_ = "unknown option '" + argument + "'";
    }

    void takeAction(const ActionRow& row) {
        if (action_ != nullptr && action_->action != row.action)
            error_ = "'" + std::string(action_->option) + "' and '" + std::string(row.option) +
                     "' cannot be combined";
        action_ = &row;
        options_.action = row.action;
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

    void assignOperands() {
        if (options_.reportForm == CommandLine::ReportForm::json && options_.action != Action::check)
            error_ = "option '--json' belongs to '--check'";
        else if (action_ == nullptr)
            assignFile();
        else if (action_->operands > 0 && (options_.recordSimulator || options_.replaySimulator))
            error_ = "'" + std::string(action_->option) +
                     "' has no exchanges with the simulator to record or to replay";
        else if (action_->operands > 0 && options_.operands.size() != action_->operands)
            error_ = "'" + std::string(action_->option) + "' takes " + std::string(action_->operandNames);
    }

    void assignFile() {
        if (options_.operands.size() > 1)
            error_ = "only one scenery file can be opened, '" + options_.operands[1] + "' is one too many";
        else if (!options_.operands.empty())
            options_.file = options_.operands.front();
        options_.operands.clear();
    }

    const std::vector<std::string>& arguments_;
    std::size_t at_ = 0;
    bool optionsEnded_ = false;
    const ActionRow* action_ = nullptr;
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
           "FILE.xml is opened after start-up.\n"
           "\n"
           "Without a window:\n"
           "  --check IN.xml            list what you should look at: unknown objects and effects, "
           "duplicates\n"
           "                            at one place, bad coordinates, missing model files\n"
           "  --json                    with --check: the list as JSON\n"
           "  --format IN.xml           write the file anew, laid out as the editor saves it\n"
           "  --compile IN.xml OUT.bgl  compile with the bglcomp that the editor would use\n"
           "  --export-shp IN.xml OUT.shp\n"
           "                            write the placements as a point shapefile\n"
           "  --import-shp IN.xml POINTS.shp OUT.xml\n"
           "                            add a placement for each point (RD coordinates)\n"
           "\n"
           "The list of --check goes to standard output, all messages go to standard error.\n"
           "Exit code: 0 done and nothing found, 1 something was found or failed, 2 wrong usage.\n";
}

std::string versionText() {
    return "Quillset XML " QUILLSET_VERSION "\n";
}

} // namespace quillset
