#pragma once

#include "base/dialogs.h"
#include "base/notifier.h"
#include "base/runtime_error.h"

#include <exception>
#include <functional>
#include <string>
#include <string_view>

namespace quillset {

enum class AfterReport { returns, endsProgram };

/// What follows the report of an unexpected error in a procedure. Procedures outside the table return: a
/// failed Save must not cost the user the rest of the document.
[[nodiscard]] AfterReport afterReport(std::string_view procedure, std::string_view form);

/// The error traps of the user-interface procedures: one report format, and the unexpected-error routine.
class ErrorFunctions {
public:
    /// `rescueSave` writes the open document to its path (nothing when none is open). `endProgram` ends the
    /// program at once without saving the configuration; in the product it does not return.
    ErrorFunctions(Dialogs& dialogs, std::function<void()> rescueSave, std::function<void()> endProgram);

    /// Runs `body` as the named procedure of the named window: whatever it throws is reported, and for the
    /// procedures of the table the unexpected-error routine runs. Returns true when nothing was thrown.
    bool trapped(std::string_view procedure, std::string_view form, const std::function<void()>& body);

    /// Called with the procedure and its window before each trapped body; what it throws counts as thrown by
    /// the body. For fault injection.
    void setBeforeEach(std::function<void(std::string_view procedure, std::string_view form)> beforeEach) {
        beforeEach_ = std::move(beforeEach);
    }

    /// "Error N (description) in procedure P of Form W".
    void report(int number, std::string_view description, std::string_view procedure, std::string_view form);

    /// Offers to save, then ends the program.
    void unexpectedError();

    /// For a command without a trap: shows "Run-time error 'N':", a blank line and the description, runs
    /// `beforeEnd` (a last chance to keep the user's work), then ends the program.
    void runUntrapped(const std::function<void()>& body, const std::function<void()>& beforeEnd);

    /// Told with the text of each report, before its message box is shown. For the log.
    Notifier<const std::string&> reported;

private:
    void show(const Message& message);

    Dialogs& dialogs_;
    std::function<void()> rescueSave_;
    std::function<void()> endProgram_;
    std::function<void(std::string_view, std::string_view)> beforeEach_;
};

/// Number and description of the exception being handled; call inside a catch block only.
struct ErrorText {
    int number = 0;
    std::string description;
};
[[nodiscard]] ErrorText currentError();

} // namespace quillset
