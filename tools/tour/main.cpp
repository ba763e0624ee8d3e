#include "manual_pictures.h"
#include "tour.h"

#include "base/console_program.h"
#include "base/program_folder.h"

#include "shell/qt_dialogs.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace {

using namespace quillset;

struct Arguments {
    CommandLine options;
    std::string results;
    /// Where the pictures of the manual go; empty for the tour.
    std::string pictures;
    bool good = false;
};

Arguments parse(const std::vector<std::string>& words) {
    Arguments arguments;
    std::vector<std::string> rest;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--results" && i + 1 < words.size())
            arguments.results = words[++i];
        else if (words[i] == "--pictures" && i + 1 < words.size())
            arguments.pictures = words[++i];
        else
            rest.push_back(words[i]);
    }
    const CommandLineResult parsed = parseCommandLine(rest);
    arguments.options = parsed.options;
    arguments.good =
        parsed.error.empty() && !arguments.results.empty() && parsed.options.programFolder.has_value();
    return arguments;
}

template <class Guide>
int goThrough(Guide guide, Editor& editor, const QSize& size) {
    if (!guide.start())
        return 1;
    editor.window().resize(size);
    editor.window().move(20, 20);
    guide.run();
    return 0;
}

int tourThrough(Editor& editor, const Arguments& arguments) {
    int result = 1;
    QTimer::singleShot(0, [&] {
        try {
            const QString results = QString::fromStdString(arguments.results);
            if (arguments.pictures.empty())
                result = goThrough(tour::Tour(editor, results), editor, {1360, 900});
            else
                result = goThrough(
                    tour::ManualPictures(editor, results, QString::fromStdString(arguments.pictures)), editor,
                    {1160, 760});
        } catch (const tour::TourError& error) {
            writeConsole(ConsoleStream::error, std::string("quillset-tour: ") + error.what() + "\n");
        }
        QApplication::exit(result);
    });
    QApplication::exec();
    return result;
}

} // namespace

int main(int argc, char** argv) {
    const Arguments arguments = parse(programArguments(argc, argv));
    if (!arguments.good) {
        std::fputs("Usage: quillset-tour --results DIR --program-folder DIR --fs-path DIR [--pictures DIR]\n"
                   "Drives the editor through a session and leaves pictures and files in the first DIR.\n"
                   "With --pictures it takes the manual's pictures instead.\n",
                   stderr);
        return 2;
    }
    // The platform's own file dialogs take no events from inside the program.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    const std::string executable = executableFolder();
    const std::string data = chooseDataFolder(executable, executable, arguments.options.programFolder);
    const InstanceFolder instance(data);
    QtDialogs dialogs;
    const std::unique_ptr<SimulatorServices> simulator = systemSimulatorServices();
    Editor editor({arguments.options,
                   {executable, data, instance.path()},
                   dialogs,
                   *simulator,
                   [] { return std::string(); },
                   [] { std::_Exit(1); }});
    dialogs.setParent(&editor.window());
    const int result = tourThrough(editor, arguments);
    if (result == 0)
        std::printf("The tour went through; its pictures and files are in %s\n", arguments.results.c_str());
    return result;
}
