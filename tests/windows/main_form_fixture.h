#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "../unit/app/test_program.h"
#include "mainmenu/main_form.h"
#include "platform/drop_target.h"
#include "platform/monitors.h"
#include "platform/wide.h"
#include "support.h"
#include "util/busy_flag.h"

namespace quillo::windows_tests {

/// A real main form over a program on fakes: no animation, hotkeys that nobody presses, four empty slots.
class MainFormTest : public testing::Test {
  protected:
    /// The interval of the backup timer.
    static constexpr UINT kTick = 10;

    MainFormTest() {
        test_.program.settings.animation = false;
        test_.program.settings.newNoteHotkey = VK_F23;
        test_.program.settings.showNotesHotkey = VK_F24;
        form_.onNewNote = [this] { heard_ += "new "; };
        form_.onOptions = [this] { heard_ += "options "; };
        form_.onAbout = [this] { heard_ += "about "; };
        form_.onQuit = [this] {
            heard_ += "quit ";
            return !refusesToEnd_;
        };
        form_.onBackup = [this] { ++backups_; };
        form_.onSessionEnd = [this] { heard_ += "ended "; };
        form_.onSessionEnding = [this] { heard_ += "ending "; };
        form_.onGoingAway = [this] { heard_ += "away "; };
        form_.onPresence = [this](bool present) { heard_ += present ? "back " : "gone "; };
    }

    /// The events raised since the last call.
    [[nodiscard]] std::string Heard() { return std::exchange(heard_, {}); }
    /// The window that the shell sends the icon's messages to; null before the icon was added.
    [[nodiscard]] static HWND TrayWindow() {
        HWND window = nullptr;
        while ((window = FindWindowExW(HWND_MESSAGE, window, L"QuilloTrayIcon", nullptr)) != nullptr) {
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (process == GetCurrentProcessId()) return window;
        }
        return nullptr;
    }
    /// Whether another program could register that hotkey now.
    static bool IsFree(int key) {
        constexpr int kTry = 99;
        if (RegisterHotKey(nullptr, kTry, MOD_WIN, static_cast<UINT>(key)) == 0) return false;
        UnregisterHotKey(nullptr, kTry);
        return true;
    }
    void AddNote(std::u16string key) {
        ASSERT_NE(test_.program.openNotes.Add(test_.services, std::move(key)), nullptr);
    }
    [[nodiscard]] MenuServices ServicesOfMenu() {
        return {test_.program.settings, test_.program.openNotes, test_.notice, ole_, monitors_};
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(form_.Handle(), message, wParam, lParam);
    }

    TestProgram test_;
    OleSession ole_;
    BusyFlag dialogs_;
    int monitorQuestions_ = 0;
    std::optional<Scale> scale_;  ///< the resolution of every monitor, if not its own
    bool refusesToEnd_ = false;
    MonitorCache monitors_{[this] {
        ++monitorQuestions_;
        std::vector<Monitor> monitors = AskForMonitors();
        if (scale_) {
            for (Monitor& monitor : monitors) monitor.scale = *scale_;
        }
        return monitors;
    }};
    MainForm form_{MainFormServices{test_.program, test_.registry, test_.shell, test_.locale, dialogs_,
                                    SessionEndCalls{[this](HWND window, const wchar_t* reason) {
                                                        heldBy_ = window;
                                                        heard_ += "held ";
                                                        reason_ = FromWide(reason);
                                                    },
                                                    [this](HWND) { heard_ += "released "; }}},
                   ServicesOfMenu(), kTick};
    int backups_ = 0;
    HWND heldBy_ = nullptr;  ///< the window that last held up the end of the session
    std::u16string reason_;  ///< the reason that it gave

  private:
    std::string heard_;
};

/// The same with its window and its icon.
class MainFormWindow : public MainFormTest {
  protected:
    MainFormWindow() {
        EXPECT_TRUE(form_.Load());
        form_.ShowTrayIcon();
    }

    /// Sends a message about a point of the menu, given at 96 dpi.
    void Mouse(UINT message, int x, int y) {
        RECT client{};
        GetClientRect(form_.Handle(), &client);
        const auto at = [&client](int figure, int whole, LONG extent) { return figure * extent / whole; };
        Send(message, 0, MAKELPARAM(at(x, 300, client.right), at(y, 180, client.bottom)));
    }
    void Click(int x, int y) {
        Mouse(WM_MOUSEMOVE, x, y);
        Mouse(WM_LBUTTONDOWN, x, y);
        Mouse(WM_LBUTTONUP, x, y);
    }
    void Key(WPARAM key) { Send(WM_KEYDOWN, key); }
    /// Shows the menu and drops the events raised meanwhile.
    void Show() {
        form_.SlideForm(true);
        test_.notice.Clear();
    }
    [[nodiscard]] COLORREF Pixel(int x, int y) {
        UpdateWindow(form_.Handle());
        RECT client{};
        GetClientRect(form_.Handle(), &client);
        return PixelOf(form_.Handle(),
                       Point{static_cast<int>(x * client.right / 300), static_cast<int>(y * client.bottom / 180)});
    }
    static void SendToIcon(UINT message) {
        PostMessageW(TrayWindow(), 512, 1, static_cast<LPARAM>(message));
        PumpWaiting();
    }
};

}  // namespace quillo::windows_tests
