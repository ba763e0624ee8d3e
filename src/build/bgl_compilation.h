#pragma once

#include "base/activity_line.h"
#include "base/atomic_file.h"
#include "base/dialogs.h"
#include "build/compile_outcome.h"
#include "build/dos_outputs.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace quillset {

/// A `BGLPath` entry: the compiled output path remembered for a scenery file.
struct BglPathEntry {
    std::string fileName;
    std::string output;
};

/// What the compile command reads and changes in the configuration. Only in memory: saving is not its affair.
class CompileSettings {
public:
    virtual ~CompileSettings() = default;
    /// Text of `XMLPath`: the scenery file being edited.
    [[nodiscard]] virtual std::string xmlPath() const = 0;
    /// All `BGLPath` entries in document order.
    [[nodiscard]] virtual std::vector<BglPathEntry> bglPaths() const = 0;
    /// Throws RuntimeError (object not set) when there is no such entry.
    virtual void setBglPath(std::size_t index, const std::string& output) = 0;
};

enum class WaitAnswer { goOn, endCompiler };

/// The compile log window as the command sees it.
class CompileLog {
public:
    virtual ~CompileLog() = default;
    /// The compiler is about to run.
    virtual void runBegins(const std::string& commandLine) = 0;
    /// The next bytes that it wrote.
    virtual void append(const std::string& piece) = 0;
    /// Some twenty times a second during the run: repaints, listens, and tells whether the user wants the
    /// compiler to end.
    [[nodiscard]] virtual WaitAnswer wait() = 0;
    /// `verdict` says how it went, in words for the user.
    virtual void runEnds(CompileOutcome outcome, const std::string& verdict) = 0;
    /// Shows the window modal; returns when the user has closed it, its text discarded.
    virtual void showModal() = 0;
};

/// Where the remembered output of a scenery file stands among the entries. Compared without regard to letter
/// case; the last match wins. Deliberate: without a match it is the first entry, with no default output.
struct RememberedOutput {
    std::size_t index = 0;
    std::string output;
};
[[nodiscard]] RememberedOutput rememberedOutput(const std::vector<BglPathEntry>& entries,
                                                const std::string& sceneryPath);

/// The command "Compile BGL": asks for the output file, saves the document as it stands in memory to
/// compile.xml in the program folder, runs the compiler there, shows its log and puts its compile.bgl in the
/// place of the chosen file. Has no error trap: a failure of a file or document operation is thrown to the
/// caller, after the working files are gone.
class BglCompilation {
public:
    struct Surroundings {
        CompileSettings& settings;
        Dialogs& dialogs;
        FileOperations& files;
        ActivityLine& activityLine;
        DOSOutputs& runner;
        CompileLog& log;
        /// Folder of the working files.
        std::string programFolder;
        /// Folders appended to the end of the compiler's PATH.
        std::vector<std::string> foldersAfterPath;
    };

    explicit BglCompilation(Surroundings surroundings)
        : with_(std::move(surroundings)) {}

    /// `saveDocument` writes the document to a path without the layout of a normal save; it throws
    /// RuntimeError when there is nothing to save.
    void run(const std::function<void(const std::string& path)>& saveDocument);

private:
    [[nodiscard]] std::string chooseOutput(const RememberedOutput& remembered) const;
    [[nodiscard]] std::string reasonToRefuse(const std::string& chosen) const;
    [[nodiscard]] CompileOutcome runCompiler();
    void moveOutput(const std::string& chosen);
    [[nodiscard]] std::string workingFile(const char* name) const;

    Surroundings with_;
};

} // namespace quillset
