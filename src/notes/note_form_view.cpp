#include "notes/note_batch.h"
#include "notes/note_form.h"
#include "notes/screen_fit.h"
#include "platform/dpi.h"
#include "platform/gdi_scope.h"
#include "platform/monitors.h"
#include "platform/window_effects.h"
#include "ports/clock.h"
#include "ports/locale_text.h"
#include "ports/random.h"
#include "util/flag_scope.h"

// What the note asks of its window; the handlers of the window are in note_form.cpp.

namespace quillo {
namespace {

/// The place at the system's resolution, the size at the resolution of its own monitor.
TwipsRect ToTwips(const Rect& place, const Scale& own) {
    const Scale screen = SystemScale();
    return TwipsRect{screen.ToTwips(Pixels{place.left}).value, screen.ToTwips(Pixels{place.top}).value,
                     own.ToTwips(Pixels{place.width}).value, own.ToTwips(Pixels{place.height}).value};
}

}  // namespace

Rect NoteForm::FirstPlace(const std::optional<NotePosition>& position) {
    // Drawn for every window, also for one with a stored place.
    const double r1 = services_.desktop.random.Next();
    const double r2 = services_.desktop.random.Next();
    const Scale scale = SystemScale();
    const auto inTwips = [&scale](int pixels) { return static_cast<int>(scale.ToTwips(Pixels{pixels}).value); };
    const auto inPixels = [&scale](int twips) { return scale.ToPixels(Twips{static_cast<float>(twips)}).value; };
    const std::vector<Monitor>& monitors = services_.desktop.monitors.All();
    const Rect screen = monitors.empty() ? Rect{} : monitors.front().place;
    const Point corner =
        PlaceNewNote(Size{inTwips(screen.width), inTwips(screen.height)}, Size{kNewNoteWidth, kNewNoteHeight}, r1, r2);
    const Rect place{inPixels(corner.x), inPixels(corner.y), inPixels(kNewNoteWidth), inPixels(kNewNoteHeight)};
    if (!position) return place;
    return ToPixels(
        MovedTo(ToTwips(place, services_.desktop.monitors.ScaleAt(Point{place.left, place.top})), *position));
}

std::u16string NoteForm::Text() const {
    return messageBox_.Text();
}

bool NoteForm::SetText(std::u16string_view text) {
    const bool whole = messageBox_.SetText(text);
    if (Handle() != nullptr) UpdateTitle();  // the control reports no change that is made this way
    return whole;
}

bool NoteForm::InsertInFront(std::u16string_view text) {
    return messageBox_.InsertInFront(text);
}

TwipsRect NoteForm::Rectangle() const {
    return ToTwips(WindowPlace(), scale_);
}

void NoteForm::MoveTo(const TwipsRect& rectangle) {
    const Rect place = ToPixels(rectangle);
    if (IsIconic(Handle()) == 0 && place == WindowPlace()) return;
    Place(place, 0);
}

Rect NoteForm::ToPixels(const TwipsRect& rectangle) const {
    const Scale screen = SystemScale();
    const int left = screen.ToPixels(Twips{rectangle.left}).value;
    const int top = screen.ToPixels(Twips{rectangle.top}).value;
    const Scale there = services_.desktop.monitors.ScaleAt(Point{left, top});
    const Size wanted{there.ToPixels(Twips{rectangle.width}).value, there.ToPixels(Twips{rectangle.height}).value};
    const std::vector<Monitor>& monitors = services_.desktop.monitors.All();
    const Size size = monitors.empty() ? wanted : CutToDesktop(wanted, DesktopSizeOf(monitors));
    return Rect{left, top, size.width, size.height};
}

Rect NoteForm::WindowPlace() const {
    RECT window{};
    GetWindowRect(Handle(), &window);
    if (IsIconic(Handle()) == 0) return FromWin32(window);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    // A window outside the task bar, such as a note, has screen coordinates here.
    return GetWindowPlacement(Handle(), &placement) != 0 ? FromWin32(placement.rcNormalPosition) : FromWin32(window);
}

void NoteForm::RestoreIfMinimized() {
    if (IsIconic(Handle()) == 0) return;
    const FlagScope byProgram(placing_);
    ShowWindow(Handle(), SW_SHOWNOACTIVATE);
}

void NoteForm::MoveOntoScreen() {
    RestoreIfMinimized();
    const Rect place = WindowPlace();
    const Point fitted = PlaceOnScreen(place, WorkAreasOf(services_.desktop.monitors.All()));
    if (fitted == Point{place.left, place.top}) return;
    Place(Rect{fitted.x, fitted.y, 0, 0}, SWP_NOSIZE);
}

void NoteForm::Place(const Rect& place, UINT flags) {
    const FlagScope byProgram(placing_);
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.width, place.height,
                 flags | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool NoteForm::IsVisible() const {
    return IsWindowVisible(Handle()) != 0;
}

void NoteForm::Show() {
    const FlagScope byProgram(placing_);
    LayOut();
    ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    if (buttons_.IsCreated()) UpdateDropTarget();
}

void NoteForm::Hide() {
    ShowWindow(Handle(), SW_HIDE);
}

void NoteForm::BringToFront(bool pinned) {
    if (!pinned && services_.desktop.batch.IsInFront([this] { return quillo::IsInFront(Handle()); })) return;
    // A hovered button would receive the next press instead of the window that now covers it.
    NoteButton::EndHover();
    RestoreIfMinimized();
    // A window that is not active can come in front of another program's only by becoming topmost for a moment.
    SetTopmost(Handle(), true);
    if (!pinned) SetTopmost(Handle(), false);
}

bool NoteForm::TakesInput() const {
    return IsWindowEnabled(Handle()) != 0;
}

void NoteForm::Activate() {
    if (!TakesInput()) return;  // a dialog keeps the keyboard until it closes
    RestoreIfMinimized();
    SetForegroundWindow(Handle());
    SetFocus(messageBox_.Handle());
}

void NoteForm::ShowPinned(bool pinned) {
    SetTopmost(Handle(), pinned);
    buttons_.ShowPinned(pinned);
}

void NoteForm::SetOpacity(std::optional<int> alpha) {
    SetTranslucency(Handle(), alpha);
}

void NoteForm::Repaint() {
    // Without a window the call would redraw every window on the desktop; a hidden one is painted completely when it is
    // shown.
    if (Handle() != nullptr && IsVisible()) RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void NoteForm::ShowSaveProblem(std::u16string_view reason) {
    if (Handle() != nullptr) buttons_.ShowSaveProblem(Handle(), reason, Layout());
}

void NoteForm::Close() {
    if (Handle() != nullptr) dialogs_.CancelModal();
    Destroy();
}

}  // namespace quillo
