#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_view.h"

namespace quillo {

/// A NoteView without a window: it behaves like one at 96 dpi on a screen of 1920 by 1040 pixels and records the calls,
/// in order.
class FakeNoteView : public NoteView {
  public:
    [[nodiscard]] std::u16string Text() const override { return text_; }
    [[nodiscard]] bool SetText(std::u16string_view text) override;
    [[nodiscard]] bool InsertInFront(std::u16string_view text) override;
    [[nodiscard]] TwipsRect Rectangle() const override { return rectangle_; }
    void MoveTo(const TwipsRect& rectangle) override;
    void MoveOntoScreen() override;
    [[nodiscard]] bool IsVisible() const override { return visible_; }
    void Show() override;
    void Hide() override;
    void BringToFront(bool pinned) override;
    void Activate() override;
    void ShowPinned(bool pinned) override;
    void SetOpacity(std::optional<int> alpha) override;
    [[nodiscard]] bool IsIconShowing() const { return iconShowing_; }
    void ShowIcon(std::u16string_view caption) override;
    void HideIcon() override;
    void RecreateIcon() override;
    void ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) override;
    [[nodiscard]] bool OpenReminderDialog(DaySerial existing) override;
    void BringReminderDialogForward() override;
    [[nodiscard]] bool OpenReminderAlert(std::u16string_view text) override;
    [[nodiscard]] bool OpenColorDialog(bool own, const ColorScheme& colors) override;
    [[nodiscard]] std::u16string AskCopyPath() override;
    void ApplyAppearance(const Note& note, const Settings& settings) override;
    void Repaint() override;
    void ShowSaveProblem(std::u16string_view reason) override { saveProblem_ = reason; }
    void Close() override;

    /// "Show", "SetOpacity 192", "BringToFront pinned" ... since the previous TakeCalls.
    [[nodiscard]] std::vector<std::string> TakeCalls();
    [[nodiscard]] bool IsClosed() const { return closed_; }
    [[nodiscard]] bool IsOnTop() const { return onTop_; }
    [[nodiscard]] bool IsPinShown() const { return pinShown_; }
    [[nodiscard]] std::optional<int> Opacity() const { return opacity_; }
    [[nodiscard]] const std::u16string& IconCaption() const { return caption_; }
    [[nodiscard]] const std::u16string& BalloonText() const { return balloonText_; }
    [[nodiscard]] const std::u16string& BalloonTitle() const { return balloonTitle_; }
    /// The value that the reminder dialog was opened with.
    [[nodiscard]] DaySerial DialogReminder() const { return dialogReminder_; }
    [[nodiscard]] const std::u16string& AlertText() const { return alertText_; }
    /// "" while the note is saved.
    [[nodiscard]] const std::u16string& SaveProblem() const { return saveProblem_; }

    /// The value that the color dialog was opened with.
    [[nodiscard]] bool DialogOwnColors() const { return dialogOwnColors_; }
    [[nodiscard]] const ColorScheme& DialogColors() const { return dialogColors_; }

    bool refuseReminderWindows = false;  ///< true if the system cannot create another window
    bool refuseColorDialog = false;
    bool shellRefusesIcons = false;            ///< true if there is no task bar yet
    std::function<void()> whileAlertOpens;     ///< the messages handled meanwhile
    std::u16string copyPath;                   ///< the user's answer when asked for a file
    std::function<void()> whileCopyPathAsked;  ///< the messages handled meanwhile
    /// The note as its appearance was last applied.
    [[nodiscard]] const Note& Applied() const { return applied_; }

  private:
    void Record(std::string call) { calls_.push_back(std::move(call)); }

    std::u16string text_;
    std::u16string caption_;
    std::u16string balloonText_;
    std::u16string balloonTitle_;
    std::u16string alertText_;
    std::u16string saveProblem_;
    DaySerial dialogReminder_;
    ColorScheme dialogColors_{};
    bool dialogOwnColors_ = false;
    TwipsRect rectangle_{7200, 3600, 2820, 2445};
    Note applied_;
    std::optional<int> opacity_;
    bool visible_ = false;
    bool iconShowing_ = false;
    bool onTop_ = false;
    bool pinShown_ = false;
    bool closed_ = false;
    std::vector<std::string> calls_;
};

}  // namespace quillo
