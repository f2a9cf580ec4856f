#include "notes/open_note.h"

#include "app/base/hints.h"
#include "notes/hide_hint.h"
#include "notes/note_codec.h"
#include "notes/note_sharing.h"
#include "notes/note_title.h"
#include "notes/save_texts.h"
#include "ports/clock.h"
#include "ports/locale_text.h"
#include "ports/user_notice.h"
#include "util/ignore.h"
#include "util/text.h"

namespace quillo {

namespace {

constexpr std::u16string_view kCopyNotSaved = u"Quillo was unable to save a copy of this note.";
constexpr std::u16string_view kCopyElsewhere =
    u"Quillo was unable to save the copy where you wanted it.  It was saved under another name:\r\n\r\n";

}  // namespace

OpenNote::OpenNote(NoteOwner& owner, const NoteServices& services, std::u16string noteKey)
    : owner_(owner),
      services_(services),
      saver_(
          services.saving, note_, [this] { return Content(); },
          [this](FileError error) { window_->ShowSaveProblem(SaveProblemText(error)); }) {
    note_.NoteKey = std::move(noteKey);
    note_.NoteColor = services_.settings.noteColor;
    note_.BorderColor = services_.settings.noteBorderColor;
    note_.TextColor = services_.settings.noteTextColor;
}

std::unique_ptr<OpenNote> OpenNote::Open(NoteOwner& owner, const NoteServices& services, std::u16string noteKey,
                                         NoteWindowFactory& windows, const std::optional<NotePosition>& position) {
    std::unique_ptr<OpenNote> note(new OpenNote(owner, services, std::move(noteKey)));
    note->window_ = windows.MakeWindow(*note, position);
    return note->window_ ? std::move(note) : nullptr;
}

// The user's commands.

void OpenNote::Perform(NoteAction action) {
    switch (action) {
        case NoteAction::None:
        case NoteAction::SelectAll:
        case NoteAction::OpenMenu:
            return;
        case NoteAction::AskReminder:
            return AskReminder();
        case NoteAction::AddTimestamp:
            return AddTimestamp();
        case NoteAction::ToggleLargeText:
            return SetLargeText(!note_.LargeText);
        case NoteAction::ChangeColor:
            return AskNoteColor();
        case NoteAction::SaveCopy:
            return SaveNoteAs();
        case NoteAction::Mail:
            return MailNote();
        case NoteAction::Print:
            return PrintNote();
        case NoteAction::Hide:
            return HideWithHint();
        case NoteAction::QueryDelete:
            return QueryDeleteNote();
        case NoteAction::Close:
            return CloseNote();
        case NoteAction::ClickClose:
            return CloseButtonClick();
        case NoteAction::QuickDelete:
            return QuickDelete();
        case NoteAction::Minimize:
            return MinimizeByUser();
        case NoteAction::TogglePin:
            return SetPinned(!note_.Pinned);
        case NoteAction::NextNote:
            return GoToNeighbor(NoteDirection::Forward);
        case NoteAction::PreviousNote:
            return GoToNeighbor(NoteDirection::Backward);
        case NoteAction::Show:
            return ShowFromIcon();
    }
}

// The note file.

NoteFile OpenNote::Content() const {
    const TwipsRect place = window_->Rectangle();
    NoteFile file;
    file.text = window_->Text();
    file.position = NotePosition{place.left, place.top, place.width, place.height};
    file.appearance = Appearance();
    file.reminder = reminder_.Stored();
    return file;
}

bool OpenNote::IsTextOf(std::string_view bytes) const {
    return ParseNoteFile(bytes, services_.dates.locale).text == window_->Text();
}

std::u16string OpenNote::SaveNote(const SaveTarget& target) {
    return services_.saving.store.SaveNote(Content(), target).path;
}

bool OpenNote::SetupNoteFromTags(const NoteFile& file, std::u16string_view openedPath) {
    if (file.position) SetPosition(*file.position);
    if (file.reminder) reminder_.Apply(*file.reminder);
    const bool placed = file.appearance && Apply(*file.appearance);
    note_.FileName = FileNameOf(file, openedPath, note_.FileName, services_.dates.locale);
    return placed;
}

void OpenNote::SetPosition(const NotePosition& position) {
    window_->MoveTo(MovedTo(window_->Rectangle(), position));
}

NoteAppearance OpenNote::Appearance() const {
    // Whether the icon is visible does not matter: the shell may refuse it for a while.
    const WindowState hidden = iconWanted_ ? WindowState::Minimized : WindowState::Hidden;
    return NoteAppearance{note_.LargeText,   note_.OwnColors, note_.NoteColor,
                          note_.BorderColor, note_.TextColor, window_->IsVisible() ? WindowState::Shown : hidden};
}

std::u16string OpenNote::AppearanceString() const {
    return FormatAppearance(Appearance());
}

bool OpenNote::SetAppearanceString(std::u16string_view text) {
    return Apply(ParseAppearance(text, services_.dates.locale));
}

bool OpenNote::Apply(const NoteAppearance& appearance) {
    note_.LargeText = appearance.largeText.value_or(note_.LargeText);
    note_.OwnColors = appearance.ownColors.value_or(note_.OwnColors);
    note_.NoteColor = appearance.noteColor.value_or(note_.NoteColor);
    note_.BorderColor = appearance.borderColor.value_or(note_.BorderColor);
    note_.TextColor = appearance.textColor.value_or(note_.TextColor);
    if (appearance.state == WindowState::Shown) Popup();
    if (appearance.state == WindowState::Minimized) MinimizeToTray();
    if (appearance.state == WindowState::Hidden || appearance.state == WindowState::Minimized) window_->Hide();
    UpdateColors();
    return appearance.state.has_value();
}

std::u16string OpenNote::ReminderString() const {
    return FormatReminder(reminder_.Stored());
}

void OpenNote::SetReminderString(std::u16string_view text) {
    if (const auto reminder = ParseReminder(text, services_.dates.locale)) reminder_.Apply(*reminder);
}

void OpenNote::SaveNoteAs() {
    owner_.SaveUnsavedNotes();
    SaveTarget target;
    target.fileName = window_->Dialogs().AskCopyPath();
    target.overwrite = true;
    if (target.fileName.empty() || !IsOpen()) return;
    const std::u16string path = SaveNote(target);
    if (path.empty()) return services_.notice.Warn(kCopyNotSaved);
    if (path != target.fileName) services_.notice.Warn(std::u16string(kCopyElsewhere) + path);
}

// Appearance.

void OpenNote::SetOwnColors(ColorWord noteColor, ColorWord borderColor, ColorWord textColor) {
    note_.OwnColors = true;
    note_.NoteColor = noteColor;
    note_.BorderColor = borderColor;
    note_.TextColor = textColor;
    UpdateColors();
}

void OpenNote::SetColor(bool own, ColorWord noteColor, ColorWord borderColor, ColorWord textColor) {
    if (own) {
        SetOwnColors(noteColor, borderColor, textColor);
    } else {
        note_.OwnColors = false;
        UpdateColors();
    }
    MarkChanged();
}

void OpenNote::AskNoteColor() {
    // Intended also while the dialog shows another note: this note can open it again only after it has closed.
    if (colorDialogOpen_) return;
    colorDialogOpen_ = true;
    const ColorScheme colors{note_.NoteColor, note_.BorderColor, note_.TextColor};
    if (!window_->Dialogs().OpenColors(note_.OwnColors, colors)) colorDialogOpen_ = false;
}

void OpenNote::SetPinned(bool pinned) {
    note_.Pinned = pinned;
    window_->BringToFront(pinned);
    window_->ShowPinned(pinned);
}

void OpenNote::SetLargeText(bool large) {
    note_.LargeText = large;
    window_->ApplyAppearance(note_, services_.settings);
    MarkChanged();
}

void OpenNote::AddTimestamp() {
    if (window_->InsertInFront(TimeStampText(services_.dates.clock.Now(), services_.dates.locale))) MarkChanged();
}

void OpenNote::UpdateColors() {
    if (!note_.OwnColors) {
        note_.NoteColor = services_.settings.noteColor;
        note_.BorderColor = services_.settings.noteBorderColor;
        note_.TextColor = services_.settings.noteTextColor;
    }
    window_->ApplyAppearance(note_, services_.settings);
}

void OpenNote::SetNoteEffects() {
    // Intended also at 255, which looks the same: such a note is still layered.
    window_->SetOpacity(services_.settings.noteTransparency ? std::optional(services_.settings.noteOpacity)
                                                            : std::nullopt);
}

// Coming back to the screen.

void OpenNote::Popup() {
    if (!services_.settings.doNotAdjustNotes) window_->MoveOntoScreen();
    if (!window_->IsVisible()) window_->Show();
    if (std::exchange(iconWanted_, false)) window_->Icon().Hide();
    window_->BringToFront(note_.Pinned);
    SetNoteEffects();
}

void OpenNote::PopupByUser() {
    if (!window_->IsVisible()) MarkChanged();
    Popup();
}

void OpenNote::ShowFromIcon() {
    services_.notice.Play(SystemSound::RestoreUp);
    PopupByUser();
    window_->Activate();
}

// Leaving the screen.

void OpenNote::HideNote() {
    SetNoteEffects();
    window_->Hide();
}

void OpenNote::HideByUser() {
    HideNote();
    MarkChanged();
}

void OpenNote::HideWithHint() {
    HideByUser();
    ShowHideHintOnce(services_.hints);
    services_.notice.Play(SystemSound::RestoreDown);
}

void OpenNote::MinimizeToTray() {
    iconWanted_ = true;
    window_->Icon().Show(NoteIconCaption(window_->Text()));
}

void OpenNote::MinimizeByUser() {
    MinimizeToTray();
    HideByUser();
}

void OpenNote::ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) {
    window_->Icon().ShowBalloon(text, title, icon);
}

