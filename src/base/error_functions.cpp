#include "base/error_functions.h"

#include <algorithm>
#include <array>
#include <new>

namespace quillset {

namespace {

struct TrapRow {
    std::string_view procedure;
    std::string_view form;
    AfterReport after;
};

// The lower-case "click" of mObjects_click is deliberate: users and old notes quote the name as it is.
constexpr std::array<TrapRow, 19> trapTable{{
    {"Form_Resize", "frmObjTree", AfterReport::endsProgram},
    {"addNewUserLibrary", "frmObjTree", AfterReport::endsProgram},
    {"MDIForm_Resize", "MDIForm1", AfterReport::endsProgram},
    {"MDIForm_Load", "MDIForm1", AfterReport::returns},
    {"MDIForm_Unload", "MDIForm1", AfterReport::returns},
    {"mOpen_Click", "MDIForm1", AfterReport::endsProgram},
    {"mRemoveObject_Click", "MDIForm1", AfterReport::endsProgram},
    {"mRescanTree_Click", "MDIForm1", AfterReport::endsProgram},
    {"mObjects_click", "MDIForm1", AfterReport::endsProgram},
    {"mAddNewBefore_Click", "MDIForm1", AfterReport::endsProgram},
    {"mAddNewEnd_Click", "MDIForm1", AfterReport::endsProgram},
    {"mUpdateObject_Click", "MDIForm1", AfterReport::endsProgram},
    {"Form_Resize", "frmObjProp", AfterReport::endsProgram},
    {"ObjProp_MouseUp", "frmObjProp", AfterReport::endsProgram},
    {"processKeyPress", "frmObjProp", AfterReport::endsProgram},
    {"setNewData", "frmObjProp", AfterReport::endsProgram},
    {"Form_Resize", "frmPreview", AfterReport::endsProgram},
    {"Form_Resize", "frmXMLList", AfterReport::endsProgram},
    {"setProperty", "frmXMLList", AfterReport::endsProgram},
}};

} // namespace

AfterReport afterReport(std::string_view procedure, std::string_view form) {
    const auto row = std::find_if(trapTable.begin(), trapTable.end(), [&](const TrapRow& candidate) {
        return candidate.procedure == procedure && candidate.form == form;
    });
    return row == trapTable.end() ? AfterReport::returns : row->after;
}

ErrorText currentError() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return {error.number(), error.what()};
    } catch (const std::bad_alloc&) {
        const RuntimeError error(ErrorNumber::outOfMemory);
        return {error.number(), error.what()};
    } catch (const std::system_error& error) {
        const RuntimeError translated = fileError(error.code());
        return {translated.number(), translated.what()};
    } catch (const std::exception& error) {
        return {static_cast<int>(ErrorNumber::internalError), error.what()};
    }
}

ErrorFunctions::ErrorFunctions(Dialogs& dialogs, std::function<void()> rescueSave,
                               std::function<void()> endProgram)
    : dialogs_(dialogs)
    , rescueSave_(std::move(rescueSave))
    , endProgram_(std::move(endProgram)) {}

bool ErrorFunctions::trapped(std::string_view procedure, std::string_view form,
                             const std::function<void()>& body) {
    ErrorText error;
    try {
        if (beforeEach_)
            beforeEach_(procedure, form);
        body();
        return true;
    } catch (const std::exception&) {
        error = currentError();
    }
    // The message box runs outside the catch block: it may spin an event loop that throws and catches itself.
    report(error.number, error.description, procedure, form);
    if (afterReport(procedure, form) == AfterReport::endsProgram)
        unexpectedError();
    return false;
}

void ErrorFunctions::report(int number, std::string_view description, std::string_view procedure,
                            std::string_view form) {
    std::string text = "Error " + std::to_string(number) + " (";
    text.append(description).append(") in procedure ").append(procedure).append(" of Form ").append(form);
    show({text, applicationTitle, MessageButtons::ok, MessageIcon::none});
}

void ErrorFunctions::show(const Message& message) {
    reported.notify(message.text);
    dialogs_.ask(message);
}

void ErrorFunctions::unexpectedError() {
    // Deliberate: OK is the only button, so the rescue save below is never chosen. The rule stays for the day
    // when the box offers Yes.
    const Answer answer =
        dialogs_.ask({"An unexpected runtime error occured. Do you want to save your XML file now?\r\n"
                      "Quillset XML will quit now.",
                      applicationTitle, MessageButtons::ok, MessageIcon::question});
    if (answer == Answer::yes)
        rescueSave_();
    reported.notify("the program ends after an unexpected error");
    endProgram_();
}

void ErrorFunctions::runUntrapped(const std::function<void()>& body, const std::function<void()>& beforeEnd) {
    ErrorText error;
    try {
        body();
        return;
    } catch (const std::exception&) {
        error = currentError();
    }
    show({"Run-time error '" + std::to_string(error.number) + "':\r\n\r\n" + error.description,
          applicationTitle, MessageButtons::ok, MessageIcon::critical});
    beforeEnd();
    endProgram_();
}

} // namespace quillset
