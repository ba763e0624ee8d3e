#include "shell/start_up.h"

#include "session_fixture.h"
#include "shell/shut_down.h"

#include <gtest/gtest.h>

using namespace quillset;

namespace {

class RecordedWindows : public StartUpWindows {
public:
    void showSplash() override { steps.emplace_back("splash"); }
    void setSplashText(const std::string& text) override { steps.push_back(text); }
    void closeSplash() override { steps.emplace_back("close"); }
    void dockWindows() override {
        steps.emplace_back("dock");
        if (dockingFails)
            throw RuntimeError(ErrorNumber::objectNotSet);
    }
    void initialisePreview() override { steps.emplace_back("preview"); }

    bool dockingFails = false;
    std::vector<std::string> steps;
};

struct StartUpTest : testing::Test, test::SessionFixture {
    RecordedWindows windows;
    StartUpOptions options;
};

const char* const noModule =
    "FSUIPC was not found on your system, communication with FS will not be possible";

} // namespace

TEST_F(StartUpTest, TheStagesInOrder) {
    registered = folder.file("fs");
    folder.write("fs/Modules/FSUIPC.dll", "x");
    EXPECT_EQ(startUp(session, windows, options), StartUpOutcome::ready);
    EXPECT_EQ(windows.steps,
              (std::vector<std::string>{"splash", "Creating internal objects and variables",
                                        "Reading configuration", "Docking windows", "dock",
                                        "Reading available objects", "Checking for runtime files",
                                        "Initializing generic building preview", "preview", "close"}));
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(session.catalogue().getObjectName("AA01"), "Hangar");
    EXPECT_FALSE(folder.has("program/config.xml")) << "written at the end of the run";
    shutDown(session, [](const std::string&) { return WindowLayout{2, false, false}; });
    EXPECT_TRUE(linkClosed);
    EXPECT_NE(folder.read("program/config.xml").find("<frmObjTree align=\"2\" docked=\"0\" visible=\"0\"/>"),
              std::string::npos);
}

TEST_F(StartUpTest, MessagesOfTheChecks) {
    const auto critical = [](const std::string& text, const char* title = "Quillset XML",
                             const char* detail = "") {
        return Message{text, title, MessageButtons::ok, MessageIcon::critical, detail};
    };
    const Message information{noModule, "Quillset XML", MessageButtons::ok, MessageIcon::information};
    const auto ends = StartUpOutcome::programEnds;
    const auto ready = StartUpOutcome::ready;
    const struct {
        const char* name;
        bool registered;
        const char* config;
        const char* runtimeFile;
        std::vector<Message> messages;
        StartUpOutcome outcome;
    } rows[] = {
        {"no simulator",
         false,
         "",
         "",
         {critical("The path to Fs2004 could not be read from the registry, please update the config.xml "
                   "file manual",
                   "Quillset XML error")},
         ends},
        {"damaged configuration",
         true,
         "<Configuration>",
         "",
         {critical(
             "Failed to load config.xml file, please remove the current config.xml and restart Quillset "
             "XML",
             "Quillset XML error",
             "config.xml: Line 1, column 16: the file ends, but the element \"Configuration\" is still "
             "open")},
         ends},
        {"no run-time file", true, "", "none.dll", {critical(missingRuntimeFilesText({"none.dll"}))}, ends},
        {"no module", true, "", "", {information}, ready},
    };
    for (const auto& row : rows) {
        test::SessionFixture f;
        RecordedWindows shown;
        f.registered = row.registered ? f.folder.file("fs") : std::string();
        if (*row.config)
            f.folder.write("program/config.xml", row.config);
        StartUpOptions checks;
        if (*row.runtimeFile)
            checks.runtimeFiles = {row.runtimeFile};
        EXPECT_EQ(startUp(f.session, shown, checks), row.outcome) << row.name;
        for (Message& message : f.dialogs.messages) // the folder is another one each time
            message.detail.erase(0, std::min(message.detail.find("config.xml"), message.detail.size()));
        EXPECT_EQ(f.dialogs.messages, row.messages) << row.name;
        EXPECT_EQ(std::count(shown.steps.begin(), shown.steps.end(), "preview"), row.outcome == ready)
            << row.name;
        EXPECT_EQ(shown.steps.back(), "close") << row.name;
    }
}

