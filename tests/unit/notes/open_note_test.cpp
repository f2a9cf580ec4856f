#include "notes/open_note.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "app/note_names.h"
#include "app/os_facts.h"
#include "testing/fake_clock.h"
#include "testing/fake_file_store.h"
#include "testing/fake_locale_text.h"
#include "testing/fake_note_view.h"
#include "testing/fake_shell.h"
#include "testing/fake_user_notice.h"
#include "testing/recording_mail.h"
#include "testing/recording_printer.h"

namespace quillo {
namespace {

const std::u16string kFolder = u"C:\\Data\\Notes";
const std::u16string kDocuments = u"C:\\Documents";
const std::u16string kKey = u"1A2B";
using Calls = std::vector<std::string>;

class FakeNoteOwner : public NoteOwner {
  public:
    void RemoveNote(const std::u16string& noteKey) override { open_.erase(noteKey); }
    [[nodiscard]] bool IsOpen(const std::u16string& noteKey) const override { return open_.count(noteKey) != 0; }

  private:
    std::set<std::u16string> open_{kKey};
};

/// While its message box is open the note goes.
class InformingNotice : public FakeUserNotice {
  public:
    explicit InformingNotice(NoteOwner& owner) : owner_(owner) {}
    void Inform(std::u16string_view text) override {
        FakeUserNotice::Inform(text);
        owner_.RemoveNote(kKey);
    }

  private:
    NoteOwner& owner_;
};

/// While it moves a file to the Recycle Bin the note goes.
class PumpingShell : public FakeShell {
  public:
    PumpingShell(FakeFileStore& files, NoteOwner& owner) : FakeShell(files), owner_(owner) {}
    bool Recycle(std::u16string_view path) override {
        owner_.RemoveNote(kKey);
        return FakeShell::Recycle(path);
    }

  private:
    NoteOwner& owner_;
};

class OpenNoteTest : public ::testing::Test {
  protected:
    OpenNoteTest() {
        settings_.noteFolder = kDocuments;
        files_.PutFolder(kFolder);
        files_.PutFolder(kDocuments);
        note_.AttachView(view_);
    }

    /// A note on the screen with that text, stored and unchanged.
    void ShowStored(std::u16string_view text) {
        note_.SetText(text);
        note_.Popup();
        note_.MarkChanged();
        ASSERT_TRUE(note_.PersistNote());
        Forget();
    }
    void Forget() {
        static_cast<void>(view_.TakeCalls());
        notice_.Clear();
    }
    [[nodiscard]] bool IsDestroyed() const { return !owner_.IsOpen(kKey) && view_.IsClosed(); }
    [[nodiscard]] std::string Content(const std::u16string& path) { return files_.Read(path).value_or("(none)"); }
    [[nodiscard]] std::vector<std::u16string> SavedFiles() { return files_.List(kDocuments, u".qln"); }
    [[nodiscard]] bool StorageExists() { return !files_.List(kFolder, u".qln").empty(); }

