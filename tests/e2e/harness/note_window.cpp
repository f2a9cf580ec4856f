#include "harness/note_window.h"

#include "harness/ask.h"
#include "harness/eventually.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "harness/input.h"
#include "harness/note_text.h"
#include "harness/screen.h"

namespace quillo::e2e {
namespace {

constexpr int kTextBoxId = 1;

POINT MiddleOf(const RECT& area) {
    return POINT{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

RECT WindowRect(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area;
}

/// The window with the focus in the program that owns `window`.
HWND FocusOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    return GetGUIThreadInfo(thread, &info) != 0 ? info.hwndFocus : nullptr;
}

NoteWindow NoteWithText(const QuilloProcess& quillo, const std::wstring& text) {
    for (const NoteWindow& note : NotesOf(quillo)) {
        if (note.Text() == text) return note;
    }
    return {};
}

}  // namespace

HWND NoteWindow::TextBox() const {
    return GetDlgItem(window_, kTextBoxId);
}

HWND NoteWindow::Button(NoteButtonId id) const {
    // The buttons become windows shortly after the note's first painting.
    HWND button = nullptr;
    const bool stands = Eventually([&] {
        button = GetDlgItem(window_, static_cast<int>(id));
        return button != nullptr || !IsWindow(window_);
    });
    return stands ? button : nullptr;
}

void NoteWindow::Edit(WPARAM from, LPARAM to, const std::wstring& text) const {
    Ask(TextBox(), EM_SETSEL, from, to);
    Ask(TextBox(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
}

bool NoteWindow::IsTopmost() const {
    return (GetWindowLongPtrW(window_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

std::optional<int> NoteWindow::Alpha() const {
    if ((GetWindowLongPtrW(window_, GWL_EXSTYLE) & WS_EX_LAYERED) == 0) return std::nullopt;
    BYTE alpha = 0;
    DWORD flags = 0;
    if (GetLayeredWindowAttributes(window_, nullptr, &alpha, &flags) == 0 || (flags & LWA_ALPHA) == 0) {
        return std::nullopt;
    }
    return alpha;
}

bool NoteWindow::HasScrollBar() const {
    return (GetWindowLongPtrW(TextBox(), GWL_STYLE) & WS_VSCROLL) != 0;
}

RECT NoteWindow::Rectangle() const {
    return WindowRect(window_);
}

int NoteWindow::Width() const {
    const RECT area = Rectangle();
    return area.right - area.left;
}

int NoteWindow::Height() const {
    const RECT area = Rectangle();
    return area.bottom - area.top;
}

POINT NoteWindow::OnScreen(int x, int y) const {
    const RECT area = Rectangle();
    return POINT{area.left + x, area.top + y};
}

std::wstring NoteWindow::Text() const {
    HWND box = TextBox();
    const std::size_t length = Ask(box, WM_GETTEXTLENGTH);
    std::wstring text(length + 1, L'\0');
    text.resize(Ask(box, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data())));
    return text;
}

int NoteWindow::LineCount() const {
    return static_cast<int>(Ask(TextBox(), EM_GETLINECOUNT));
}

int NoteWindow::LineHeight() const {
    const auto top = [this](WPARAM line) {
        const DWORD_PTR place = Ask(TextBox(), EM_POSFROMCHAR, Ask(TextBox(), EM_LINEINDEX, line));
        return static_cast<int>(static_cast<short>(HIWORD(place)));
    };
    return top(1) - top(0);
}

COLORREF NoteWindow::OutlineColor() const {
    return ScreenPixel(OnScreen(0, Height() / 2));
}

COLORREF NoteWindow::FaceColor() const {
    return ScreenPixel(OnScreen(Px(6), Height() - Px(4)));
}

COLORREF NoteWindow::TextBackground() const {
    const RECT box = WindowRect(TextBox());
    return ScreenPixel(POINT{box.left + 1, box.bottom - 2});
}

int NoteWindow::TextPixels(COLORREF color) const {
    return ScreenCopy(WindowRect(TextBox())).Count(color);
}

bool NoteWindow::HasKeyboard() const {
    return GetForegroundWindow() == window_ && FocusOf(window_) == TextBox();
}

bool NoteWindow::TakeKeyboard() const {
    const bool taken = Until([this] { return HasKeyboard(); }, [this] { ClickMouse(MiddleOf(WindowRect(TextBox()))); });
    const auto end = static_cast<LPARAM>(Text().size());
    Ask(TextBox(), EM_SETSEL, static_cast<WPARAM>(end), end);
    return taken;
}

void NoteWindow::ClickButton(NoteButtonId id) const {
    ClickMouse(MiddleOfButton(id));
}

POINT NoteWindow::MiddleOfButton(NoteButtonId id) const {
    return MiddleOf(WindowRect(Button(id)));
}

bool NoteWindow::WaitUntilReleased() const {
    return Eventually([this] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        const DWORD thread = GetWindowThreadProcessId(window_, nullptr);
        return GetGUIThreadInfo(thread, &info) != 0 && (info.flags & GUI_INMOVESIZE) == 0;
    });
}

POINT NoteWindow::DragBarPoint() const {
    const RECT menu = WindowRect(Button(NoteButtonId::Menu));
    const RECT pin = WindowRect(Button(NoteButtonId::Pushpin));
    return POINT{(menu.right + pin.left) / 2, (menu.top + menu.bottom) / 2};
}

POINT NoteWindow::CornerPoint() const {
    return OnScreen(Width() - Px(4), Height() - Px(4));
}

std::vector<NoteWindow> NotesOf(const QuilloProcess& quillo) {
    std::vector<NoteWindow> notes;
    for (HWND window : quillo.Notes()) notes.emplace_back(window);
    return notes;
}

std::size_t VisibleNotes(const QuilloProcess& quillo) {
    std::size_t count = 0;
    for (const NoteWindow& note : NotesOf(quillo)) count += note.IsVisible() ? 1U : 0U;
    return count;
}

NoteWindow FindNote(const QuilloProcess& quillo, const std::wstring& text) {
    const NoteWindow note = NoteWithText(quillo, text);
    EXPECT_NE(note.Handle(), nullptr) << "no note says " << std::filesystem::path(text);
    return note;
}

NoteWindow WaitForNote(const QuilloProcess& quillo, const std::wstring& text) {
    EXPECT_TRUE(Eventually([&] { return NoteWithText(quillo, text).Handle() != nullptr; }));
    return FindNote(quillo, text);
}

}  // namespace quillo::e2e
