#include "notes/note_color_form.h"

#include <gtest/gtest.h>

#include <memory>

#include "note_fixture.h"
#include "notes/note_commands.h"
#include "platform/gdi_scope.h"
#include "platform/monitors.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "testing/note_interfaces.h"

namespace quillo {
namespace {

using windows_tests::NoteWorldForTests;
using windows_tests::PaintNow;
using windows_tests::PixelOf;
using windows_tests::TestNote;
using Form = NoteColorForm;

class NoteColorFormTest : public testing::Test {
  protected:
    void SetUp() override {
        for (TestNote* note : {first_.get(), &second_}) {
            ASSERT_TRUE(note->Create());
            note->form.Show();
        }
        SetWindowPos(second_.Window(), nullptr, 700, 400, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        world_.loop.RunPending();
    }
    Form& Dialog() { return world_.colorDialog; }
    HWND Window() { return Dialog().Handle(); }
    HWND Item(int id) { return Dialog().Item(id); }
    void Ask(TestNote& note) {
        note.note.Perform(NoteAction::ChangeColor);
        world_.loop.RunPending();
    }
    void Press(int id) { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    /// Releases the mouse over a swatch.
    void PickSwatch(int index) {
        SendMessageW(Item(Form::kColorSelector), WM_LBUTTONUP, 0, MAKELPARAM(24 * index + 4, 4));
    }
    void SetDpi(int dpi) {
        const RECT place{50, 50, 400, 300};
        SendMessageW(Window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
    }
    bool IsSelected(int id) { return SendMessageW(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    /// Delivered as the message loop does, to the control that has the focus.
    void Key(int key) {
        PostMessageW(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        PostMessageW(GetFocus(), WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
        world_.loop.RunPending();
    }
    static ColorScheme ColorsOf(const TestNote& note) {
        return {note.note.Data().NoteColor, note.note.Data().BorderColor, note.note.Data().TextColor};
    }
    static Rect PlaceOf(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        return FromWin32(place);
    }

    NoteWorldForTests world_;
    std::unique_ptr<TestNote> first_ = std::make_unique<TestNote>(world_, u"FIRST");
    TestNote second_{world_, u"SECOND"};
};

TEST_F(NoteColorFormTest, ShowsTheNotesColors) {
    Ask(*first_);
    ASSERT_NE(Window(), nullptr);
    EXPECT_EQ(WindowText(Window()), kNoteColorCaption);
    EXPECT_TRUE(IsSelected(Form::kDefaultOption));
    EXPECT_FALSE(IsSelected(Form::kCustomOption));
    EXPECT_EQ(GetFocus(), Item(Form::kDefaultOption));
    EXPECT_EQ(GetWindow(Window(), GW_OWNER), first_->Window());
    EXPECT_NE(IsWindowEnabled(first_->Window()), FALSE) << "not modal";
    Press(IDOK);
    EXPECT_EQ(Window(), nullptr);
    AsColorTarget(first_->note).SetColor(true, ColorWord{1}, ColorWord{2}, ColorWord{3});
    Ask(*first_);
    EXPECT_TRUE(IsSelected(Form::kCustomOption));
    EXPECT_EQ(GetFocus(), Item(Form::kCustomOption));
    EXPECT_EQ(ColorsOf(*first_), (ColorScheme{ColorWord{1}, ColorWord{2}, ColorWord{3}})) << "showing changes nothing";
}

TEST_F(NoteColorFormTest, OpeningItChangesNothingOnTheNote) {
    first_->note.MarkChanged();
    ASSERT_TRUE(first_->note.PersistNote());
    Ask(*first_);
    Press(IDOK);
    EXPECT_FALSE(first_->note.Data().Changed);
}

TEST_F(NoteColorFormTest, APickShowsOnTheNoteAtOnce) {
    Ask(*first_);
    for (int i = 0; i < 11; ++i) {
        PickSwatch(i);
        const ColorScheme& scheme = kSwatches[static_cast<std::size_t>(i)];
        EXPECT_TRUE(IsSelected(Form::kCustomOption));
        EXPECT_EQ(ColorsOf(*first_), scheme);
        EXPECT_TRUE(first_->note.Data().OwnColors && first_->note.Data().Changed);
        PaintNow(first_->Window());
        EXPECT_EQ(PixelOf(first_->Window(), Point{0, 80}), scheme.border.value) << i;
        EXPECT_EQ(PixelOf(first_->Window(), Point{60, 157}), scheme.note.value) << i;
    }
    EXPECT_NE(Window(), nullptr) << "it stays for the next try";
    EXPECT_FALSE(second_.note.Data().OwnColors);
}

TEST_F(NoteColorFormTest, TheDefaultOptionAndBack) {
    Ask(*first_);
    PickSwatch(4);
    Press(Form::kDefaultOption);
    EXPECT_FALSE(first_->note.Data().OwnColors);
    EXPECT_EQ(ColorsOf(*first_),
              (ColorScheme{world_.settings.noteColor, world_.settings.noteBorderColor, world_.settings.noteTextColor}));
    Press(Form::kCustomOption);
    EXPECT_TRUE(first_->note.Data().OwnColors);
    EXPECT_EQ(ColorsOf(*first_), kSwatches[4]);
}

TEST_F(NoteColorFormTest, ItsKeys) {
    Ask(*first_);
    Key(VK_DOWN);
    EXPECT_TRUE(IsSelected(Form::kCustomOption));
    EXPECT_TRUE(first_->note.Data().OwnColors);
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), Item(Form::kColorSelector));
    Key(VK_RIGHT);
    Key(VK_RIGHT);
    Key(VK_SPACE);
    EXPECT_EQ(ColorsOf(*first_), kSwatches[2]);
    Key(VK_END);
    Key(VK_RETURN);
    EXPECT_EQ(ColorsOf(*first_), kSwatches[10]);
    ASSERT_NE(Window(), nullptr);
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), Item(IDOK));
    Key(VK_TAB);
    EXPECT_EQ(GetFocus(), Item(Form::kCustomOption)) << "the one that is selected";
    Key(VK_RETURN);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(ColorsOf(*first_), kSwatches[10]);
}

TEST_F(NoteColorFormTest, EscClosesAndKeepsTheChoice) {
    Ask(*first_);
    PickSwatch(3);
    Key(VK_ESCAPE);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(ColorsOf(*first_), kSwatches[3]);
}

TEST_F(NoteColorFormTest, TheAccessKeysExistAndDiffer) {
    Ask(*first_);
    EXPECT_EQ(WindowText(Item(Form::kDefaultOption)), kDefaultColorsCaption);
    EXPECT_EQ(WindowText(Item(Form::kCustomOption)), kOwnColorsCaption);
    EXPECT_EQ(WindowText(Item(Form::kColorSelector)), kColorSelectorName);
    PostMessageW(GetFocus(), WM_SYSCHAR, 'o', 1 << 29);
    world_.loop.RunPending();
    EXPECT_TRUE(IsSelected(Form::kCustomOption));
    PostMessageW(GetFocus(), WM_SYSCHAR, 'd', 1 << 29);
    world_.loop.RunPending();
    EXPECT_TRUE(IsSelected(Form::kDefaultOption));
}

TEST_F(NoteColorFormTest, AskingTwiceFromOneNoteDoesNothing) {
    Ask(*first_);
    SetWindowPos(Window(), nullptr, 20, 20, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    HWND before = Window();
    PickSwatch(6);
    Ask(*first_);
    EXPECT_EQ(Window(), before);
    EXPECT_EQ(PlaceOf(Window()).left, 20);
}

TEST_F(NoteColorFormTest, ASecondNoteTakesOverTheOneDialogIntended) {
    Ask(*first_);
    PickSwatch(1);
    HWND before = Window();
    Ask(second_);
    EXPECT_EQ(Window(), before);
    EXPECT_EQ(GetWindow(Window(), GW_OWNER), second_.Window());
    EXPECT_TRUE(IsSelected(Form::kDefaultOption)) << "as the second note has it";
    PickSwatch(7);
    EXPECT_EQ(ColorsOf(*first_), kSwatches[1]);
    EXPECT_EQ(ColorsOf(second_), kSwatches[7]);
    Ask(*first_);
    EXPECT_EQ(GetWindow(Window(), GW_OWNER), second_.Window()) << "not before it was closed";
    Press(IDOK);
    Ask(*first_);
    EXPECT_EQ(GetWindow(Window(), GW_OWNER), first_->Window());
    EXPECT_TRUE(IsSelected(Form::kCustomOption));
}

TEST_F(NoteColorFormTest, ClosesWithItsNote) {
    Ask(*first_);
    first_->form.Close();
    EXPECT_EQ(Window(), nullptr);
    first_.reset();
    Ask(second_);
    EXPECT_NE(Window(), nullptr);
}

TEST_F(NoteColorFormTest, StaysOpenWhenAnEarlierNoteEnds) {
    Ask(*first_);
    Ask(second_);
    first_.reset();
    ASSERT_NE(Window(), nullptr);
    PickSwatch(5);
    EXPECT_EQ(ColorsOf(second_), kSwatches[5]);
    Press(IDOK);
    EXPECT_EQ(Window(), nullptr);
}

TEST_F(NoteColorFormTest, AppearsBesideItsNoteOnTheScreen) {
    const Rect screen = WorkAreaOf(nullptr);
    for (const Point corner : {Point{0, 0}, Point{screen.width - 188, 0}, Point{0, screen.height - 163},
                               Point{screen.width - 188, screen.height - 163}, Point{500, 300}}) {
        SetWindowPos(first_->Window(), nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        Ask(*first_);
        const Rect place = PlaceOf(Window());
        const Rect note = PlaceOf(first_->Window());
        EXPECT_TRUE(screen.Contains(Point{place.left, place.top}));
        EXPECT_TRUE(screen.Contains(Point{place.Right() - 1, place.Bottom() - 1}));
        EXPECT_TRUE(place.left >= note.Right() || place.Right() <= note.left || place.top >= note.Bottom() ||
                    place.Bottom() <= note.top)
            << "the note is in sight";
        Press(IDOK);
    }
}

TEST_F(NoteColorFormTest, AppearsAboveAPinnedNote) {
    first_->note.SetPinned(true);
    Ask(*first_);
    EXPECT_NE(GetWindowLongPtrW(Window(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
}

TEST_F(NoteColorFormTest, EverythingIsPaintedAgainAtAnotherScale) {
    Ask(*first_);
    PaintNow(Window());
    SetDpi(144);
    for (const int id : {static_cast<int>(Form::kHeadingLabel), static_cast<int>(Form::kDefaultOption),
                         static_cast<int>(Form::kColorSelector), IDOK}) {
        RECT client{};
        RECT due{};
        GetClientRect(Item(id), &client);
        EXPECT_NE(GetUpdateRect(Item(id), &due, FALSE), FALSE) << id;
        EXPECT_NE(EqualRect(&due, &client), FALSE) << id;
    }
}

TEST_F(NoteColorFormTest, NothingIsCutAtAnyScale) {
    Ask(*first_);
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        RECT client{};
        GetClientRect(Window(), &client);
        for (const int id : {Form::kHeadingLabel, Form::kInstructionLabel, Form::kDefaultOption, Form::kCustomOption}) {
            const std::u16string text = WindowText(Item(id));
            const WindowDcScope dc(Item(id));
            const auto font = reinterpret_cast<HFONT>(SendMessageW(Item(id), WM_GETFONT, 0, 0));
            EXPECT_LE(MeasureCaption(dc.Dc(), font, text).width, PlaceOf(Item(id)).width) << id << " at " << dpi;
            EXPECT_LE(MeasureCaption(dc.Dc(), font, text).height, PlaceOf(Item(id)).height) << id << " at " << dpi;
        }
        POINT corner{PlaceOf(Item(Form::kColorSelector)).Right(), PlaceOf(Item(Form::kColorSelector)).Bottom()};
        ScreenToClient(Window(), &corner);
        EXPECT_LE(corner.x, client.right) << dpi;
        EXPECT_LE(corner.y, client.bottom) << dpi;
        EXPECT_EQ(PlaceOf(Item(Form::kColorSelector)).width, Scale(dpi).Px(268));
    }
}

}  // namespace
}  // namespace quillo