TEST_F(StartUpTest, WithoutTheConverterThereIsNoDynamicPreview) {
    registered = folder.file("fs");
    options.textureConverter = {"kpgfx.dll", "kpdds.dll"};
    folder.write("program/kpgfx.dll", "x");
    EXPECT_EQ(startUp(session, windows, options), StartUpOutcome::ready);
    EXPECT_NE(dialogs.messages.back().text.find("continue without the dynamic preview"), std::string::npos);
    EXPECT_EQ(std::count(windows.steps.begin(), windows.steps.end(), "preview"), 0);
}

TEST_F(StartUpTest, AnUnexpectedErrorIsReportedAndTheWindowOpensAllTheSame) {
    registered = folder.file("fs");
    windows.dockingFails = true;
    EXPECT_EQ(startUp(session, windows, options), StartUpOutcome::ready);
    EXPECT_EQ(dialogs.messages.at(0).text,
              "Error 91 (Object variable or With block variable not set) in procedure "
              "MDIForm_Load of Form MDIForm1");
    EXPECT_NE(dialogs.messages.at(1).text.find("it failed at \"Docking windows\""), std::string::npos);
    EXPECT_EQ(windows.steps.back(), "close");
    EXPECT_EQ(ended, 0);
}

TEST_F(StartUpTest, TheSimulatorsFolderFromElsewhere) {
    dialogs.paths = {folder.file("fs")};
    EXPECT_TRUE(readConfiguration(session, std::nullopt)) << "the folder prompt";
    EXPECT_EQ(session.configuration().fsPath(), folder.file("fs"));
    EXPECT_TRUE(readConfiguration(session, "/other/"));
    EXPECT_EQ(session.configuration().fsPath(), "/other") << "the command line";
}

TEST_F(StartUpTest, EveryStepOfTheEndRunsWhateverFails) {
    start();
    folder.write("program/undo0000.xml", "left by an abnormal end");
    folder.write("program/temp.bmp", "of the last texture");
    session.document().create(folder.file("a.xml"));
    session.journal().record(UndoKind::addObject);
    shutDown(session,
             [](const std::string&) -> WindowLayout { throw RuntimeError(ErrorNumber::objectNotSet); });
    EXPECT_EQ(dialogs.messages.at(0).text,
              "Error 91 (Object variable or With block variable not set) in procedure "
              "MDIForm_Unload of Form MDIForm1");
    EXPECT_TRUE(folder.has("program/config.xml"));
    EXPECT_FALSE(folder.has("program/undo0000.xml"));
    EXPECT_FALSE(folder.has("program/temp.bmp"));
    EXPECT_TRUE(linkClosed);
}

TEST_F(StartUpTest, RemovesWhatACrashHasLeftForAMoment) {
    registered = folder.file("fs");
    const std::string old = folder.write("program/.quillset-0123456789abcdef.tmp", "x");
    std::filesystem::last_write_time(toPath(old),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(48));
    const char* const kept[] = {"undo0000.xml", "recovery.xml", ".quillset-fedcba9876543210.tmp",
                                "other.part"};
    for (const char* const name : kept)
        folder.write(std::string("program/") + name, "x");
    folder.write("program/undo0001.xml.part", "x");
    folder.write("program/temp.bmp", "x");
    EXPECT_EQ(startUp(session, windows, options), StartUpOutcome::ready);
    for (const char* const name : {"undo0001.xml.part", "temp.bmp", ".quillset-0123456789abcdef.tmp"})
        EXPECT_FALSE(folder.has(std::string("program/") + name)) << name;
    for (const char* const name : kept)
        EXPECT_TRUE(folder.has(std::string("program/") + name)) << name;
}
