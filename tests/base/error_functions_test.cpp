#include "base/error_functions.h"
#include "support/scripted_dialogs.h"

#include <gtest/gtest.h>

#include <new>

using namespace quillset;

namespace {

struct Fixture {
    test::ScriptedDialogs dialogs;
    int saved = 0;
    int ended = 0;
    ErrorFunctions errors{dialogs, [this] { ++saved; }, [this] { ++ended; }};
};

} // namespace

TEST(ErrorFunctions, EveryTrapReportsAndThenEndsOrReturns) {
    const struct {
        const char* procedure;
        const char* form;
        int ends;
    } rows[] = {
        {"Form_Resize", "frmObjTree", 1},  {"mObjects_click", "MDIForm1", 1},
        {"mObjects_Click", "MDIForm1", 0}, {"MDIForm_Load", "MDIForm1", 0},
        {"setProperty", "frmXMLList", 1},  {"setProperty", "frmObjProp", 0},
    };
    for (const auto& row : rows) {
        Fixture f;
        const bool ok = f.errors.trapped(row.procedure, row.form,
                                         [] { throw RuntimeError(ErrorNumber::subscriptOutOfRange); });
        EXPECT_FALSE(ok);
        ASSERT_EQ(f.dialogs.messages.size(), static_cast<std::size_t>(1 + row.ends)) << row.procedure;
        const Message expected{std::string("Error 9 (Subscript out of range) in procedure ") + row.procedure +
                                   " of Form " + row.form,
                               "Quillset XML", MessageButtons::ok, MessageIcon::none};
        EXPECT_EQ(f.dialogs.messages[0], expected);
        EXPECT_EQ(f.ended, row.ends) << row.procedure << " of " << row.form;
    }
}

TEST(ErrorFunctions, TheUnexpectedErrorQuestionOffersOkOnlyAndSavesNothing) {
    Fixture f;
    f.errors.unexpectedError();
    ASSERT_EQ(f.dialogs.messages.size(), 1u);
    EXPECT_EQ(f.dialogs.messages[0],
              (Message{"An unexpected runtime error occured. Do you want to save your XML file now?\r\n"
                       "Quillset XML will quit now.",
                       "Quillset XML", MessageButtons::ok, MessageIcon::question}));
    EXPECT_EQ(f.saved, 0);
    EXPECT_EQ(f.ended, 1);

    f.dialogs.answers = {Answer::yes};
    f.errors.unexpectedError();
    EXPECT_EQ(f.saved, 1) << "the rule stays for a box that offers Yes";
}

TEST(ErrorFunctions, TheNearestTrapCatchesAndForeignExceptionsGetANumber) {
    Fixture f;
    const bool ok = f.errors.trapped(
        "outer", "MDIForm1", [&] { f.errors.trapped("inner", "MDIForm1", [] { throw std::bad_alloc(); }); });
    EXPECT_TRUE(ok);
    ASSERT_EQ(f.dialogs.messages.size(), 1u);
    EXPECT_EQ(f.dialogs.messages[0].text, "Error 7 (Out of memory) in procedure inner of Form MDIForm1");
    EXPECT_EQ(fileError(std::make_error_code(std::errc::no_space_on_device), "a.xml").number(), 61);
}

TEST(ErrorFunctions, AnUntrappedCommandKeepsTheWorkAndEnds) {
    Fixture f;
    int kept = 0;
    f.errors.runUntrapped([] { throw RuntimeError(ErrorNumber::permissionDenied); }, [&] { ++kept; });
    ASSERT_EQ(f.dialogs.messages.size(), 1u);
    EXPECT_EQ(f.dialogs.messages[0], (Message{"Run-time error '70':\r\n\r\nPermission denied", "Quillset XML",
                                              MessageButtons::ok, MessageIcon::critical}));
    EXPECT_EQ(kept, 1);
    EXPECT_EQ(f.ended, 1);
}
