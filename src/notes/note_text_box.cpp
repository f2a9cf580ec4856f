#include "notes/note_text_box.h"

#include <algorithm>

#include "notes/note.h"
#include "notes/note_face.h"
#include "notes/word_start.h"
#include "platform/gdi_scope.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "platform/window.h"
#include "platform/window_effects.h"
#include "util/flag_scope.h"
#include "util/ignore.h"

namespace quillo {
namespace {

struct Selection {
    DWORD start = 0;
    DWORD end = 0;
};

Selection SelectionOf(HWND box) {
    Selection selection;
    SendMessageW(box, EM_GETSEL, reinterpret_cast<WPARAM>(&selection.start), reinterpret_cast<LPARAM>(&selection.end));
    return selection;
}

void Select(HWND box, Selection selection) {
    SendMessageW(box, EM_SETSEL, selection.start, static_cast<LPARAM>(selection.end));
}

}  // namespace

bool NoteTextBox::Create(HWND parent, int id, const Rect& place, bool scrollBar) {
    // Created without a scroll bar, the control leaves the bar to us: its own would appear whenever the text is longer
    // than the box, also while the option is off.
    const DWORD style = WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;
    const auto childId = static_cast<UINT_PTR>(id);
    const HWND box = CreateWindowExW(0, L"EDIT", L"", style, place.left, place.top, place.width, place.height, parent,
                                     reinterpret_cast<HMENU>(childId), ThisModule(), nullptr);
    if (box == nullptr) return false;
    Subclass(box);
    SendMessageW(Handle(), EM_SETLIMITTEXT, kMostNoteCharacters, 0);
    ShowScrollBar(scrollBar);
    return true;
}

void NoteTextBox::ShowScrollBar(bool shown) {
    if (shown == scrollBar_ || Handle() == nullptr) return;
    scrollBar_ = shown;
    barRange_ = {};
    // The new width wraps the text differently: the first character of the top line identifies the place.
    const LRESULT top = SendMessageW(Handle(), EM_GETFIRSTVISIBLELINE, 0, 0);
    const LRESULT character = SendMessageW(Handle(), EM_LINEINDEX, static_cast<WPARAM>(top), 0);
    ::ShowScrollBar(Handle(), SB_VERT, shown ? TRUE : FALSE);
    const LRESULT line = SendMessageW(Handle(), EM_LINEFROMCHAR, static_cast<WPARAM>(character), 0);
    SendMessageW(Handle(), EM_LINESCROLL, 0, line - SendMessageW(Handle(), EM_GETFIRSTVISIBLELINE, 0, 0));
}

/// Called after every message, as most of them can change the text, the size or the top line.
void NoteTextBox::UpdateScrollBar() {
    if (!scrollBar_ || Handle() == nullptr) return;
    RECT text{};
    Default(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    const BarRange range{static_cast<int>(Default(EM_GETLINECOUNT, 0, 0)),
                         static_cast<int>(text.bottom - text.top) / LineHeight(),
                         static_cast<int>(Default(EM_GETFIRSTVISIBLELINE, 0, 0))};
    if (range == barRange_) return;
    barRange_ = range;  // before the call, which sends messages
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    // A bar that is not needed remains, disabled: without it the text would be wrapped differently, and need it again.
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMax = range.lines - 1;
    info.nPage = static_cast<UINT>(range.page);
    info.nPos = range.top;
    SetScrollInfo(Handle(), SB_VERT, &info, TRUE);
}

int NoteTextBox::LineHeight() {
    if (lineHeight_ > 0) return lineHeight_;
    const WindowDcScope screen(nullptr);
    const SelectScope font(screen.Dc(), reinterpret_cast<HFONT>(Default(WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen.Dc(), &metrics);
    lineHeight_ = std::max(1, static_cast<int>(metrics.tmHeight));
    return lineHeight_;
}

bool NoteTextBox::FollowThumb(int request) {
    if (request != SB_THUMBTRACK && request != SB_THUMBPOSITION) return false;
    // The message itself has no more than 16 bits of the position.
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    if (GetScrollInfo(Handle(), SB_VERT, &info) == 0) return false;
    Default(EM_LINESCROLL, 0, info.nTrackPos - Default(EM_GETFIRSTVISIBLELINE, 0, 0));
    return true;
}

/// The control itself may scroll by the wheel only while it has a bar.
bool NoteTextBox::OnWheel(WPARAM turn) {
    if ((LOWORD(turn) & (MK_CONTROL | MK_SHIFT)) != 0) return false;
    UINT perNotch = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &perNotch, 0);
    const bool byPages = perNotch == WHEEL_PAGESCROLL;
    const int distance = wheel_.Turn(GET_WHEEL_DELTA_WPARAM(turn), byPages ? 1 : static_cast<int>(perNotch));
    if (!byPages) {
        Default(EM_LINESCROLL, 0, distance);
    } else if (distance != 0) {
        Default(EM_SCROLL, distance > 0 ? SB_PAGEDOWN : SB_PAGEUP, 0);
    }
    return true;
}

/// Screen readers take the name of a text box from the static text before it. One without a size is invisible.
void NoteTextBox::NameForScreenReaders() {
    if (label_ != nullptr) return;
    label_ = CreateWindowExW(0, L"STATIC", L"Note text", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, GetParent(Handle()),
                             nullptr, ThisModule(), nullptr);
    if (label_ == nullptr) return;
    const HWND previous = GetWindow(Handle(), GW_HWNDPREV);
    SetWindowPos(label_, previous != nullptr ? previous : HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

std::u16string NoteTextBox::Text() const {
    return WindowText(Handle());
}

bool NoteTextBox::SetText(std::u16string_view text) {
    // The control's own limit applies to the user's input, not to this call.
    if (!FitsInNote(0, text.size())) return false;
    const FlagScope byProgram(byProgram_);
    SetWindowTextW(Handle(), Wide(std::u16string(text)));
    return TextLength() == text.size();
}

std::size_t NoteTextBox::TextLength() const {
    return static_cast<std::size_t>(GetWindowTextLengthW(Handle()));
}

bool NoteTextBox::InsertAt(DWORD position, std::u16string_view text) {
    if (!FitsInNote(TextLength(), text.size())) return false;
    const FlagScope byProgram(byProgram_);
    Select(Handle(), Selection{position, position});
    SendMessageW(Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(std::u16string(text))));
    return true;
}

bool NoteTextBox::InsertInFront(std::u16string_view text) {
    const Selection before = SelectionOf(Handle());
    if (!InsertAt(0, text)) return false;
    const auto length = static_cast<DWORD>(text.size());
    Select(Handle(), Selection{before.start + length, before.end + length});
    return true;
}

bool NoteTextBox::InsertAtCaret(std::u16string_view text) {
    return InsertAt(SelectionOf(Handle()).start, text);
}

std::u16string NoteTextBox::Beginning(std::size_t most) const {
    std::u16string text(most + 1, u'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(Handle(), WideBuffer(text), static_cast<int>(text.size()))));
    return text;
}

void NoteTextBox::DeleteWordBefore() {
    Selection word = SelectionOf(Handle());
    if (word.start == word.end) word.start = static_cast<DWORD>(WordStartBefore(Text(), word.end));
    if (word.start == word.end) return;
    Select(Handle(), word);
    SendMessageW(Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
}

void NoteTextBox::SelectAll() {
    SendMessageW(Handle(), EM_SETSEL, 0, -1);
}

void NoteTextBox::SetFont(HFONT font, const Scale& scale) {
    SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font), IsWindowVisible(Handle()) != 0 ? TRUE : FALSE);
    SetTextMargins(Handle(), scale.Px(kNoteTextMargin));
    // One tab stop, in units that depend on the font. It stays valid as long as the font, shown or hidden.
    const UINT dialogUnits = 8;
    SendMessageW(Handle(), EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&dialogUnits));
}

LRESULT NoteTextBox::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = Swallow(message, wParam, lParam) ? 0 : Default(message, wParam, lParam);
    if (message == WM_SETFONT) lineHeight_ = 0;
    if (message != WM_NCDESTROY) UpdateScrollBar();
    return result;
}

bool NoteTextBox::Swallow(UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr LPARAM kWasDown = 1 << 30;
    constexpr LPARAM kByKeyboard = -1;
    switch (message) {
        case WM_NCCALCSIZE:
        case WM_NCPAINT:
            // Without its bar the whole window is text, and there is no frame to paint.
            return !scrollBar_;
        case WM_VSCROLL:
            return FollowThumb(LOWORD(wParam));
        case WM_MOUSEWHEEL:
            return OnWheel(wParam);
        case WM_GETOBJECT:
            if (static_cast<LONG>(lParam) == OBJID_CLIENT) NameForScreenReaders();
            return false;
        case WM_KEYDOWN:
            return OnKey(static_cast<int>(wParam), (lParam & kWasDown) != 0);
        case WM_CHAR:
            return keySwallowed_;
        case WM_SYSKEYDOWN:
            return wParam == VK_F10 && OnMenuKeys((lParam & kWasDown) != 0);
        case WM_KEYUP:
        case WM_SYSKEYUP:
            // The characters of a key arrive before its release; the next one may arrive without a key, by Alt and the
            // number pad.
            keySwallowed_ = false;
            // Pressing these has opened the menu; F10 alone would now open the window's system menu.
            return wParam == VK_APPS || (wParam == VK_F10 && menuKeysHeld_);
        case WM_CONTEXTMENU:
            // Other keyboard requests; a right click in the text opens the edit control's own menu.
            if (lParam == kByKeyboard) onAction(NoteAction::OpenMenu);
            return lParam == kByKeyboard;
        default:
            return false;
    }
}

bool NoteTextBox::OnMenuKeys(bool repeated) {
    menuKeysHeld_ = GetKeyState(VK_SHIFT) < 0;
    if (menuKeysHeld_ && !repeated) onAction(NoteAction::OpenMenu);
    return menuKeysHeld_;
}

bool NoteTextBox::OnKey(int virtualKey, bool repeated) {
    keySwallowed_ = false;
    // Most keys are typed: no other key matters for them.
    if (virtualKey != VK_BACK && !HasNoteKeyAction(virtualKey)) return false;
    const auto isDown = [](int key) { return GetKeyState(key) < 0; };
    NoteKeyState held{isDown(VK_CONTROL)};
    if (held.control) {
        held.shift = isDown(VK_SHIFT);
        held.rightAlt = isDown(VK_RMENU);
    }
    if (virtualKey == VK_BACK && held.control && !held.shift && !held.rightAlt) {
        DeleteWordBefore();
        keySwallowed_ = true;  // otherwise its character would appear as a box in the text
        return true;
    }
    const NoteAction action = NoteKeyAction(virtualKey, held);
    const bool swallowed = action != NoteAction::None;
    keySwallowed_ = swallowed;
    // A held key acts once: Ctrl+W would otherwise close one note after the other.
    if (swallowed && !repeated) onAction(action);
    return swallowed;
}

}  // namespace quillo
