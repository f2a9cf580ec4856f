#include "harness/choice_dialog.h"

#include "harness/eventually.h"
#include "harness/input.h"
#include "harness/quillo_process.h"
#include "harness/window_text.h"

namespace quillo::e2e {
namespace {

constexpr int kMostTabs = 20;

struct Search {
    const std::wstring& text;
    bool found = false;
};

BOOL CALLBACK LookAt(HWND child, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    search.found = WindowText(child) == search.text;
    return search.found ? FALSE : TRUE;
}

}  // namespace

std::optional<ChoiceDialog> ChoiceDialog::Find(HWND owner) {
    HWND dialog = nullptr;
    while ((dialog = FindWindowExW(nullptr, dialog, L"#32770", nullptr)) != nullptr) {
        if (GetWindow(dialog, GW_OWNER) != owner || IsWindowVisible(dialog) == 0) continue;
        if (IsChild(dialog, KeyboardWindow()) != 0) return ChoiceDialog(dialog);
    }
    return std::nullopt;
}

std::optional<ChoiceDialog> ChoiceDialog::WaitFor(HWND owner) {
    std::optional<ChoiceDialog> found;
    (void)Eventually([&] { return (found = Find(owner)).has_value(); });
    return found;
}

bool ChoiceDialog::Says(const std::wstring& text) const {
    Search search{text};
    EnumChildWindows(window_, &LookAt, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::wstring ChoiceDialog::Title() const {
    return WindowText(window_);
}

bool ChoiceDialog::Type(const std::wstring& text) const {
    HWND box = KeyboardWindow();
    TypeText(text);
    return Eventually([&] { return WindowText(box) == text; });
}

bool ChoiceDialog::TypeInto(int list, const std::wstring& text) const {
    HWND wanted = GetDlgItem(window_, list);
    for (int i = 0; i < kMostTabs && IsChild(wanted, KeyboardWindow()) == 0; ++i) {
        HWND before = KeyboardWindow();
        PressKey(VK_TAB);
        if (!Eventually([&] { return KeyboardWindow() != before; })) return false;
    }
    PressKey(VK_HOME);
    PressKey(VK_END, {VK_SHIFT});
    return Type(text);
}

bool ChoiceDialog::Accept() const {
    PostMessageW(window_, WM_COMMAND, IDOK, 0);
    return Goes();
}

bool ChoiceDialog::Cancel() const {
    PressKey(VK_ESCAPE);
    return Goes();
}

bool ChoiceDialog::Goes() const {
    return Eventually([this] { return IsWindow(window_) == 0 || IsWindowVisible(window_) == 0; });
}

}  // namespace quillo::e2e
