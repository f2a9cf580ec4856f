#pragma once

#include <memory>
#include <string>

#include "platform/dialog_window.h"
#include "platform/ui_timer.h"
#include "platform/unique_handle.h"
#include "reminders/reminder_controls.h"
#include "reminders/reminder_dialog.h"
#include "reminders/reminder_services.h"

namespace quillo {

/// The dialog in which the user types when to be reminded of a note. ReminderDialog has its logic.
class SetReminderForm : public DialogWindow {
  public:
    /// `owner` is the note, or null; borrowed.
    SetReminderForm(ReminderOwner* owner, const ReminderDialogServices& services);
    ~SetReminderForm() override { Destroy(); }

    /// Shows the dialog, owned by the note's window. `existing` is the note's reminder or kNoReminder. Once per object;
    /// false on failure.
    bool Initialize(HWND noteWindow, DaySerial existing);
    void BringForward();

    /// The window of one of its controls; null for the panels, which are only groups.
    [[nodiscard]] HWND ControlWindow(ReminderControl control) const;

  protected:
    void CreateControls() override;
    void LayOut(HDC dc) override;
    void OnCommand(int id, int notification) override;
    void OnGone() override;
    void OnFontsChanged() override;
    [[nodiscard]] HFONT FontOf(int id) const override;
    [[nodiscard]] int WidthOfButton(HDC dc, int id) const override;
    void PaintGround(HDC dc) const override;
    [[nodiscard]] HBRUSH ColorControl(HDC dc, HWND control) const override;

  private:
    void CreateToolTips();
    [[nodiscard]] int ContentWidth(HDC dc) const;
    [[nodiscard]] int PreviewWidth(HDC dc) const;
    [[nodiscard]] int LayOutMainPanel(HDC dc, int width) const;
    void LayOutCancelPanel(HDC dc, int width) const;
    void LayOutPreview(HDC dc, int buttonsLeft) const;
    void LayOutMessage(HDC dc, int width);
    void FitWindow() const;

    void Press(bool ok);
    /// Shows the state of the dialog's members.
    void ShowState(const ReminderStep& step);
    void UpdatePreview();
    void SelectBox() const;
    [[nodiscard]] std::u16string TextOfBox() const;
    [[nodiscard]] std::u16string CaptionOf(ReminderControl control) const;
    [[nodiscard]] HFONT FontOfControl(ReminderControl control) const;

    ReminderOwner* owner_;
    ReminderDialogServices services_;
    std::unique_ptr<ReminderDialog> dialog_;
    DaySerial existing_ = kNoReminder;
    DaySerial opened_;  ///< the time on which the examples are based
    BrushHandle messageBrush_;
    UiTimer previewTimer_;   ///< a phrase such as "in 15 minutes" means another time every second
    int messageHeight_ = 0;  ///< of the message's container, below the foot
};

}  // namespace quillo