    Settings settings_;
    OsFacts os_;
    FakeFileStore files_;
    FakeLocaleText locale_;
    FakeShell shell_{files_};
    FakeClock clock_;
    FakeUserNotice notice_;
    FakeNoteOwner owner_;
    RecordingPrinter printer_;
    RecordingMail mail_;
    NoteNames names_{files_, shell_, settings_};
    NoteStore store_{files_, locale_, shell_, names_};
    FakeNoteView view_;
    OpenNote note_{{settings_, os_, kFolder, store_, locale_, clock_, notice_, owner_, printer_, mail_}, kKey};
};

// A note just made.

TEST_F(OpenNoteTest, StartsInTheSettingsColoursAndUnchanged) {
    const Note& data = note_.Data();
    EXPECT_EQ(data.NoteKey, kKey);
    EXPECT_EQ(data.NoteColor, settings_.noteColor);
    EXPECT_EQ(data.BorderColor, settings_.noteBorderColor);
    EXPECT_EQ(data.TextColor, settings_.noteTextColor);
    EXPECT_FALSE(data.OwnColors || data.LargeText || data.ReminderSet || data.Pinned || data.Changed);
    EXPECT_TRUE(data.StoragePath.empty() && data.FileName.empty());
}

// Tags.

TEST_F(OpenNoteTest, TagsSetEverythingAndLeaveTheNoteUnchanged) {
    EXPECT_TRUE(
        note_.SetupNoteFromTags(u"<position>1500,3000,2400,1800</position>"
                                u"<appearance>True,True,255,65280,16711680,0</appearance>"
                                u"<reminder>#45123.75</reminder><nodelete></nodelete>",
                                u""));
    EXPECT_EQ(view_.Rectangle(), (TwipsRect{1500, 3000, 2400, 1800}));
    const Note& data = note_.Data();
    EXPECT_TRUE(data.LargeText);
    EXPECT_TRUE(data.OwnColors);
    EXPECT_EQ(data.NoteColor.Number(), 255);
    EXPECT_EQ(data.BorderColor.Number(), 65280);
    EXPECT_EQ(data.TextColor.Number(), 16711680);
    EXPECT_TRUE(data.ReminderSet);
    EXPECT_EQ(data.ReminderTime.days, 45123.75);
    EXPECT_TRUE(view_.IsVisible());
    EXPECT_EQ(view_.Applied().NoteColor.Number(), 255);
    EXPECT_TRUE(view_.Applied().LargeText);
    EXPECT_FALSE(data.Changed);
}

TEST_F(OpenNoteTest, TheRectangleIsSetBeforeTheNoteIsShown) {
    EXPECT_TRUE(note_.SetupNoteFromTags(
        u"<position>900000,3000,2400,1800</position><appearance>False,False,0,0,0,0</appearance>", u""));
    EXPECT_EQ(view_.Rectangle(), (TwipsRect{26'400, 3000, 2400, 1800})) << "moved onto the screen";
    EXPECT_EQ(view_.TakeCalls(),
              (Calls{"MoveTo", "MoveOntoScreen", "Show", "BringToFront", "SetOpacity 255", "ApplyAppearance"}));
}

TEST_F(OpenNoteTest, AShortPositionLeavesNoSize) {
    static_cast<void>(note_.SetupNoteFromTags(u"<position>100,200</position>", u""));
    EXPECT_EQ(view_.Rectangle(), (TwipsRect{100, 200, 0, 0}));
}

TEST_F(OpenNoteTest, WithoutAUsableAppearanceTheCallerShowsTheNote) {
    EXPECT_FALSE(note_.SetupNoteFromTags(u"<position>100,200,300,400</position>", u""));
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_FALSE(note_.SetupNoteFromTags(u"<appearance>false,true,1,2,3,7</appearance>", u""));
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_EQ(note_.Data().TextColor.Number(), 3) << "the other fields count all the same";
}

TEST_F(OpenNoteTest, AnEmptyReminderElementSetsNone) {
    static_cast<void>(
        note_.SetupNoteFromTags(u"<appearance>false,false,1,2,3,0</appearance><reminder></reminder>", u""));
    EXPECT_FALSE(note_.Data().ReminderSet);
}

TEST_F(OpenNoteTest, TheOpenedPathBecomesTheFileName) {
    static_cast<void>(note_.SetupNoteFromTags(u"<filename>d:\\elsewhere.qln</filename>", u"C:\\Documents\\Here.qln"));
    EXPECT_EQ(note_.Data().FileName, u"C:\\Documents\\Here.qln");
}

TEST_F(OpenNoteTest, AStoredFileNameComesBackInLowerCase) {
    static_cast<void>(note_.SetupNoteFromTags(u"<filename>D:\\Elsewhere.QLN</filename>", u""));
    EXPECT_EQ(note_.Data().FileName, u"d:\\elsewhere.qln");
}

TEST_F(OpenNoteTest, AFileOpenedUnderTheNameTheProgramGaveItIsNoOwnFile) {
    const std::u16string tags = u"<position>1,2,3,4</position><tempfilename>c:\\documents\\milk.qln</tempfilename>";
    static_cast<void>(note_.SetupNoteFromTags(tags, u"C:\\Documents\\Milk.qln"));
    EXPECT_EQ(note_.Data().FileName, u"");
    static_cast<void>(note_.SetupNoteFromTags(tags, u"D:\\Moved.qln"));
    EXPECT_EQ(note_.Data().FileName, u"D:\\Moved.qln");
}

// The appearance string.

TEST_F(OpenNoteTest, AppearanceTellsTheWindowState) {
    note_.Popup();
    EXPECT_EQ(note_.AppearanceString(), u"False,False,14155262,3723262,0,0");
    note_.HideNote();
    EXPECT_EQ(note_.AppearanceString(), u"False,False,14155262,3723262,0,1");
    note_.MinimizeToTray();
    EXPECT_EQ(note_.AppearanceString(), u"False,False,14155262,3723262,0,2");
    note_.Popup();
    EXPECT_EQ(note_.AppearanceString(), u"False,False,14155262,3723262,0,0");
}

TEST_F(OpenNoteTest, AppearanceIsAppliedAtOnce) {
    const struct {
        const char16_t* text;
        bool known;
        bool visible;
        bool icon;
    } cases[] = {
        {u"False,False,0,0,0,0", true, true, false},  {u"False,False,0,0,0,1", true, false, false},
        {u"False,False,0,0,0,2", true, false, true},  {u"False,False,0,0,0,-1", true, false, false},
        {u"False,False,0,0,0,3", false, true, false}, {u"False,False,0,0,0,x", false, true, false},
        {u"True,True,255", true, true, false},
    };
    for (const auto& c : cases) {
        note_.Popup();
        Forget();
        EXPECT_EQ(note_.SetAppearanceString(c.text), c.known);
        EXPECT_EQ(view_.IsVisible(), c.visible);
        EXPECT_EQ(view_.IsIconShowing(), c.icon);
        EXPECT_EQ(view_.TakeCalls().back(), "ApplyAppearance");
        EXPECT_FALSE(note_.Data().Changed);
    }
}

TEST_F(OpenNoteTest, AShortAppearanceLeavesBlackAndShowsTheNote) {
    EXPECT_TRUE(note_.SetAppearanceString(u"True,True,255"));
    EXPECT_TRUE(note_.Data().LargeText);
    EXPECT_EQ(view_.Applied().NoteColor.Number(), 255);
    EXPECT_EQ(view_.Applied().BorderColor.Number(), 0);
    EXPECT_EQ(view_.Applied().TextColor.Number(), 0);
    EXPECT_TRUE(view_.IsVisible());
}

TEST_F(OpenNoteTest, ForeignColoursGiveWayToTheSettings) {
    EXPECT_TRUE(note_.SetAppearanceString(u"False,False,1,2,3,1"));
    EXPECT_EQ(view_.Applied().NoteColor, settings_.noteColor);
    EXPECT_EQ(note_.AppearanceString(), u"False,False,14155262,3723262,0,1");
}

// The reminder string.

TEST_F(OpenNoteTest, ReminderStrings) {
    note_.SetReminderString(u"#45123.75");
    EXPECT_TRUE(note_.Data().ReminderSet);
    EXPECT_EQ(note_.ReminderString(), u"#45123.75");
    note_.SetReminderString(u"");
    EXPECT_TRUE(note_.Data().ReminderSet) << "an empty text changes nothing";
    note_.SetReminderString(u"#abc");
    EXPECT_TRUE(note_.Data().ReminderSet);
    EXPECT_EQ(note_.Data().ReminderTime.days, 0);
    note_.SetReminderString(u"nonsense");
    EXPECT_FALSE(note_.Data().ReminderSet);
    EXPECT_EQ(note_.ReminderString(), u"");
    EXPECT_FALSE(note_.Data().Changed);
}

// The storage copy.

TEST_F(OpenNoteTest, AnUnchangedNoteIsNotStored) {
    EXPECT_FALSE(note_.PersistNote()) << "there is no copy";
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(note_.Data().StoragePath.empty());
}

TEST_F(OpenNoteTest, AChangedNoteIsStoredUnderANewIdentifier) {
    note_.SetText(u"Buy milk");
    note_.MarkChanged();
    EXPECT_TRUE(note_.PersistNote());
    EXPECT_FALSE(note_.Data().Changed);

    const std::u16string path = note_.Data().StoragePath;
    EXPECT_EQ(path.size(), kFolder.size() + 1 + 38 + 4);
    EXPECT_EQ(path.substr(0, kFolder.size() + 2), kFolder + u"\\{");
    EXPECT_EQ(path.substr(path.size() - 5), u"}.qln");
    EXPECT_EQ(Content(path),
              "Buy milk\r\n<quillo><position>7200,3600,2820,2445</position>"
              "<appearance>False,False,14155262,3723262,0,1</appearance><reminder></reminder>"
              "<nodelete></nodelete></quillo>");
    EXPECT_TRUE(note_.PersistNote()) << "unchanged, and whole on the disk";

    note_.SetText(u"Buy bread");
    note_.MarkChanged();
    EXPECT_TRUE(note_.PersistNote());
    EXPECT_EQ(note_.Data().StoragePath, path);
    EXPECT_EQ(files_.List(kFolder, u".qln").size(), 1U);
}

TEST_F(OpenNoteTest, TheStorageCopySurvivesAPowerCutAtAnyMoment) {
    ShowStored(u"Milk");
    const std::string before = Content(note_.Data().StoragePath);
    note_.SetText(u"Bread");
    note_.MarkChanged();
    files_.CutPowerDuringReplace();
    EXPECT_FALSE(note_.PersistNote());
    EXPECT_EQ(Content(note_.Data().StoragePath), before);

    note_.MarkChanged();
    EXPECT_TRUE(note_.PersistNote());
    files_.CutPower();
    EXPECT_EQ(Content(note_.Data().StoragePath).substr(0, 7), "Bread\r\n");
}

TEST_F(OpenNoteTest, AFileOfTheNotesFolderIsTheStorageCopy) {
    const std::u16string path = kFolder + u"\\Old.qln";
    ASSERT_TRUE(files_.Write(path, "old"));
    note_.SetStoragePath(path);
    EXPECT_TRUE(note_.PersistNote());
    EXPECT_EQ(Content(path), "old") << "unchanged: not written";
    note_.SetText(u"new");
    note_.MarkChanged();
    EXPECT_TRUE(note_.PersistNote());
    EXPECT_EQ(Content(path).substr(0, 5), "new\r\n");
}

TEST_F(OpenNoteTest, IntendedAFailedSaveClearsTheMarkAllTheSame) {
    files_.FailWrites(true);
    note_.MarkChanged();
    EXPECT_FALSE(note_.PersistNote());
    EXPECT_FALSE(note_.Data().Changed);
    EXPECT_FALSE(note_.PersistNote()) << "still no whole copy";

    files_.FailWrites(false);
    EXPECT_TRUE(note_.PersistNote()) << "the next pass writes what the last one could not";
    EXPECT_EQ(Content(note_.Data().StoragePath).substr(0, note_.Text().size()), locale_.ToNarrow(note_.Text()));
}

// What marks a note.

TEST_F(OpenNoteTest, ChangesOfTheNoteMarkIt) {
    const struct {
        const char* name;
        void (*act)(OpenNote&);
        bool changed;
    } cases[] = {
        {"reminder", [](OpenNote& n) { n.SetReminder(DaySerial{45123.75}); }, true},
        {"large text", [](OpenNote& n) { n.SetLargeText(true); }, true},
        {"colours", [](OpenNote& n) { n.SetColor(true, ColorWord{1}, ColorWord{2}, ColorWord{3}); }, true},
        {"default colours", [](OpenNote& n) { n.SetColor(false, {}, {}, {}); }, true},
        {"hiding by the user", [](OpenNote& n) { n.HideByUser(); }, true},
        {"minimising by the user", [](OpenNote& n) { n.MinimizeByUser(); }, true},
        {"cancelling by the user", [](OpenNote& n) { n.CancelReminderByUser(); }, true},
        {"dealt colours", [](OpenNote& n) { n.SetOwnColors(ColorWord{1}, ColorWord{2}, ColorWord{3}); }, false},
        {"colours applied again", [](OpenNote& n) { n.UpdateColors(); }, false},
        {"hiding", [](OpenNote& n) { n.HideNote(); }, false},
        {"minimising", [](OpenNote& n) { n.MinimizeToTray(); }, false},
        {"popping up", [](OpenNote& n) { n.Popup(); }, false},
        {"cancelling", [](OpenNote& n) { n.CancelReminder(); }, false},
        {"pinning", [](OpenNote& n) { n.TogglePin(); }, false},
        {"effects", [](OpenNote& n) { n.SetNoteEffects(); }, false},
    };
    for (const auto& c : cases) {
        FakeNoteView view;
        OpenNote note{{settings_, os_, kFolder, store_, locale_, clock_, notice_, owner_, printer_, mail_}, kKey};
        note.AttachView(view);
        c.act(note);
        EXPECT_EQ(note.Data().Changed, c.changed) << c.name;
    }
}

TEST_F(OpenNoteTest, ComingBackByTheUserMarksOnlyANoteThatWasAway) {
    ShowStored(u"text");
    note_.PopupByUser();
    EXPECT_FALSE(note_.Data().Changed);
    note_.HideNote();
    note_.PopupByUser();
    EXPECT_TRUE(note_.Data().Changed);
    EXPECT_TRUE(view_.IsVisible());
}

// Appearance.

TEST_F(OpenNoteTest, PinningPutsItOnTopAndShowsThePin) {
    note_.Popup();
    Forget();
    note_.TogglePin();
    EXPECT_TRUE(note_.Data().Pinned);
    EXPECT_EQ(view_.TakeCalls(), (Calls{"BringToFront pinned", "ShowPinned in"}));
    note_.Popup();
    EXPECT_TRUE(view_.IsOnTop()) << "popping up leaves it topmost";
    Forget();
    note_.TogglePin();
    EXPECT_FALSE(note_.Data().Pinned);
    EXPECT_EQ(view_.TakeCalls(), (Calls{"BringToFront", "ShowPinned out"}));
    note_.Popup();
    EXPECT_FALSE(view_.IsOnTop());
}

TEST_F(OpenNoteTest, DefaultColoursFollowTheSettings) {
    note_.UpdateColors();
    settings_.noteColor = ColorWord{0x112233};
    note_.UpdateColors();
    EXPECT_EQ(view_.Applied().NoteColor, settings_.noteColor);

    note_.SetOwnColors(ColorWord{1}, ColorWord{2}, ColorWord{3});
    note_.UpdateColors();
    EXPECT_TRUE(note_.Data().OwnColors);
    EXPECT_EQ(view_.Applied().NoteColor, ColorWord{1});
    EXPECT_EQ(view_.Applied().BorderColor, ColorWord{2});
    EXPECT_EQ(view_.Applied().TextColor, ColorWord{3});

    note_.SetColor(false, ColorWord{4}, ColorWord{5}, ColorWord{6});
    EXPECT_FALSE(note_.Data().OwnColors);
    EXPECT_EQ(view_.Applied().NoteColor, settings_.noteColor);
}

TEST_F(OpenNoteTest, TheColourDialogOpensOnceUntilItHasClosed) {
    note_.SetOwnColors(ColorWord{1}, ColorWord{2}, ColorWord{3});
    static_cast<void>(view_.TakeCalls());
    note_.AskNoteColor();
    EXPECT_EQ(view_.TakeCalls(), std::vector<std::string>{"OpenColorDialog"});
    EXPECT_TRUE(view_.DialogOwnColors());
    EXPECT_EQ(view_.DialogColors(), (ColorScheme{ColorWord{1}, ColorWord{2}, ColorWord{3}}));
    note_.AskNoteColor();
    EXPECT_TRUE(view_.TakeCalls().empty());
    note_.ColorClosing();
    note_.AskNoteColor();
    EXPECT_EQ(view_.TakeCalls(), std::vector<std::string>{"OpenColorDialog"});
}

TEST_F(OpenNoteTest, AColourDialogThatCouldNotOpenCanBeAskedForAgain) {
    view_.refuseColorDialog = true;
    note_.AskNoteColor();
    view_.refuseColorDialog = false;
    static_cast<void>(view_.TakeCalls());
    note_.AskNoteColor();
    EXPECT_EQ(view_.TakeCalls(), std::vector<std::string>{"OpenColorDialog"});
}

TEST_F(OpenNoteTest, TheFileSaysWhetherTheColoursAreItsOwn) {
    const auto second = [this] {
        const std::u16string appearance = note_.AppearanceString();
        const std::size_t start = appearance.find(u',') + 1;
        return appearance.substr(start, appearance.find(u',', start) - start);
    };
    note_.SetColor(true, ColorWord{1}, ColorWord{2}, ColorWord{3});
    EXPECT_EQ(second(), u"True");
    note_.SetColor(false, ColorWord{1}, ColorWord{2}, ColorWord{3});
    EXPECT_EQ(second(), u"False");
}

TEST_F(OpenNoteTest, LargeTextReachesTheWindow) {
    note_.SetLargeText(true);
    EXPECT_TRUE(view_.Applied().LargeText);
    note_.SetLargeText(false);
    EXPECT_FALSE(view_.Applied().LargeText);
}

TEST_F(OpenNoteTest, PopupTakesItsStepsInOrder) {
    note_.MinimizeToTray();
    Forget();
    note_.Popup();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"MoveOntoScreen", "Show", "HideIcon", "BringToFront", "SetOpacity 255"}));
    note_.Popup();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"MoveOntoScreen", "BringToFront", "SetOpacity 255"}));
    settings_.doNotAdjustNotes = true;
    note_.Popup();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"BringToFront", "SetOpacity 255"}));
}