void OpenNote::CloseNote() {
    if (Trim(window_->Text()).empty() && !note_.ReminderSet) {
        DestroyNote();
        return;
    }
    services_.notice.Play(SystemSound::RestoreDown);
    if (services_.settings.minimizeToTray) {
        MinimizeByUser();
        return;
    }
    if (leaving_.Save(Content())) DestroyNote();
}

void OpenNote::CloseButtonClick() {
    if (!note_.ReminderSet || services_.settings.minimizeToTray) {
        CloseNote();
        return;
    }
    if (leaving_.ExplainHiding()) HideByUser();
}

void OpenNote::DeleteNote() {
    if (!services_.settings.dontRecycleNotes) {
        owner_.SaveUnsavedNotes();
        if (!leaving_.Recycle(Content())) return;
    }
    services_.notice.Play(SystemSound::RestoreDown);
    DestroyNote();
}

void OpenNote::QueryDeleteNote() {
    if (leaving_.MayDelete()) DeleteNote();
}

void OpenNote::QuickDelete() {
    // Intended without a question, even if nothing is recycled: the fast way to discard a note.
    if (!window_->Text().empty() && !services_.settings.dontRecycleNotes) {
        DeleteNote();
    } else {
        DestroyNote();
    }
}

void OpenNote::DestroyNote() {
    owner_.RemoveNote(note_.NoteKey);
    saver_.Stop();
    leaving_.DeleteStorageCopy();
    window_->Close();
}

