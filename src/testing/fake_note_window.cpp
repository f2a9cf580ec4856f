#include "testing/fake_note_window.h"

#include <utility>

#include "notes/screen_fit.h"
#include "util/units.h"

namespace quillo {

bool FakeNoteWindow::SetText(std::u16string_view text) {
    Record("SetText");
    if (!FitsInNote(0, text.size())) return false;
    text_ = text.substr(0, text.find(u'\0'));
    return text_.size() == text.size();
}

bool FakeNoteWindow::InsertInFront(std::u16string_view text) {
    Record("InsertInFront");
    if (!FitsInNote(text_.size(), text.size())) return false;
    text_.insert(0, text);
    return true;
}

void FakeNoteWindow::MoveTo(const TwipsRect& rectangle) {
    Record("MoveTo");
    rectangle_ = rectangle;
}

void FakeNoteWindow::MoveOntoScreen() {
    Record("MoveOntoScreen");
    const Scale scale;
    const auto pixels = [&scale](float twips) { return scale.ToPixels(Twips{twips}).value; };
    const Rect here{pixels(rectangle_.left), pixels(rectangle_.top), pixels(rectangle_.width),
                    pixels(rectangle_.height)};
    const Point place = PlaceOnScreen(here, {Rect{0, 0, 1920, 1040}});
    rectangle_.left = scale.ToTwips(Pixels{place.x}).value;
    rectangle_.top = scale.ToTwips(Pixels{place.y}).value;
}

void FakeNoteWindow::Show() {
    Record("Show");
    visible_ = true;
}

void FakeNoteWindow::Hide() {
    Record("Hide");
    visible_ = false;
}

void FakeNoteWindow::BringToFront(bool pinned) {
    Record(pinned ? "BringToFront pinned" : "BringToFront");
    onTop_ = pinned;
}

void FakeNoteWindow::Activate() {
    Record("Activate");
}

void FakeNoteWindow::ShowPinned(bool pinned) {
    Record(pinned ? "ShowPinned in" : "ShowPinned out");
    pinShown_ = pinned;
}

void FakeNoteWindow::SetOpacity(std::optional<int> alpha) {
    Record("SetOpacity " + (alpha ? std::to_string(*alpha) : "none"));
    opacity_ = alpha;
}

void FakeNoteWindow::FakeIcon::Show(std::u16string_view caption) {
    window_.Record("ShowIcon");
    window_.caption_ = caption;
    window_.iconShowing_ = !window_.shellRefusesIcons;
}

void FakeNoteWindow::FakeIcon::Hide() {
    window_.Record("HideIcon");
    window_.iconShowing_ = false;
}

void FakeNoteWindow::FakeIcon::Recreate() {
    if (window_.iconShowing_) window_.Record("RecreateIcon");
}

void FakeNoteWindow::FakeIcon::ShowBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) {
    window_.Record("ShowIconBalloon " + std::to_string(static_cast<int>(icon)));
    window_.balloonText_ = text;
    window_.balloonTitle_ = title;
}

bool FakeNoteWindow::FakeDialogs::OpenReminder(DaySerial existing) {
    window_.Record("OpenReminderDialog");
    window_.dialogReminder_ = existing;
    return !window_.refuseReminderWindows;
}

void FakeNoteWindow::FakeDialogs::BringReminderForward() {
    window_.Record("BringReminderDialogForward");
}

bool FakeNoteWindow::FakeDialogs::OpenAlert(std::u16string_view text) {
    window_.Record("OpenReminderAlert");
    if (window_.refuseReminderWindows) return false;
    window_.alertText_ = text;
    if (window_.whileAlertOpens) window_.whileAlertOpens();
    return true;
}

bool FakeNoteWindow::FakeDialogs::OpenColors(bool own, const ColorScheme& colors) {
    window_.Record("OpenColorDialog");
    window_.dialogOwnColors_ = own;
    window_.dialogColors_ = colors;
    return !window_.refuseColorDialog;
}

std::u16string FakeNoteWindow::FakeDialogs::AskCopyPath() {
    window_.Record("AskCopyPath");
    if (window_.whileCopyPathAsked) window_.whileCopyPathAsked();
    return window_.copyPath;
}

void FakeNoteWindow::ApplyAppearance(const Note& note, const Settings& /*settings*/) {
    Record("ApplyAppearance");
    applied_ = note;
}

void FakeNoteWindow::Repaint() {
    Record("Repaint");
}

void FakeNoteWindow::Close() {
    Record("Close");
    closed_ = true;
    visible_ = false;
    iconShowing_ = false;
}

std::vector<std::string> FakeNoteWindow::TakeCalls() {
    return std::exchange(calls_, {});
}

std::unique_ptr<NoteWindow> FakeNoteWindows::MakeWindow(OpenNote& note, const std::optional<NotePosition>& position) {
    if (onMake) onMake();
    if (windows_.size() >= room) return nullptr;
    auto window = std::make_unique<FakeNoteWindow>();
    positions.push_back(position);
    notes_.push_back(&note);
    windows_.push_back(window.get());
    return window;
}

}  // namespace quillo