TEST_F(OpenNoteTest, TranslucencyIsTakenFromTheSettingsAtEachShowAndHide) {
    settings_.noteTransparency = true;
    settings_.noteOpacity = 100;
    note_.Popup();
    EXPECT_EQ(view_.Opacity(), 100);
    settings_.noteOpacity = 1;
    note_.HideNote();
    EXPECT_EQ(view_.Opacity(), 1);
    settings_.noteTransparency = false;
    note_.SetNoteEffects();
    EXPECT_EQ(view_.Opacity(), 255);
}

// Hiding and minimising.

TEST_F(OpenNoteTest, HidingAppliesTheEffectsFirst) {
    ShowStored(u"text");
    note_.HideNote();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"SetOpacity 255", "Hide"}));
    EXPECT_FALSE(IsDestroyed());
}

TEST_F(OpenNoteTest, TheIconsCaption) {
    const std::u16string sixty(60, u'x');
    const struct {
        std::u16string text;
        std::u16string caption;
    } cases[] = {
        {u"", u""},
        {u"  Buy milk  ", u"Buy milk"},
        {u"one\r\ntwo\r\n\r\nthree", u"one two  three"},
        {u"one\ntwo", u"one\ntwo"},
        {u"\r\n  milk", u"   milk"},
        {sixty, sixty},
        {sixty + u"y", sixty + u"..."},
        {u"  " + sixty + u"  ", sixty},
        {std::u16string(30, u'a') + u"\r\n" + std::u16string(29, u'b'),
         std::u16string(30, u'a') + u" " + std::u16string(29, u'b')},
        {std::u16string(59, u'x') + u"\U0001F600", std::u16string(59, u'x') + u"..."},
        {std::u16string(58, u'x') + u"\U0001F600", std::u16string(58, u'x') + u"\U0001F600"},
    };
    for (const auto& c : cases) {
        note_.SetText(c.text);
        note_.MinimizeToTray();
        EXPECT_EQ(view_.IconCaption(), c.caption);
    }
}

