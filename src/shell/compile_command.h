#pragma once

#include "build/bgl_compilation.h"
#include "shell/session.h"

namespace quillset {

/// The command "Compile BGL", joined with the configuration and the open document. It has no error trap: an
/// unexpected error shows the run-time error box and ends the program, after the document as it stands has
/// been written to a recovery file.
class CompileCommand : private CompileSettings {
public:
    CompileCommand(Session& session, ProcessStarter& starter, CompileLog& log);

    void compile();
    /// The bytes of the last compile.xml, for finding a placement from a compiler's message; empty before.
    [[nodiscard]] const std::string& source() const { return source_; }

private:
    [[nodiscard]] std::string xmlPath() const override;
    [[nodiscard]] std::vector<BglPathEntry> bglPaths() const override;
    void setBglPath(std::size_t index, const std::string& output) override;

    void keepRecoveryFile();

    /// Hands everything on to the window and notes each run in the program's log.
    class NotedLog : public CompileLog {
    public:
        NotedLog(const LogFile& file, CompileLog& window)
            : file_(file)
            , window_(window) {}
        void runBegins(const std::string& commandLine) override;
        void append(const std::string& piece) override { window_.append(piece); }
        WaitAnswer wait() override { return window_.wait(); }
        void runEnds(CompileOutcome outcome, const std::string& verdict) override;
        void showModal() override { window_.showModal(); }

    private:
        const LogFile& file_;
        CompileLog& window_;
    };

    Session& session_;
    NotedLog log_;
    DOSOutputs runner_;
    BglCompilation compilation_;
    std::string source_;
};

} // namespace quillset
