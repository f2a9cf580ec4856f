#include "app/startup.h"

#include <gtest/gtest.h>

#include <new>
#include <utility>

#include "app/base/registry_keys.h"
#include "app/base/settings_table.h"
#include "app/quit.h"
#include "test_program.h"
#include "util/text.h"

namespace quillo {
namespace {

using Steps = std::vector<std::u16string>;

/// Records every step in order, together with the state of the files, the registry and the shell at that step.
class RecordingStage : public StartupStage {
  public:
    explicit RecordingStage(TestProgram& test) : test_(test) {}

    [[nodiscard]] bool AnotherInstanceRuns() override {
        viewsBefore = test_.views.Count();
        openedBefore = test_.shell.opened.size();
        Note(u"AnotherInstanceRuns");
        return anotherRuns;
    }
    void SendToRunningInstance(std::u16string_view commandLine) override {
        sent.emplace_back(commandLine);
        Note(u"SendToRunningInstance");
    }
    void InitializeShell() override { Note(u"InitializeShell"); }
    void RegisterLinkFormat() override { Note(u"RegisterLinkFormat"); }
    [[nodiscard]] OsFacts ReadOsFacts() override {
        Note(u"ReadOsFacts");
        return os;
    }
    void LoadNotifyWindow() override { Note(u"LoadNotifyWindow"); }
    void LoadMainForm() override {
        EXPECT_FALSE(test_.program.settings.shortcuts[0].empty()) << "the settings are loaded before";
        EXPECT_FALSE(test_.program.notesFolder.empty());
        EXPECT_EQ(test_.views.Count(), viewsBefore) << "no note comes before";
        EXPECT_EQ(test_.shell.opened.size(), openedBefore) << "nor the help";
        steps.emplace_back(u"LoadMainForm");
    }

    bool anotherRuns = false;
    OsFacts os = MakeOsFacts(2, 10, 0);
    Steps steps;
    std::vector<std::u16string> sent;
    std::size_t viewsBefore = 0;
    std::size_t openedBefore = 0;

  private:
    void Note(std::u16string_view step) {
        EXPECT_TRUE(test_.registry.Log().empty()) << "the registry is not touched before the notify window is loaded";
        EXPECT_TRUE(test_.files.log.empty());
        steps.emplace_back(step);
    }

    TestProgram& test_;
};

class StartupTest : public testing::Test {
  protected:
    StartupTest() {
        test_.program.notesFolder.clear();
        test_.registry.Put(kUserKey, u"Shown Help", -1);
        test_.registry.Put(kUserKey, u"Random note color", 0);
    }

    StartupOutcome Start(std::u16string_view commandLine = u"") {
        test_.registry.ClearLog();
        test_.files.log.clear();
        Startup startup = test_.MakeStartup(stage_);
        return startup.Run(commandLine);
    }
    void PutStored(std::u16string_view name, std::string_view bytes) {
        test_.files.Put(TestProgram::Stored(name), bytes);
    }