TEST_F(OpenNoteTest, AClickOnItsIconBringsItBack) {
    ShowStored(u"text");
    note_.MinimizeByUser();
    EXPECT_EQ(note_.AppearanceString().back(), u'2');
    Forget();
    note_.ShowFromIcon();
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreUp});
    EXPECT_TRUE(view_.IsVisible());
    EXPECT_FALSE(view_.IsIconShowing());
    EXPECT_TRUE(note_.Data().Changed);
}

// Closing.

TEST_F(OpenNoteTest, ClosingANoteOfBlanksWritesNothing) {
    ShowStored(u"   ");
    ASSERT_TRUE(StorageExists());
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(SavedFiles().empty());
    EXPECT_TRUE(notice_.sounds.empty());
}

TEST_F(OpenNoteTest, ClosingAnEmptyNoteDestroysItAlsoWhenMinimisingIsOn) {
    settings_.minimizeToTray = true;
    note_.CloseButtonClick();
    EXPECT_TRUE(IsDestroyed());
}

TEST_F(OpenNoteTest, ALineBreakIsATextToSave) {
    ShowStored(u"\r\n");
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(files_.List(shell_.FolderPath(SpecialFolder::DesktopDirectory), u".qln").size(), 1U);
}

TEST_F(OpenNoteTest, ClosingSavesToAFileNamedFromTheText) {
    ShowStored(u"Milk");
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreDown});
    const std::u16string path = kDocuments + u"\\Milk.qln";
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{path});
    EXPECT_NE(Content(path).find("<tempfilename>C:\\Documents\\Milk.qln</tempfilename>"), std::string::npos);
    EXPECT_NE(Content(path).find(",0,0</appearance>"), std::string::npos) << "saved while it was on the screen";
}

