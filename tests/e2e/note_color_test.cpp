#include <optional>

#include "controls/swatch_palette.h"
#include "harness/e2e_test.h"
#include "harness/window_text.h"

namespace quillo::e2e {
namespace {

enum ControlId : int { kDefaultOption = 100, kCustomOption, kColorSelector };

COLORREF Shown(ColorWord color) {
    return RGB(color.Red(), color.Green(), color.Blue());
}

/// The program's color dialog, seen from outside.
class ColorDialogWindow {
  public:
    explicit ColorDialogWindow(HWND window) : window_(window) {}

    [[nodiscard]] HWND Handle() const { return window_; }
    [[nodiscard]] bool Exists() const { return IsWindow(window_) != 0; }
    [[nodiscard]] HWND Item(int id) const { return GetDlgItem(window_, id); }
    [[nodiscard]] HWND Owner() const { return GetWindow(window_, GW_OWNER); }
    [[nodiscard]] bool IsSelected(int option) const {
        return SendMessageW(Item(option), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    [[nodiscard]] POINT SwatchOnScreen(int index) const {
        RECT strip{};
        GetWindowRect(Item(kColorSelector), &strip);
        return POINT{strip.left + Px(24 * index + 5), strip.top + Px(5)};
    }
    [[nodiscard]] RECT Rectangle() const {
        RECT window{};
        GetWindowRect(window_, &window);
        return window;
    }

  private:
    HWND window_;
};

class NoteColorTest : public OrdinaryTest {
  protected:
    [[nodiscard]] std::vector<ColorDialogWindow> Dialogs() {
        std::vector<ColorDialogWindow> dialogs;
        for (HWND window : WindowsOf(Quillo().Pid())) {
            if (ClassOf(window) == L"QuilloNoteColor" && IsWindowVisible(window) != 0) dialogs.emplace_back(window);
        }
        return dialogs;
    }
    [[nodiscard]] bool MenuIsOpen() {
        for (HWND window : WindowsOf(Quillo().Pid())) {
            if (ClassOf(window) == L"#32768" && IsWindowVisible(window) != 0) return true;
        }
        return false;
    }
    /// Chooses "Change note color..." in the note's menu with the keyboard.
    void ChooseChangeColor(const NoteWindow& note) {
        ASSERT_TRUE(note.TakeKeyboard());
        MoveMouse(POINT{note.Rectangle().right + Px(400), note.Rectangle().top});  // a menu follows the pointer too
        PressKey(VK_APPS);
        ASSERT_TRUE(Eventually([&] { return MenuIsOpen(); }));
        PressKey(VK_HOME);
        constexpr int kBefore = 3;  // items of the menu above this one
        for (int i = 0; i < kBefore; ++i) PressKey(VK_DOWN);
        PressKey(VK_RETURN);
        ASSERT_TRUE(Eventually([&] { return !MenuIsOpen(); }));
    }
    /// The dialog that opens for the note, or switches to it; null if none does.
    ColorDialogWindow AskNoteColor(const NoteWindow& note) {
        ChooseChangeColor(note);
        HWND found = nullptr;
        EXPECT_TRUE(Eventually([&] {
            const std::vector<ColorDialogWindow> dialogs = Dialogs();
            if (dialogs.size() == 1 && dialogs.front().Owner() == note.Handle()) found = dialogs.front().Handle();
            return found != nullptr && GetParent(KeyboardWindow()) == found;
        }));
        return ColorDialogWindow(found);
    }
    /// The screen shows the note in those colors.
    [[nodiscard]] static bool IsShownIn(const NoteWindow& note, const ColorScheme& scheme) {
        return note.OutlineColor() == Shown(scheme.border) && note.FaceColor() == Shown(scheme.note) &&
               note.TextBackground() == Shown(scheme.note) && note.TextPixels(Shown(scheme.text)) > 0;
    }
    static std::string Appearance(bool own, const ColorScheme& scheme) {
        return std::string("<appearance>False,") + (own ? "True" : "False") + "," +
               std::to_string(scheme.note.Number()) + "," + std::to_string(scheme.border.Number()) + "," +
               std::to_string(scheme.text.Number()) + ",";
    }
    std::wstring AddNote(const std::wstring& name, const char* text, const char* position) {
        NoteFile file{text};
        file.position = position;
        return Profile().AddNote(name, file.Bytes());
    }
    static constexpr const char* kTop = "3000,1500,3000,2400";
    static constexpr const char* kBelow = "3000,7500,3000,2400";
    static constexpr ColorScheme kDefault{ColorWord{14155262}, ColorWord{3723262}, ColorWord{0}};
};

TEST_F(NoteColorTest, TheFirstClickOnASwatchCounts) {
    AddNote(L"note.qln", "MMMM", kTop);
    Start();
    const NoteWindow note = FindNote(Quillo(), L"MMMM");
    const ColorDialogWindow dialog = AskNoteColor(note);
    ClickMouse(dialog.SwatchOnScreen(2));
    EXPECT_TRUE(Eventually([&] { return IsShownIn(note, kSwatches[2]); }));
}

TEST_F(NoteColorTest, ThePointerGivesTheNoteEachOfTheElevenSchemesAtOnce) {
    const std::wstring path = AddNote(L"note.qln", "MMMM", kTop);
    Start();
    const NoteWindow note = FindNote(Quillo(), L"MMMM");
    const ColorDialogWindow dialog = AskNoteColor(note);
    EXPECT_EQ(WindowText(dialog.Handle()), L"Note color");
    EXPECT_TRUE(dialog.IsSelected(kDefaultOption));
    RECT overlap{};
    const RECT place = dialog.Rectangle();
    const RECT noteArea = note.Rectangle();
    EXPECT_FALSE(IntersectRect(&overlap, &place, &noteArea)) << "the note is in sight";

    for (int i = 0; i < static_cast<int>(kSwatches.size()); ++i) {
        const ColorScheme& scheme = kSwatches[static_cast<std::size_t>(i)];
        EXPECT_TRUE(Until([&] { return IsShownIn(note, scheme); }, [&] { ClickMouse(dialog.SwatchOnScreen(i)); })) << i;
        EXPECT_TRUE(dialog.IsSelected(kCustomOption));
    }
    EXPECT_TRUE(dialog.Exists());
    EXPECT_TRUE(Eventually([&] {
        return ReadBytes(path).find(Appearance(true, kSwatches.back())) != std::string::npos;
    })) << "without the dialog being closed";
    Quit();
    EXPECT_THAT(ReadBytes(path), ::testing::HasSubstr(Appearance(true, kSwatches.back())));
}

TEST_F(NoteColorTest, TheKeyboardPicksAndReturnsToTheDefaults) {
    const std::wstring path = AddNote(L"note.qln", "MMMM", kTop);
    Start();
    const NoteWindow note = FindNote(Quillo(), L"MMMM");
    ColorDialogWindow dialog = AskNoteColor(note);
    EXPECT_EQ(KeyboardWindow(), dialog.Item(kDefaultOption));
    PressKey(VK_TAB);
    ASSERT_TRUE(Eventually([&] { return KeyboardWindow() == dialog.Item(kColorSelector); }));
    PressKey(VK_END);
    PressKey(VK_LEFT);
    PressKey(VK_SPACE);
    EXPECT_TRUE(Eventually([&] { return IsShownIn(note, kSwatches[9]); }));
    EXPECT_TRUE(dialog.IsSelected(kCustomOption));
    PressKey(VK_HOME);
    PressKey(VK_RIGHT);
    PressKey(VK_RETURN);
    EXPECT_TRUE(Eventually([&] { return IsShownIn(note, kSwatches[1]); }));
    PressKey(VK_TAB, {VK_SHIFT});
    ASSERT_TRUE(Eventually([&] { return KeyboardWindow() == dialog.Item(kCustomOption); }));
    PressKey(VK_UP);
    EXPECT_TRUE(Eventually([&] { return IsShownIn(note, kDefault); }));
    EXPECT_TRUE(dialog.IsSelected(kDefaultOption));
    PressKey(VK_RETURN);
    EXPECT_TRUE(Eventually([&] { return !dialog.Exists(); }));
    EXPECT_TRUE(Eventually([&] { return note.HasKeyboard(); }));
    EXPECT_TRUE(Eventually([&] { return ReadBytes(path).find(Appearance(false, kDefault)) != std::string::npos; }));

    dialog = AskNoteColor(note);
    PressKey(VK_DOWN);
    EXPECT_TRUE(Eventually([&] { return dialog.IsSelected(kCustomOption); }));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Eventually([&] { return !dialog.Exists(); }));
    EXPECT_EQ(note.Text(), L"MMMM");
    Quit();
    EXPECT_THAT(ReadBytes(path), ::testing::HasSubstr(Appearance(true, kDefault))) << "Esc takes nothing back";
}

TEST_F(NoteColorTest, OneDialogServesTheNotesInTurnIntended) {
    AddNote(L"first.qln", "first MMMM", kTop);
    AddNote(L"second.qln", "second MMMM", kBelow);
    Start();
    const NoteWindow first = FindNote(Quillo(), L"first MMMM");
    const NoteWindow second = FindNote(Quillo(), L"second MMMM");
    const ColorDialogWindow dialog = AskNoteColor(first);
    const RECT place = dialog.Rectangle();
    ChooseChangeColor(first);
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_EQ(Dialogs().size(), 1U);
    const RECT same = dialog.Rectangle();
    EXPECT_TRUE(EqualRect(&place, &same)) << "a second time nothing happens";

    EXPECT_EQ(AskNoteColor(second).Handle(), dialog.Handle());
    EXPECT_TRUE(Until([&] { return IsShownIn(second, kSwatches[7]); }, [&] { ClickMouse(dialog.SwatchOnScreen(7)); }));
    EXPECT_TRUE(IsShownIn(first, kDefault));
    ChooseChangeColor(first);
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_EQ(dialog.Owner(), second.Handle()) << "not before it was closed";
    PostMessageW(dialog.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(Eventually([&] { return !dialog.Exists(); }));

    const ColorDialogWindow again = AskNoteColor(first);
    ASSERT_TRUE(first.TakeKeyboard());
    PressKey('W', {VK_CONTROL, VK_SHIFT});
    EXPECT_TRUE(Eventually([&] { return !first.Exists() && !again.Exists(); })) << "the dialog closes with its note";
    EXPECT_NE(AskNoteColor(second).Handle(), nullptr);
    Quit();
}

}  // namespace
}  // namespace quillo::e2e
