#include "testing/fake_note_view.h"

#include <utility>

#include "notes/screen_fit.h"
#include "util/units.h"

namespace quillo {

bool FakeNoteView::SetText(std::u16string_view text) {
    Record("SetText");
    if (!HasRoomFor(0, text.size())) return false;
    text_ = text.substr(0, text.find(u'\0'));
    return text_.size() == text.size();
}

bool FakeNoteView::InsertInFront(std::u16string_view text) {
    Record("InsertInFront");
    if (!HasRoomFor(text_.size(), text.size())) return false;
    text_.insert(0, text);
    return true;
}

void FakeNoteView::MoveTo(const TwipsRect& rectangle) {
    Record("MoveTo");
    rectangle_ = rectangle;
}

void FakeNoteView::MoveOntoScreen() {
    Record("MoveOntoScreen");
    const Scale scale;
    const auto pixels = [&scale](float twips) { return scale.ToPixels(Twips{twips}).value; };
    const Rect here{pixels(rectangle_.left), pixels(rectangle_.top), pixels(rectangle_.width),
                    pixels(rectangle_.height)};
    const Point place = PlaceOnScreen(here, {Rect{0, 0, 1920, 1040}});
    rectangle_.left = scale.ToTwips(Pixels{place.x}).value;
    rectangle_.top = scale.ToTwips(Pixels{place.y}).value;
}

void FakeNoteView::Show() {
    Record("Show");
    visible_ = true;
}

void FakeNoteView::Hide() {
    Record("Hide");
    visible_ = false;
}

void FakeNoteView::BringToFront(bool pinned) {
    Record(pinned ? "BringToFront pinned" : "BringToFront");
    onTop_ = pinned;
}

void FakeNoteView::Activate() {
    Record("Activate");
}

void FakeNoteView::ShowPinned(bool pinned) {
    Record(pinned ? "ShowPinned in" : "ShowPinned out");
    pinShown_ = pinned;
}

void FakeNoteView::SetOpacity(std::optional<int> alpha) {
    Record("SetOpacity " + (alpha ? std::to_string(*alpha) : "none"));
    opacity_ = alpha;
}

void FakeNoteView::ShowIcon(std::u16string_view caption) {
    Record("ShowIcon");
    caption_ = caption;
    iconShowing_ = !shellRefusesIcons;
}

void FakeNoteView::HideIcon() {
    Record("HideIcon");
    iconShowing_ = false;
}

void FakeNoteView::RecreateIcon() {
    if (iconShowing_) Record("RecreateIcon");
}

void FakeNoteView::ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) {
    Record("ShowIconBalloon " + std::to_string(static_cast<int>(icon)));
    balloonText_ = text;
    balloonTitle_ = title;
}

bool FakeNoteView::OpenReminderDialog(DaySerial existing) {
    Record("OpenReminderDialog");
    dialogReminder_ = existing;
    return !refuseReminderWindows;
}

void FakeNoteView::BringReminderDialogForward() {
    Record("BringReminderDialogForward");
}

bool FakeNoteView::OpenReminderAlert(std::u16string_view text) {
    Record("OpenReminderAlert");
    if (refuseReminderWindows) return false;
    alertText_ = text;
    if (whileAlertOpens) whileAlertOpens();
    return true;
}

bool FakeNoteView::OpenColorDialog(bool own, const ColorScheme& colors) {
    Record("OpenColorDialog");
    dialogOwnColors_ = own;
    dialogColors_ = colors;
    return !refuseColorDialog;
}

std::u16string FakeNoteView::AskCopyPath() {
    Record("AskCopyPath");
    if (whileCopyPathAsked) whileCopyPathAsked();
    return copyPath;
}

void FakeNoteView::ApplyAppearance(const Note& note, const Settings& /*settings*/) {
    Record("ApplyAppearance");
    applied_ = note;
}

void FakeNoteView::Repaint() {
    Record("Repaint");
}

void FakeNoteView::Close() {
    Record("Close");
    closed_ = true;
    visible_ = false;
    iconShowing_ = false;
}

std::vector<std::string> FakeNoteView::TakeCalls() {
    return std::exchange(calls_, {});
}

}  // namespace quillo