    TestProgram test_;
    RecordingStage stage_{test_};
    Program& program_ = test_.program;
};

TEST_F(StartupTest, TheSavedNotesAreOneBatchAndTheCommandLineIsNot) {
    PutStored(u"a.qln", "a");
    test_.files.Put(u"C:\\Users\\ann\\Desktop\\b.qln", "b");
    std::vector<bool> inBatch;
    test_.views.onMake = [&] { inBatch.push_back(test_.batch.IsInFront([] { return true; })); };
    EXPECT_EQ(Start(u"C:\\Users\\ann\\Desktop\\b.qln"), StartupOutcome::Running);
    EXPECT_EQ(inBatch, (std::vector{true, false}));
}

TEST_F(StartupTest, AnErrorDuringTheImportKeepsNoFileFromBeingOpened) {
    test_.registry.Put(kUserKey, u"Notes", 1);
    test_.registry.Put(kUserKey, u"Note 1", u"old");
    PutStored(u"a.qln", "a");
    bool failed = false;
    test_.views.onMake = [&failed] {
        if (!std::exchange(failed, true)) throw std::bad_alloc();
    };
    EXPECT_EQ(Start(), StartupOutcome::Running);
    ASSERT_EQ(program_.openNotes.Count(), 1U);
    EXPECT_EQ(test_.views.Note(0).Text(), u"a");
    EXPECT_FALSE(program_.loadingNotes);
    EXPECT_TRUE(test_.registry.HasValue(kUserKey, u"Note 1")) << "for the next start";
}

// A second start.

TEST_F(StartupTest, ASecondStartPassesOnItsCommandLineAndEnds) {
    struct Case {
        std::u16string_view commandLine;
        std::vector<std::u16string> sent;
    };
    const Case cases[] = {
        {u"", {}},
        {u"   ", {}},
        {u" /new ", {u"/new"}},
        {u"/CLOSE", {u"/CLOSE"}},
        {u"C:\\a b.qln", {u"C:\\a b.qln"}},
        {u"a b.qln", {u"C:\\Users\\ann\\a b.qln"}},
        {u"\"a b.qln\"", {u"C:\\Users\\ann\\a b.qln"}},
        {u"@ a.qln", {u"@C:\\Users\\ann\\a.qln"}},
        {u"@", {u"@"}},
    };
    for (const Case& c : cases) {
        stage_.sent.clear();
        stage_.anotherRuns = true;
        EXPECT_EQ(Start(c.commandLine), StartupOutcome::EndProcess);
        EXPECT_EQ(stage_.sent, c.sent) << testing::PrintToString(std::u16string(c.commandLine));
    }
    EXPECT_FALSE(program_.startingUp);
    EXPECT_TRUE(test_.registry.Log().empty());
}

TEST_F(StartupTest, AFirstStartWithCloseStoresNothing) {
    for (const auto* commandLine : {u"/close", u" /CLOSE now"}) {
        stage_.steps.clear();
        EXPECT_EQ(Start(commandLine), StartupOutcome::EndProcess);
        EXPECT_EQ(stage_.steps, Steps{u"AnotherInstanceRuns"});
        EXPECT_TRUE(test_.registry.Log().empty());
        EXPECT_TRUE(test_.files.log.empty());
    }
}

// The steps.

TEST_F(StartupTest, StepsRunInOrder) {
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_EQ(stage_.steps, (Steps{u"AnotherInstanceRuns", u"InitializeShell", u"RegisterLinkFormat", u"ReadOsFacts",
                                   u"LoadNotifyWindow", u"LoadMainForm"}));
    const Steps registry{u"open HKEY_LOCAL_MACHINE\\Software\\Marrowind\\Quillo",
                         u"open HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run", u"set Quillo",
                         u"open HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo",
                         u"open HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo"};
    EXPECT_EQ(test_.registry.Log(), registry) << "machine, Run value, settings, old notes";
    const Steps folders{u"CreateFolder C:\\Users\\ann\\AppData\\Local\\Marrowind",
                        u"CreateFolder C:\\Users\\ann\\AppData\\Local\\Marrowind\\Notes"};
    EXPECT_EQ(test_.files.log, folders);
    EXPECT_EQ(program_.notesFolder, kTestNotesFolder);
    EXPECT_EQ(program_.os.major, 10);
    EXPECT_FALSE(program_.startingUp);
    EXPECT_FALSE(program_.loadingNotes);
    EXPECT_EQ(test_.registry.OpenKeys(), 0U);
}

TEST_F(StartupTest, AStartReadsEachSettingAndNothingForANote) {
    const auto valuesReadWith = [](int notes) {
        TestProgram fresh;
        RecordingStage stage(fresh);
        for (int i = 10; i < 10 + notes; ++i) fresh.files.Put(TestProgram::Stored(FormatInteger(i) + u".qln"), "text");
        Startup startup = fresh.MakeStartup(stage);
        EXPECT_EQ(startup.Run(u""), StartupOutcome::Running);
        EXPECT_EQ(fresh.program.openNotes.Count(), static_cast<std::size_t>(notes));
        return fresh.registry.ValuesRead();
    };
    constexpr int kColorsReadTwice = 3;  // to distinguish black from a missing value
    constexpr int kOthers = 5;           // roaming profile, Run value, number of old notes, list of values
    const int constant = static_cast<int>(SettingsTable().size()) + kColorsReadTwice + kOthers;
    EXPECT_EQ(valuesReadWith(0), constant);
    EXPECT_EQ(valuesReadWith(40), constant);
}

TEST_F(StartupTest, TheRunValueIsWrittenUnlessItIsExactlyTheProgramsPath) {
    const std::u16string path = test_.shell.programPath;
    for (const std::u16string& stored : {std::u16string(u"C:\\old\\quillo.exe"), FoldAscii(path), std::u16string()}) {
        test_.registry.Put(kRunKey, kRunValue, stored);
        EXPECT_EQ(Start(), StartupOutcome::Running);
        EXPECT_EQ(test_.registry.Text(kRunKey, kRunValue), path);
    }
    EXPECT_EQ(Start(), StartupOutcome::Running);
    for (const std::u16string& line : test_.registry.Log()) EXPECT_NE(line, u"set Quillo");
}

TEST_F(StartupTest, QuittingWithoutNotesInStartupModeOneDeletesTheRunValue) {
    test_.registry.Put(kUserKey, u"Startup Mode", 1);
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_TRUE(test_.registry.HasValue(kRunKey, kRunValue));
    EXPECT_TRUE(test_.quit.Run(QuitReason::Command));
    EXPECT_FALSE(test_.registry.HasValue(kRunKey, kRunValue));
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_TRUE(test_.registry.HasValue(kRunKey, kRunValue));
}

TEST_F(StartupTest, RoamingNotesAreInTheRoamingFolder) {
    test_.registry.Put(kMachineKey, u"Use roaming profile", 1);
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_TRUE(program_.settings.useRoamingProfile);
    EXPECT_EQ(program_.notesFolder, u"C:\\Users\\ann\\AppData\\Roaming\\Marrowind\\Notes");
}

TEST_F(StartupTest, WithoutAPlaceForTheNotesTheProgramEndsWithAMessage) {
    for (const SpecialFolder folder :
         {SpecialFolder::LocalApplicationData, SpecialFolder::RoamingApplicationData, SpecialFolder::Documents}) {
        test_.shell.SetFolder(folder, u"");
    }
    EXPECT_EQ(Start(), StartupOutcome::EndProcess);
    EXPECT_EQ(test_.notice.fails, Steps{u"Quillo cannot start because it can't find a place to store your notes."});
    EXPECT_TRUE(test_.files.log.empty());
}

// The first run.

TEST_F(StartupTest, TheFirstRunHasItsOwnColorsAndOpensTheHelp) {
    test_.registry.Put(kUserKey, u"Shown Help", 0);
    test_.registry.Put(kUserKey, u"Note color", 0x111111);
    PutStored(u"a.qln", "text");
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_EQ(test_.registry.Number(kUserKey, u"Shown Help"), -1);
    EXPECT_EQ(program_.settings.noteColor, ColorWord{0xC0FFFF});
    EXPECT_EQ(program_.settings.noteBorderColor, ColorWord{0xC0FF});
    EXPECT_EQ(program_.settings.noteTextColor, ColorWord{0});
    EXPECT_EQ(test_.registry.Number(kUserKey, u"Note color"), 0x111111) << "for this run only";
    EXPECT_EQ(test_.views.View(0).Applied().NoteColor, ColorWord{0xC0FFFF});
    EXPECT_EQ(test_.shell.opened, Steps{u"C:\\Program Files\\Quillo\\Quillo.chm"});
}

TEST_F(StartupTest, AMissingHelpFileShowsNothing) {
    test_.registry.Put(kUserKey, u"Shown Help", 0);
    test_.shell.openWorks = false;
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_TRUE(test_.notice.fails.empty());
}

TEST_F(StartupTest, LaterRunsOpenNoHelp) {
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_TRUE(test_.shell.opened.empty());
    EXPECT_EQ(program_.settings.noteColor, ColorWord{14155262});
}

// The saved notes.

TEST_F(StartupTest, OldNotesAreOpenedBeforeTheFilesOfTheNotesFolder) {
    test_.registry.Put(kUserKey, u"Notes", 1);
    test_.registry.Put(kUserKey, u"Note 1", u"old");
    PutStored(u"a.qln", "first");
    PutStored(u"b.QLN", "second");
    PutStored(u"c.qlnx", "not a note");
    PutStored(u"d.txt", "not a note");
    EXPECT_EQ(Start(u"C:\\Users\\ann\\Desktop\\e.txt"), StartupOutcome::Running);
    ASSERT_EQ(test_.views.Count(), 3U);
    EXPECT_EQ(test_.views.Note(0).Text(), u"old");
    EXPECT_EQ(test_.views.Note(1).Text(), u"first");
    EXPECT_EQ(test_.views.Note(2).Text(), u"second");
    EXPECT_EQ(test_.files.Read(TestProgram::Stored(u"a.qln")), "first") << "opening rewrites nothing";
}

TEST_F(StartupTest, AFileThatCannotBeReadIsSkipped) {
    PutStored(u"a.qln", "first");
    PutStored(u"b.qln", "second");
    test_.files.FailPath(TestProgram::Stored(u"a.qln"));
    EXPECT_EQ(Start(), StartupOutcome::Running);
    ASSERT_EQ(test_.views.Count(), 1U);
    EXPECT_EQ(test_.views.Note(0).Text(), u"second");
    EXPECT_TRUE(test_.notice.fails.empty());
}

TEST_F(StartupTest, FiftyOneFilesOpenFiftyNotesAndOneBalloon) {
    for (int i = 10; i < 63; ++i) PutStored(FormatInteger(i) + u".qln", "text");
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_EQ(program_.openNotes.Count(), 50U);
    EXPECT_EQ(test_.notice.balloons.size(), 1U);
    EXPECT_EQ(test_.StoredFiles().size(), 53U);
}

TEST_F(StartupTest, AllNotesOfTheOldStoreOpenAndFilesAboveTheLimitStayUnchanged) {
    constexpr int kStored = 60;
    test_.registry.Put(kUserKey, u"Notes", kStored);
    for (int i = 1; i <= kStored; ++i) test_.registry.Put(kUserKey, u"Note " + FormatInteger(i), u"old");
    PutStored(u"a.qln", "first");
    PutStored(u"b.qln", "second");
    EXPECT_EQ(Start(), StartupOutcome::Running);
    ASSERT_EQ(program_.openNotes.Count(), 60U);
    for (std::size_t i = 0; i < 60; ++i) EXPECT_TRUE(test_.views.Note(i).IsVisible()) << i;
    EXPECT_EQ(test_.notice.balloons.size(), 1U) << "the files exceeded the limit";

    test_.saveAll.Run();
    EXPECT_EQ(test_.StoredFiles().size(), 62U);
    EXPECT_EQ(test_.files.Read(TestProgram::Stored(u"a.qln")), "first");
    EXPECT_EQ(test_.files.Read(TestProgram::Stored(u"b.qln")), "second");
}

TEST_F(StartupTest, FiftyFilesShowNoBalloon) {
    for (int i = 10; i < 60; ++i) PutStored(FormatInteger(i) + u".qln", "text");
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_EQ(program_.openNotes.Count(), 50U);
    EXPECT_TRUE(test_.notice.balloons.empty());
}

TEST_F(StartupTest, NotesOfAStartAreNotPinned) {
    test_.registry.Put(kUserKey, u"Auto-pin new notes", -1);
    PutStored(u"a.qln", "text");
    EXPECT_EQ(Start(), StartupOutcome::Running);
    EXPECT_FALSE(test_.views.Note(0).Data().Pinned);
}

struct HiddenCase {
    bool oldNoteHidden;
    bool fileHidden;
    std::int32_t minimizeToTray;
    std::int32_t disableBalloons;
    int osMajor;
    bool balloon;
};

TEST_F(StartupTest, ABalloonReportsHiddenOldNotesOnly) {
    const HiddenCase cases[] = {
        {true, false, 0, 0, 10, true},   {true, true, 0, 0, 10, true},    {false, true, 0, 0, 10, false},
        {true, false, -1, 0, 10, false}, {true, false, 0, -1, 10, false}, {true, false, 0, 0, 4, false},
        {false, false, 0, 0, 10, false},
    };
    for (const HiddenCase& c : cases) {
        TestProgram fresh;
        RecordingStage stage(fresh);
        stage.os = MakeOsFacts(2, c.osMajor, 0);
        fresh.registry.Put(kUserKey, u"Shown Help", -1);
        fresh.registry.Put(kUserKey, u"Minimize to tray", c.minimizeToTray);
        fresh.registry.Put(kUserKey, u"Disable balloon help", c.disableBalloons);
        fresh.registry.Put(kUserKey, u"Notes", 1);
        fresh.registry.Put(kUserKey, u"Note appearance 1", c.oldNoteHidden ? u"0,0,0,0,0,1" : u"0,0,0,0,0,0");
        if (c.fileHidden) {
            fresh.files.Put(TestProgram::Stored(u"a.qln"),
                            "x\r\n<quillo><appearance>0,0,0,0,0,1</appearance></quillo>");
        }
        Startup startup = fresh.MakeStartup(stage);
        EXPECT_EQ(startup.Run(u""), StartupOutcome::Running);
        ASSERT_EQ(fresh.notice.balloons.size(), c.balloon ? 1U : 0U);
        if (!c.balloon) continue;
        EXPECT_EQ(fresh.notice.balloons[0].title, u"Looking for your sticky notes?");
        EXPECT_EQ(fresh.notice.balloons[0].text,
                  u"Click \"show all notes\" on the main Quillo menu to see the notes that you have hidden.");
        EXPECT_EQ(fresh.notice.balloons[0].icon, BalloonIcon::Information);
    }
}

// The command line of a first start.

TEST_F(StartupTest, AnUnknownCommandIsNamedAfterTheNotesWereLoaded) {
    PutStored(u"a.qln", "text");
    for (const auto* commandLine : {u"/new", u" /x y "}) {
        test_.notice.Clear();
        EXPECT_EQ(Start(commandLine), StartupOutcome::Running);
        EXPECT_EQ(test_.notice.fails, Steps{u"Unknown command: " + std::u16string(Trim(commandLine))});
        EXPECT_GE(program_.openNotes.Count(), 1U);
    }
}

TEST_F(StartupTest, AFileOnTheCommandLineIsOpenedAfterAllSavedNotes) {
    for (const auto* commandLine :
         {u"@C:\\Users\\ann\\note.txt", u" @ note.txt ", u"\"C:\\Users\\ann\\note.txt\"", u"note.txt"}) {
        TestProgram fresh;
        RecordingStage stage(fresh);
        fresh.files.Put(TestProgram::Stored(u"a.qln"), "stored");
        fresh.files.Put(u"C:\\Users\\ann\\note.txt", "outside");
        Startup startup = fresh.MakeStartup(stage);
        EXPECT_EQ(startup.Run(commandLine), StartupOutcome::Running);
        ASSERT_EQ(fresh.views.Count(), 2U) << testing::PrintToString(std::u16string(commandLine));
        EXPECT_EQ(fresh.views.Note(1).Text(), u"outside");
        EXPECT_FALSE(fresh.files.FileExists(u"C:\\Users\\ann\\note.txt"));
        EXPECT_EQ(fresh.StoredFiles().size(), 2U);
    }
}

TEST_F(StartupTest, AStoredNoteOnTheCommandLineIsNotOpenedTwice) {
    PutStored(u"a.qln", "text");
    EXPECT_EQ(Start(TestProgram::Stored(u"a.qln")), StartupOutcome::Running);
    EXPECT_EQ(program_.openNotes.Count(), 1U);
}

}  // namespace
}  // namespace quillo
