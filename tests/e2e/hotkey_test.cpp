#include "harness/e2e_test.h"
#include "harness/main_menu.h"

namespace quillo::e2e {
namespace {

/// The two global hotkeys, pressed while another program has the focus. The test uses keys that no desktop uses,
/// because a desktop may handle its own keys (the default N among them) itself.
class Hotkey : public OrdinaryTest {
  protected:
    static constexpr WORD kNewNoteKey = VK_F23;
    static constexpr WORD kShowNotesKey = VK_F24;

    void SetUp() override {
        OrdinaryTest::SetUp();
        Profile().SetNumber(L"New note hotkey", kNewNoteKey);
        Profile().SetNumber(L"Show notes hotkey", kShowNotesKey);
        NoteFile hidden{"Hidden"};
        hidden.appearance = "False,False,14155262,3723262,0,1";
        Profile().AddNote(L"hidden.qln", hidden.Bytes());
    }

    /// Another program's window, which has the focus.
    class OtherWindow {
      public:
        OtherWindow()
            : window_(CreateWindowExW(0, L"EDIT", L"", WS_POPUP | WS_VISIBLE | WS_BORDER, 40, 40, 120, 40, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), nullptr)) {
            SetForegroundWindow(window_);
            SetFocus(window_);
        }
        OtherWindow(const OtherWindow&) = delete;
        OtherWindow& operator=(const OtherWindow&) = delete;
        ~OtherWindow() { DestroyWindow(window_); }

        /// Presses the Windows key with `key` until that has had its effect.
        template <typename Effect>
        [[nodiscard]] bool PressUntil(WORD key, Effect effect) const {
            return Until(
                [&] {
                    MSG message{};
                    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageW(&message);
                    return effect();
                },
                [&] { PressKey(key, {VK_LWIN}); });
        }

      private:
        HWND window_;
    };
};

TEST_F(Hotkey, OneMakesANoteToTypeInAndTheOtherSurfacesAllNotes) {
    Start();
    const OtherWindow other;
    EXPECT_TRUE(other.PressUntil(kShowNotesKey, [&] { return FindNote(Quillo(), L"Hidden").IsVisible(); }));
    EXPECT_EQ(VisibleNotes(Quillo()), 1U);
    EXPECT_TRUE(other.PressUntil(kNewNoteKey, [&] { return VisibleNotes(Quillo()) == 2; }));
    const NoteWindow fresh = FindNote(Quillo(), L"");
    EXPECT_TRUE(Eventually([&] { return fresh.HasKeyboard(); }));
    Quit();
    constexpr int kFree = 1;
    EXPECT_TRUE(RegisterHotKey(nullptr, kFree, MOD_WIN, kNewNoteKey)) << "given back at the end";
    UnregisterHotKey(nullptr, kFree);
}

TEST_F(Hotkey, AKeyThatAnotherProgramOwnsIsSkippedSilently) {
    constexpr int kTaken = 1;
    ASSERT_TRUE(RegisterHotKey(nullptr, kTaken, MOD_WIN, kNewNoteKey));
    Start();
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
    {
        const OtherWindow other;
        EXPECT_TRUE(other.PressUntil(kShowNotesKey, [&] { return FindNote(Quillo(), L"Hidden").IsVisible(); }));
    }
    UnregisterHotKey(nullptr, kTaken);
}

}  // namespace
}  // namespace quillo::e2e