void OpenNote::Unload() {
    saver_.Stop();
    window_->Close();
}

// Printing and mailing.

void OpenNote::PrintNote() {
    owner_.SaveUnsavedNotes();
    services_.sharing.Print(note_, window_->Text(), services_.settings.noteFont);
}

void OpenNote::MailNote() {
    owner_.SaveUnsavedNotes();
    services_.sharing.Mail(Content());
}

// Reminders.

void OpenNote::AskReminder() {
    reminder_.Ask(window_->Dialogs());
}

void OpenNote::SetReminder(DaySerial when) {
    reminder_.Set(when);
    MarkChanged();
    window_->Repaint();
}

void OpenNote::CancelReminder() {
    reminder_.Cancel();
    window_->Repaint();
}

void OpenNote::CancelReminderByUser() {
    CancelReminder();
    MarkChanged();
}

void OpenNote::TimerBroadcast() {
    const ReminderCheck check = reminder_.Check(services_.dates.clock.Now());
    if (check == ReminderCheck::Nothing) return;
    saver_.PersistNote();
    // Intended without marking the note changed: after a crash, an unanswered reminder is due again.
    CancelReminder();
    if (check != ReminderCheck::ClearAndAlert) return;
    hashBeforeAlert_ = saver_.StorageCopy().hash;
    // Messages are pumped: a user who has already dismissed the alert wants to see the note.
    if (reminder_.Alert(window_->Dialogs(), window_->Text()) && IsOpen()) HideNote();
}

void OpenNote::ReminderClosing() {
    reminder_.AlertClosed();
    // What was written meanwhile says that the note is hidden.
    if (saver_.StorageCopy().hash != hashBeforeAlert_) MarkChanged();
}

}  // namespace quillo
