#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "note_fixture.h"
#include "platform/ui_timer.h"

namespace quillo::windows_tests {

/// The window of the menu that is open on this thread; null if none is.
inline HWND OpenMenuWindow() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (GetGUIThreadInfo(GetCurrentThreadId(), &info) == 0 || (info.flags & GUI_INMENUMODE) == 0) return nullptr;
    const HWND menu = FindWindowW(L"#32768", nullptr);
    return menu != nullptr && IsWindowVisible(menu) != 0 ? menu : nullptr;
}

/// Calls a function repeatedly, inside modal loops too, until told to stop.
class Meanwhile {
  public:
    explicit Meanwhile(std::function<bool()> done) : done_(std::move(done)) { timer_.Start(20); }
    [[nodiscard]] bool IsDone() const { return finished_; }

  private:
    void Tick() {
        if (!finished_) finished_ = done_();
        if (finished_) timer_.Stop();
    }

    std::function<bool()> done_;
    UiTimer timer_{[this] { Tick(); }};
    bool finished_ = false;
};

/// A note of which the menus and the tool tips are tested.
class NoteMenuTest : public testing::Test {
  protected:
    NoteMenuTest() {
        EXPECT_TRUE(one_.Create());
        form_.MoveTo(TwipsRect{3000, 3000, 2820, 2445});
    }
    void Show() {
        form_.Show();
        form_.BringToFront(true);
        form_.Activate();
        PaintNow(one_.Window());
    }
    [[nodiscard]] HWND Box() const { return one_.Child(ChildId::kMessageBox); }
    void PressMenuButton() const {
        SendMessageW(one_.Child(ChildId::kMenuButton), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    }
    /// Calls `act` with the window of a menu as soon as one is open.
    [[nodiscard]] static Meanwhile WhenAMenuIsOpen(std::function<void(HWND)> act) {
        return Meanwhile([act = std::move(act)] {
            const HWND menu = OpenMenuWindow();
            if (menu == nullptr) return false;
            act(menu);
            return true;
        });
    }
    static void Key(HWND window, WPARAM key) {
        PostMessageW(window, WM_KEYDOWN, key, 1);
        PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    }

    NoteWorldForTests world_;
    TestNote one_{world_, u"one"};
    NoteForm& form_{one_.form};
    OpenNote& note_{one_.note};
};

}  // namespace quillo::windows_tests
