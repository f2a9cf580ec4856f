#include "open_note_fixture.h"

namespace quillo {
namespace {

// A new note.

TEST_F(OpenNoteTest, StartsInTheSettingsColorsAndUnchanged) {
    const Note& data = note_.Data();
    EXPECT_EQ(data.NoteKey, kKey);
    EXPECT_EQ(data.NoteColor, settings_.noteColor);
    EXPECT_EQ(data.BorderColor, settings_.noteBorderColor);
    EXPECT_EQ(data.TextColor, settings_.noteTextColor);
    EXPECT_FALSE(data.OwnColors || data.LargeText || data.ReminderSet || data.Pinned || data.Changed);
    EXPECT_TRUE(data.StoragePath.empty() && data.FileName.empty());
}

// Tags.

TEST_F(OpenNoteTest, TagsSetEverythingWithoutMarkingTheNote) {
    EXPECT_TRUE(note_.SetupNoteFromTags(Tags(u"<position>1500,3000,2400,1800</position>"
                                             u"<appearance>True,True,255,65280,16711680,0</appearance>"
                                             u"<reminder>#45123.75</reminder><nodelete></nodelete>"),
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
        Tags(u"<position>900000,3000,2400,1800</position><appearance>False,False,0,0,0,0</appearance>"), u""));
    EXPECT_EQ(view_.Rectangle(), (TwipsRect{26'400, 3000, 2400, 1800})) << "moved onto the screen";
    EXPECT_EQ(view_.TakeCalls(),
              (Calls{"MoveTo", "MoveOntoScreen", "Show", "BringToFront", "SetOpacity none", "ApplyAppearance"}));
}

TEST_F(OpenNoteTest, AShortPositionMeansNoSize) {
    static_cast<void>(note_.SetupNoteFromTags(Tags(u"<position>100,200</position>"), u""));
    EXPECT_EQ(view_.Rectangle(), (TwipsRect{100, 200, 0, 0}));
}

TEST_F(OpenNoteTest, WithoutAUsableAppearanceTheCallerShowsTheNote) {
    EXPECT_FALSE(note_.SetupNoteFromTags(Tags(u"<position>100,200,300,400</position>"), u""));
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_FALSE(note_.SetupNoteFromTags(Tags(u"<appearance>false,true,1,2,3,7</appearance>"), u""));
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_EQ(note_.Data().TextColor.Number(), 3) << "the other fields count all the same";
}

TEST_F(OpenNoteTest, AnEmptyReminderElementSetsNone) {
    static_cast<void>(
        note_.SetupNoteFromTags(Tags(u"<appearance>false,false,1,2,3,0</appearance><reminder></reminder>"), u""));
    EXPECT_FALSE(note_.Data().ReminderSet);
}

TEST_F(OpenNoteTest, TheOpenedPathBecomesTheFileName) {
    static_cast<void>(
        note_.SetupNoteFromTags(Tags(u"<filename>d:\\elsewhere.qln</filename>"), u"C:\\Documents\\Here.qln"));
    EXPECT_EQ(note_.Data().FileName, u"C:\\Documents\\Here.qln");
}

TEST_F(OpenNoteTest, AStoredFileNameIsReadInLowerCase) {
    static_cast<void>(note_.SetupNoteFromTags(Tags(u"<filename>D:\\Elsewhere.QLN</filename>"), u""));
    EXPECT_EQ(note_.Data().FileName, u"d:\\elsewhere.qln");
}

TEST_F(OpenNoteTest, AFileThatStillHasTheProgramsNameIsNotTheNotesOwn) {
    const std::u16string tags = u"<position>1,2,3,4</position><tempfilename>c:\\documents\\milk.qln</tempfilename>";
    static_cast<void>(note_.SetupNoteFromTags(Tags(tags), u"C:\\Documents\\Milk.qln"));
    EXPECT_EQ(note_.Data().FileName, u"");
    static_cast<void>(note_.SetupNoteFromTags(Tags(tags), u"D:\\Moved.qln"));
    EXPECT_EQ(note_.Data().FileName, u"D:\\Moved.qln");
}

// The appearance string.

TEST_F(OpenNoteTest, AppearanceContainsTheWindowState) {
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
        DropRecords();
        EXPECT_EQ(note_.SetAppearanceString(c.text), c.known);
        EXPECT_EQ(view_.IsVisible(), c.visible);
        EXPECT_EQ(view_.IsIconShowing(), c.icon);
        EXPECT_EQ(view_.TakeCalls().back(), "ApplyAppearance");
        EXPECT_FALSE(note_.Data().Changed);
    }
}

TEST_F(OpenNoteTest, AShortAppearanceMeansBlackAndShowsTheNote) {
    EXPECT_TRUE(note_.SetAppearanceString(u"True,True,255"));
    EXPECT_TRUE(note_.Data().LargeText);
    EXPECT_EQ(view_.Applied().NoteColor.Number(), 255);
    EXPECT_EQ(view_.Applied().BorderColor.Number(), 0);
    EXPECT_EQ(view_.Applied().TextColor.Number(), 0);
    EXPECT_TRUE(view_.IsVisible());
}

TEST_F(OpenNoteTest, ForeignColorsAreReplacedByTheSettings) {
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
    ASSERT_TRUE(note_.SetText(u"Buy milk"));
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

    ASSERT_TRUE(note_.SetText(u"Buy bread"));
    note_.MarkChanged();
    EXPECT_TRUE(note_.PersistNote());
    EXPECT_EQ(note_.Data().StoragePath, path);
    EXPECT_EQ(files_.List(kFolder, u".qln").size(), 1U);
}

TEST_F(OpenNoteTest, TheStorageCopySurvivesAPowerCutAtAnyMoment) {
    ShowStored(u"Milk");
    const std::string before = Content(note_.Data().StoragePath);
    ASSERT_TRUE(note_.SetText(u"Bread"));
    note_.MarkChanged();
    for (const int calls : {0, 1}) {
        files_.CutPowerAfter(calls);
        EXPECT_FALSE(note_.PersistNote()) << calls;
        files_.Revive();
        EXPECT_EQ(Content(note_.Data().StoragePath), before) << calls;
        note_.MarkChanged();
    }
    EXPECT_TRUE(note_.PersistNote());
    EXPECT_EQ(Content(note_.Data().StoragePath).substr(0, 7), "Bread\r\n");
}

TEST_F(OpenNoteTest, AFileOfTheNotesFolderIsTheStorageCopy) {
    const std::u16string path = kFolder + u"\\Old.qln";
    files_.Put(path, "old");
    note_.Saver().SetStorageCopy({path, 0});
    EXPECT_TRUE(note_.PersistNote());
    EXPECT_EQ(Content(path), "old") << "unchanged: not written";
    ASSERT_TRUE(note_.SetText(u"new"));
    note_.MarkChanged();
    EXPECT_TRUE(note_.PersistNote());
    EXPECT_EQ(Content(path).substr(0, 5), "new\r\n");
}

TEST_F(OpenNoteTest, IntendedAFailedSaveAlsoClearsTheMark) {
    files_.FailWrites(true);
    note_.MarkChanged();
    EXPECT_FALSE(note_.PersistNote());
    EXPECT_FALSE(note_.Data().Changed);
    EXPECT_FALSE(note_.PersistNote()) << "still no whole copy";

    files_.FailWrites(false);
    EXPECT_TRUE(note_.PersistNote()) << "the next pass writes what the last one could not";
    EXPECT_EQ(Content(note_.Data().StoragePath).substr(0, note_.Text().size()), locale_.ToNarrow(note_.Text()));
}

// What marks a note changed.

TEST_F(OpenNoteTest, ChangesOfTheNoteMarkIt) {
    const struct {
        const char* name;
        void (*act)(OpenNote&);
        bool changed;
    } cases[] = {
        {"reminder", [](OpenNote& n) { AsReminderOwner(n).SetReminder(DaySerial{45123.75}); }, true},
        {"large text", [](OpenNote& n) { n.Perform(NoteAction::ToggleLargeText); }, true},
        {"colors", [](OpenNote& n) { AsColorTarget(n).SetColor(true, ColorWord{1}, ColorWord{2}, ColorWord{3}); },
         true},
        {"default colors", [](OpenNote& n) { AsColorTarget(n).SetColor(false, {}, {}, {}); }, true},
        {"hiding by the user", [](OpenNote& n) { AsReminderOwner(n).HideByUser(); }, true},
        {"minimizing by the user", [](OpenNote& n) { n.Perform(NoteAction::Minimize); }, true},
        {"canceling by the user", [](OpenNote& n) { static_cast<ReminderOwner&>(n).CancelReminderByUser(); }, true},
        {"dealt colors", [](OpenNote& n) { n.SetOwnColors(ColorWord{1}, ColorWord{2}, ColorWord{3}); }, false},
        {"colors applied again", [](OpenNote& n) { n.UpdateColors(); }, false},
        {"hiding", [](OpenNote& n) { n.HideNote(); }, false},
        {"minimizing", [](OpenNote& n) { n.MinimizeToTray(); }, false},
        {"popping up", [](OpenNote& n) { n.Popup(); }, false},
        {"canceling", [](OpenNote& n) { n.CancelReminder(); }, false},
        {"pinning", [](OpenNote& n) { n.SetPinned(true); }, false},
        {"effects", [](OpenNote& n) { n.SetNoteEffects(); }, false},
    };
    for (const auto& c : cases) {
        const std::unique_ptr<OpenNote> opened = OpenNote::Open(owner_, services_, kKey, windows_);
        OpenNote& note = *opened;
        c.act(note);
        EXPECT_EQ(note.Data().Changed, c.changed) << c.name;
    }
}

TEST_F(OpenNoteTest, ShowingByTheUserMarksOnlyAHiddenNote) {
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
    DropRecords();
    note_.SetPinned(true);
    EXPECT_TRUE(note_.Data().Pinned);
    EXPECT_EQ(view_.TakeCalls(), (Calls{"BringToFront pinned", "ShowPinned in"}));
    note_.Popup();
    EXPECT_TRUE(view_.IsOnTop()) << "popping up leaves it topmost";
    DropRecords();
    note_.SetPinned(false);
    EXPECT_FALSE(note_.Data().Pinned);
    EXPECT_EQ(view_.TakeCalls(), (Calls{"BringToFront", "ShowPinned out"}));
    note_.Popup();
    EXPECT_FALSE(view_.IsOnTop());
}

TEST_F(OpenNoteTest, DefaultColorsFollowTheSettings) {
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

    AsColorTarget(note_).SetColor(false, ColorWord{4}, ColorWord{5}, ColorWord{6});
    EXPECT_FALSE(note_.Data().OwnColors);
    EXPECT_EQ(view_.Applied().NoteColor, settings_.noteColor);
}

TEST_F(OpenNoteTest, TheColorDialogOpensOnceUntilItHasClosed) {
    note_.SetOwnColors(ColorWord{1}, ColorWord{2}, ColorWord{3});
    static_cast<void>(view_.TakeCalls());
    note_.Perform(NoteAction::ChangeColor);
    EXPECT_EQ(view_.TakeCalls(), std::vector<std::string>{"OpenColorDialog"});
    EXPECT_TRUE(view_.DialogOwnColors());
    EXPECT_EQ(view_.DialogColors(), (ColorScheme{ColorWord{1}, ColorWord{2}, ColorWord{3}}));
    note_.Perform(NoteAction::ChangeColor);
    EXPECT_TRUE(view_.TakeCalls().empty());
    static_cast<NoteColorTarget&>(note_).ColorClosing();
    note_.Perform(NoteAction::ChangeColor);
    EXPECT_EQ(view_.TakeCalls(), std::vector<std::string>{"OpenColorDialog"});
}

TEST_F(OpenNoteTest, AColorDialogThatCouldNotOpenCanBeAskedForAgain) {
    view_.refuseColorDialog = true;
    note_.Perform(NoteAction::ChangeColor);
    view_.refuseColorDialog = false;
    static_cast<void>(view_.TakeCalls());
    note_.Perform(NoteAction::ChangeColor);
    EXPECT_EQ(view_.TakeCalls(), std::vector<std::string>{"OpenColorDialog"});
}

TEST_F(OpenNoteTest, TheFileSaysWhetherTheColorsAreItsOwn) {
    const auto second = [this] {
        const std::u16string appearance = note_.AppearanceString();
        const std::size_t start = appearance.find(u',') + 1;
        return appearance.substr(start, appearance.find(u',', start) - start);
    };
    AsColorTarget(note_).SetColor(true, ColorWord{1}, ColorWord{2}, ColorWord{3});
    EXPECT_EQ(second(), u"True");
    AsColorTarget(note_).SetColor(false, ColorWord{1}, ColorWord{2}, ColorWord{3});
    EXPECT_EQ(second(), u"False");
}

TEST_F(OpenNoteTest, LargeTextReachesTheWindow) {
    note_.Perform(NoteAction::ToggleLargeText);
    EXPECT_TRUE(view_.Applied().LargeText);
    note_.Perform(NoteAction::ToggleLargeText);
    EXPECT_FALSE(view_.Applied().LargeText);
}

TEST_F(OpenNoteTest, PopupTakesItsStepsInOrder) {
    note_.MinimizeToTray();
    DropRecords();
    note_.Popup();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"MoveOntoScreen", "Show", "HideIcon", "BringToFront", "SetOpacity none"}));
    note_.Popup();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"MoveOntoScreen", "BringToFront", "SetOpacity none"}));
    settings_.doNotAdjustNotes = true;
    note_.Popup();
    EXPECT_EQ(view_.TakeCalls(), (Calls{"BringToFront", "SetOpacity none"}));
}

TEST_F(OpenNoteTest, TranslucencyIsTakenFromTheSettingsAtEachShowAndHide) {
    settings_.noteTransparency = true;
    settings_.noteOpacity = 100;
    note_.Popup();
    EXPECT_EQ(view_.Opacity(), 100);
    settings_.noteOpacity = 1;
    note_.HideNote();
    EXPECT_EQ(view_.Opacity(), 1);
    settings_.noteOpacity = 255;
    note_.SetNoteEffects();
    EXPECT_EQ(view_.Opacity(), 255) << "translucent notes are layered however little shows through";
    settings_.noteTransparency = false;
    note_.SetNoteEffects();
    EXPECT_EQ(view_.Opacity(), std::nullopt);
}

}  // namespace
}  // namespace quillo
