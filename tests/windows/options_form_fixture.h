#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "../unit/app/test_program.h"
#include "../unit/app/written_names.h"
#include "app/base/registry_keys.h"
#include "mainmenu/options_form.h"
#include "platform/gdi_scope.h"
#include "platform/message_loop.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "reminder_fixture.h"
#include "support.h"
#include "testing/fake_options_owner.h"
#include "testing/fake_sound_device.h"
#include "util/busy_flag.h"

namespace quillo::windows_tests {

/// The options over a program on fakes.
class OptionsFormTest : public testing::Test {
  protected:
    void Open() {
        ASSERT_TRUE(form_.Open());
        loop_.RunPending();
    }
    Settings& Now() { return program_.program.settings; }
    [[nodiscard]] HWND Of(OptionControl control) const { return form_.ControlWindow(control); }
    [[nodiscard]] std::u16string Text(OptionControl control) const { return WindowText(Of(control)); }
    [[nodiscard]] bool IsChecked(OptionControl check) const {
        return SendMessageW(Of(check), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    void Press(OptionControl control) const { SendMessageW(Of(control), BM_CLICK, 0, 0); }
    /// Delivered as the message loop does, to the control that has the focus.
    void Key(HWND to, int key) {
        PostMessageW(to, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        loop_.RunPending();
    }
    [[nodiscard]] bool IsTopmost() const {
        return (GetWindowLongPtrW(form_.Handle(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    }
    void SetDpi(int dpi) const {
        const RECT place{20, 20, 500, 400};
        SendMessageW(form_.Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
    }
    [[nodiscard]] std::optional<std::int32_t> Number(std::u16string_view name) const {
        return program_.registry.Number(kUserKey, name);
    }
    [[nodiscard]] std::optional<std::u16string> Stored(std::u16string_view name) const {
        return program_.registry.Text(kUserKey, name);
    }
    [[nodiscard]] std::vector<std::u16string> Written() const { return WrittenNames(program_.registry); }
    [[nodiscard]] static RECT PlaceOf(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    }
    /// No part of the control's text is outside it.
    void ExpectUncut(const OptionRow& row, int dpi) const {
        HWND control = Of(row.control);
        RECT place{};
        GetClientRect(control, &place);
        const WindowDcScope dc(control);
        const SelectScope font(dc.Dc(), reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
        // The space of a check box's mark and a button's edge.
        const int room = row.kind == OptionKind::Check ? Scale(dpi).Px(20) : row.kind == OptionKind::Button ? 8 : 0;
        RECT needed{0, 0, place.right - room, 0};
        const std::u16string text = Text(row.control);
        const UINT wrap = row.kind == OptionKind::Text || row.kind == OptionKind::Check ? DT_WORDBREAK : DT_SINGLELINE;
        DrawTextW(dc.Dc(), WideData(text), static_cast<int>(text.size()), &needed, DT_CALCRECT | wrap);
        EXPECT_LE(needed.right + room, place.right) << "control " << static_cast<int>(row.control) << " at " << dpi;
        EXPECT_LE(needed.bottom, place.bottom) << "control " << static_cast<int>(row.control) << " at " << dpi;
    }

    TestProgram program_;
    FakeSoundDevice sound_;
    FakeOptionsOwner owner_{program_.program.settings};
    MessageLoop loop_;
    BusyFlag dialogs_;
    OptionsForm form_{
        OptionsServices{program_.program, program_.registry, program_.shell, sound_, program_.locale, owner_},
        program_.notice, loop_, dialogs_};
};

}  // namespace quillo::windows_tests
