#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_view.h"

namespace quillo {

/// A NoteWindow without a window, with its icon and its dialogs: it behaves like one at 96 dpi on a screen of 1920 by
/// 1040 pixels and records the calls, in order.
class FakeNoteWindow : public NoteWindow {
  public:
    [[nodiscard]] NoteIcon& Icon() override { return icon_; }
    [[nodiscard]] NoteDialogs& Dialogs() override { return dialogs_; }
    [[nodiscard]] std::u16string Text() const override {
        if (onTextRead) onTextRead();
        return text_;
    }
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
    [[nodiscard]] bool IsIconShowing() const { return iconShowing_; }
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
    std::function<void()> onTextRead;          ///< called whenever the text is read; may throw
    std::function<void()> whileAlertOpens;     ///< the messages handled meanwhile
    std::u16string copyPath;                   ///< the user's answer when asked for a file
    std::function<void()> whileCopyPathAsked;  ///< the messages handled meanwhile
    /// The note as its appearance was last applied.
    [[nodiscard]] const Note& Applied() const { return applied_; }

  private:
    class FakeIcon : public NoteIcon {
      public:
        explicit FakeIcon(FakeNoteWindow& window) : window_(window) {}
        void Show(std::u16string_view caption) override;
        void Hide() override;
        void Recreate() override;
        void ShowBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) override;

      private:
        FakeNoteWindow& window_;
    };
    class FakeDialogs : public NoteDialogs {
      public:
        explicit FakeDialogs(FakeNoteWindow& window) : window_(window) {}
        [[nodiscard]] bool OpenReminder(DaySerial existing) override;
        void BringReminderForward() override;
        [[nodiscard]] bool OpenAlert(std::u16string_view text) override;
        [[nodiscard]] bool OpenColors(bool own, const ColorScheme& colors) override;
        [[nodiscard]] std::u16string AskCopyPath() override;

      private:
        FakeNoteWindow& window_;
    };

    void Record(std::string call) { calls_.push_back(std::move(call)); }

    FakeIcon icon_{*this};
    FakeDialogs dialogs_{*this};
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

/// Gives every note a fake window, and keeps these in the order of their creation.
class FakeNoteWindows : public NoteWindowFactory {
  public:
    [[nodiscard]] std::unique_ptr<NoteWindow> MakeWindow(OpenNote& note,
                                                         const std::optional<NotePosition>& position) override;
    [[nodiscard]] std::size_t Count() const { return windows_.size(); }
    /// Valid until its note has been released.
    [[nodiscard]] FakeNoteWindow& View(std::size_t index) const { return *windows_.at(index); }
    [[nodiscard]] FakeNoteWindow& Last() const { return *windows_.back(); }
    [[nodiscard]] OpenNote& Note(std::size_t index) const { return *notes_.at(index); }

    /// Called before each window is created.
    std::function<void()> onMake;
    /// The place that was requested for each window.
    std::vector<std::optional<NotePosition>> positions;
    /// How many windows the system can create in all.
    std::size_t room = std::numeric_limits<std::size_t>::max();

  private:
    std::vector<OpenNote*> notes_;
    std::vector<FakeNoteWindow*> windows_;
};

}  // namespace quillo