TEST_F(OpenNoteTest, ClosingSavesToTheNotesOwnFile) {
    ShowStored(u"Milk");
    const std::u16string own = kDocuments + u"\\Shopping.qln";
    note_.SetFileName(own);
    note_.CloseNote();
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{own});
    EXPECT_NE(Content(own).find("<filename>C:\\Documents\\Shopping.qln</filename>"), std::string::npos);
}

TEST_F(OpenNoteTest, ClosingNeverOverwritesAFile) {
    ShowStored(u"Milk");
    const std::u16string own = kDocuments + u"\\Shopping.qln";
    ASSERT_TRUE(files_.Write(own, "somebody else's"));
    note_.SetFileName(own);
    note_.CloseNote();
    EXPECT_EQ(Content(own), "somebody else's");
    EXPECT_NE(Content(kDocuments + u"\\Milk.qln").find("<tempfilename>"), std::string::npos);
}

TEST_F(OpenNoteTest, WithFileNamesForgottenANewFileIsNamedFromTheText) {
    settings_.doNotRememberFilenames = true;
    ShowStored(u"Milk");
    note_.SetFileName(kDocuments + u"\\Shopping.qln");
    note_.CloseNote();
    EXPECT_EQ(SavedFiles(), std::vector<std::u16string>{kDocuments + u"\\Milk.qln"});
}

