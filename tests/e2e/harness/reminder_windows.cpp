#include "harness/reminder_windows.h"

#include "harness/ask.h"
#include "harness/eventually.h"
#include "harness/input.h"
#include "harness/quillo_process.h"
#include "harness/window_text.h"

namespace quillo::e2e {
namespace {

/// The numbers of the dialog's controls: OKButton is the system's, for the Enter key.
constexpr int kFirstId = 100;

std::vector<HWND> VisibleOfClass(DWORD process, const wchar_t* windowClass) {
    std::vector<HWND> windows;
    for (HWND window : WindowsOf(process)) {
        if (ClassOf(window) == windowClass && IsWindowVisible(window) != 0) windows.push_back(window);
    }
    return windows;
}

}  // namespace

std::vector<ReminderDialogWindow> ReminderDialogWindow::All(DWORD process) {
    std::vector<ReminderDialogWindow> dialogs;
    for (HWND window : VisibleOfClass(process, L"QuilloSetReminder")) dialogs.emplace_back(window);
    return dialogs;
}

std::optional<ReminderDialogWindow> ReminderDialogWindow::WaitFor(DWORD process) {
    std::optional<ReminderDialogWindow> found;
    const bool came = Eventually([&] {
        const std::vector<ReminderDialogWindow> dialogs = All(process);
        if (dialogs.size() == 1) found = dialogs.front();
        return found && KeyboardWindow() == found->Control(ReminderControl::ReminderBox);
    });
    return came ? found : std::nullopt;
}

HWND ReminderDialogWindow::Control(ReminderControl control) const {
    return GetDlgItem(window_, control == ReminderControl::OKButton ? IDOK : kFirstId + static_cast<int>(control));
}

std::wstring ReminderDialogWindow::Text(ReminderControl control) const {
    return WindowText(Control(control));
}

bool ReminderDialogWindow::AllIsSelected() const {
    const DWORD_PTR selection = Ask(Control(ReminderControl::ReminderBox), EM_GETSEL, 0, 0);
    return LOWORD(selection) == 0 && HIWORD(selection) == Text(ReminderControl::ReminderBox).size();
}

bool ReminderDialogWindow::Type(const std::wstring& phrase) const {
    if (!Eventually([this] { return AllIsSelected(); })) return false;
    if (phrase.empty()) PressKey(VK_DELETE);
    TypeText(phrase);
    return Eventually([&] { return Text(ReminderControl::ReminderBox) == phrase; });
}

POINT ReminderDialogWindow::MiddleOf(ReminderControl control) const {
    RECT area{};
    GetWindowRect(Control(control), &area);
    return POINT{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

std::vector<HWND> Alerts(DWORD process) {
    return VisibleOfClass(process, L"QuilloReminder");
}

bool WaitForAlerts(DWORD process, std::size_t count) {
    constexpr std::chrono::seconds kTickAndMore{30};
    return Eventually([&] { return Alerts(process).size() == count; }, kTickAndMore);
}

}  // namespace quillo::e2e