TEST_F(OpenNoteTest, ClosingMinimisesWhenThatIsOn) {
    settings_.minimizeToTray = true;
    ShowStored(u"Milk");
    note_.CloseNote();
    EXPECT_FALSE(IsDestroyed());
    EXPECT_EQ(view_.TakeCalls(), (Calls{"ShowIcon", "SetOpacity 255", "Hide"}));
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreDown});
    EXPECT_TRUE(note_.Data().Changed) << "so that it comes back minimised";
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteTest, ClosingFromTheMenuSavesANoteWithAReminderToo) {
    ShowStored(u"Milk");
    note_.SetReminder(DaySerial{45123.75});
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_NE(Content(kDocuments + u"\\Milk.qln").find("<reminder>#45123.75</reminder>"), std::string::npos);
}

TEST_F(OpenNoteTest, AnEmptyNoteWithAReminderIsSaved) {
    ShowStored(u"");
    note_.SetReminder(DaySerial{45123.75});
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(notice_.sounds.size(), 1U);
}

TEST_F(OpenNoteTest, ANoteThatCannotBeSavedIsLostOnlyOnYes) {
    ShowStored(u"Milk");
    files_.FailWrites(true);
    notice_.answer = false;
    note_.CloseNote();
    EXPECT_FALSE(IsDestroyed());
    EXPECT_TRUE(view_.IsVisible());
    EXPECT_TRUE(StorageExists());
    ASSERT_EQ(notice_.questions.size(), 1U);
    EXPECT_EQ(notice_.questions[0].text,
              u"Quillo was unable to save this note to a file.  Do you still want to close it?\r\n\r\nIf you click "
              u"Yes, the note's contents will be lost.  If you click No, it will not be closed.");
    EXPECT_EQ(notice_.questions[0].question, Question::YesNoDefaultNo);

    notice_.answer = true;
    note_.CloseNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
}

TEST_F(OpenNoteTest, ANoteGoneDuringTheQuestionIsLeftAlone) {
    ShowStored(u"Milk");
    files_.FailWrites(true);
    notice_.answer = true;
    notice_.onAsk = [this] { owner_.RemoveNote(kKey); };
    note_.CloseNote();
    EXPECT_TRUE(StorageExists()) << "whoever removed it decided about its file";
    EXPECT_FALSE(view_.IsClosed());
}

// The close button.

TEST_F(OpenNoteTest, TheCloseButtonHidesANoteWithAReminder) {
    ShowStored(u"Milk");
    note_.SetReminder(DaySerial{45123.75});
    note_.CloseButtonClick();
    EXPECT_FALSE(IsDestroyed());
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(note_.Data().Changed);
    ASSERT_EQ(notice_.balloons.size(), 1U);
    EXPECT_EQ(notice_.balloons[0].title, u"This note was hidden.");
    EXPECT_EQ(notice_.balloons[0].text,
              u"You currently have a reminder set for this note, so it was hidden instead of closed.  To see the note "
              u"again before the reminder expires, click \"Show all notes\" on the main Quillo menu.");
    EXPECT_TRUE(notice_.informs.empty());
    EXPECT_TRUE(notice_.sounds.empty());
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteTest, WithBalloonsOffItIsHiddenSilently) {
    settings_.disableBalloonHelp = true;
    note_.SetReminder(DaySerial{45123.75});
    note_.Popup();
    note_.CloseButtonClick();
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_TRUE(notice_.informs.empty());
}

TEST_F(OpenNoteTest, AnOldSystemSaysItInAMessageBox) {
    os_.windows2000OrLater = false;
    settings_.disableBalloonHelp = true;
    note_.SetReminder(DaySerial{45123.75});
    note_.Popup();
    note_.CloseButtonClick();
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(notice_.balloons.empty());
    ASSERT_EQ(notice_.informs.size(), 1U);
    EXPECT_EQ(notice_.informs[0].substr(0, 24), u"You currently have a rem");
}

TEST_F(OpenNoteTest, ANoteGoneDuringThatMessageBoxIsLeftAlone) {
    os_.windows2000OrLater = false;
    InformingNotice notice(owner_);
    FakeNoteView view;
    OpenNote note{{settings_, os_, kFolder, store_, locale_, clock_, notice, owner_, printer_, mail_}, kKey};
    note.AttachView(view);
    note.SetReminder(DaySerial{45123.75});
    static_cast<void>(view.TakeCalls());
    note.CloseButtonClick();
    EXPECT_EQ(notice.informs.size(), 1U);
    EXPECT_TRUE(view.TakeCalls().empty());
}

TEST_F(OpenNoteTest, WithMinimisingOnTheCloseButtonMinimisesAlsoWithAReminder) {
    settings_.minimizeToTray = true;
    ShowStored(u"Milk");
    note_.SetReminder(DaySerial{45123.75});
    note_.CloseButtonClick();
    EXPECT_TRUE(view_.IsIconShowing());
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_FALSE(IsDestroyed());
}

TEST_F(OpenNoteTest, WithoutAReminderTheCloseButtonCloses) {
    ShowStored(u"Milk");
    note_.CloseButtonClick();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(SavedFiles().size(), 1U);
}

// Deleting.

TEST_F(OpenNoteTest, DeletingPutsANoteFileIntoTheRecycleBin) {
    ShowStored(u"Milk");
    note_.QueryDeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(SavedFiles().empty());
    ASSERT_EQ(shell_.recycled.size(), 1U);
    EXPECT_EQ(shell_.recycled[0].path, kDocuments + u"\\Milk.qln");
    EXPECT_NE(shell_.recycled[0].content.find("<tempfilename>"), std::string::npos);
    EXPECT_EQ(shell_.recycled[0].content.find("<nodelete>"), std::string::npos);
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreDown});
    EXPECT_TRUE(notice_.questions.empty());
}

TEST_F(OpenNoteTest, DeletingForGoodAsksFirst) {
    settings_.dontRecycleNotes = true;
    ShowStored(u"Milk");
    notice_.answer = false;
    note_.QueryDeleteNote();
    EXPECT_FALSE(IsDestroyed());
    EXPECT_TRUE(StorageExists());
    ASSERT_EQ(notice_.questions.size(), 1U);
    EXPECT_EQ(notice_.questions[0].text,
              u"This action will permanently delete this note, and you will not be able to get it back.  Only click OK "
              u"if you are sure that you do not want this note anymore; otherwise, click Cancel.");
    EXPECT_EQ(notice_.questions[0].question, Question::OkCancelDefaultCancel);

    notice_.answer = true;
    note_.QueryDeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_FALSE(StorageExists());
    EXPECT_TRUE(shell_.recycled.empty());
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteTest, ANoteGoneDuringTheDeleteQuestionIsNotRecycled) {
    settings_.dontRecycleNotes = true;
    ShowStored(u"Milk");
    notice_.answer = true;
    notice_.onAsk = [this] {
        settings_.dontRecycleNotes = false;
        owner_.RemoveNote(kKey);
    };
    note_.QueryDeleteNote();
    EXPECT_TRUE(shell_.recycled.empty());
    EXPECT_TRUE(StorageExists());
}

TEST_F(OpenNoteTest, ANoteThatCannotBeSavedIsDeletedAllTheSame) {
    ShowStored(u"Milk");
    files_.FailWrites(true);
    note_.DeleteNote();
    EXPECT_TRUE(IsDestroyed());
    EXPECT_TRUE(shell_.recycled.empty());
}

TEST_F(OpenNoteTest, ANoteGoneWhileItsFileIsRecycledIsLeftAlone) {
    PumpingShell shell(files_, owner_);
    NoteStore store{files_, locale_, shell, names_};
    FakeNoteView view;
    OpenNote note{{settings_, os_, kFolder, store, locale_, clock_, notice_, owner_, printer_, mail_}, kKey};
    note.AttachView(view);
    note.SetText(u"Milk");
    note.MarkChanged();
    ASSERT_TRUE(note.PersistNote());
    note.DeleteNote();
    EXPECT_EQ(shell.recycled.size(), 1U);
    EXPECT_TRUE(StorageExists());
    EXPECT_FALSE(view.IsClosed());
    EXPECT_TRUE(notice_.sounds.empty());
}

TEST_F(OpenNoteTest, QuickDeleteNeverAsks) {
    const struct {
        const char16_t* text;
        bool keepNothing;
        std::size_t recycled;
    } cases[] = {{u"Milk", false, 1}, {u" ", false, 1}, {u"", false, 0}, {u"Milk", true, 0}, {u"", true, 0}};
    for (const auto& c : cases) {
        settings_.dontRecycleNotes = c.keepNothing;
        FakeNoteView view;
        FakeNoteOwner owner;
        OpenNote note{{settings_, os_, kFolder, store_, locale_, clock_, notice_, owner, printer_, mail_}, kKey};
        note.AttachView(view);
        note.SetText(c.text);
        note.MarkChanged();
        ASSERT_TRUE(note.PersistNote());
        shell_.recycled.clear();
        note.QuickDelete();
        EXPECT_FALSE(owner.IsOpen(kKey));
        EXPECT_TRUE(view.IsClosed());
        EXPECT_EQ(shell_.recycled.size(), c.recycled);
        EXPECT_TRUE(notice_.questions.empty());
        EXPECT_TRUE(SavedFiles().empty());
        EXPECT_FALSE(StorageExists());
    }
}

TEST_F(OpenNoteTest, DestroyingPassesOverAStorageCopyThatStays) {
    note_.SetStoragePath(kFolder + u"\\gone.qln");
    note_.DestroyNote();
    EXPECT_TRUE(IsDestroyed());
}

// Reminders.

TEST_F(OpenNoteTest, SettingAndCancellingAReminderRepaints) {
    note_.SetReminder(DaySerial{45123.75});
    EXPECT_TRUE(note_.Data().ReminderSet);
    EXPECT_EQ(note_.Data().ReminderTime, DaySerial{45123.75});
    note_.CancelReminder();
    EXPECT_FALSE(note_.Data().ReminderSet);
    EXPECT_EQ(view_.TakeCalls(), (Calls{"Repaint", "Repaint"}));
}

}  // namespace
}  // namespace quillo
