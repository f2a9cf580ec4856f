#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui_timer.h"
#include "platform/unique_handle.h"
#include "platform/window.h"
#include "reminders/reminder_controls.h"
#include "reminders/reminder_dialog.h"
#include "util/units.h"

namespace quillo {

struct ReminderTools;

/// The dialog in which the user types when a note is to remind them. What it decides is in ReminderDialog.
class SetReminderForm : public Window {
  public:
    /// `owner` is the note, or null; both are borrowed.
    SetReminderForm(ReminderOwner* owner, ReminderTools& tools);
    ~SetReminderForm() override { Destroy(); }

    /// Shows the dialog, owned by the note's window. `existing` is the note's reminder or kNoReminder. Once per
    /// object; false on failure.
    bool Initialize(HWND noteWindow, DaySerial existing);
    void BringForward();

    /// The window of one of its controls; null for the panels, which are only groups.
    [[nodiscard]] HWND ControlWindow(ReminderControl control) const;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnCreate();
    void OnDestroy();
    void OnCommand(int id, int notification);
    void OnDpiChanged(int dpi, const RECT& suggested);
    void OnErase(HDC dc) const;
    HBRUSH OnColorControl(HDC dc, HWND control) const;

    void CreateControls();
    void CreateToolTips();
    void WrapToolTips() const;
    void MakeFonts();
    void MeasureAndLayOut();
    [[nodiscard]] int ContentWidth(HDC dc) const;
    [[nodiscard]] int PreviewWidth(HDC dc) const;
    [[nodiscard]] int ButtonWidth(HDC dc, ReminderControl button) const;
    int LayOutMainPanel(HDC dc, int width);
    void LayOutCancelPanel(HDC dc, int width) const;
    void LayOutFoot(HDC dc, int width, int top);
    void LayOutMessage(HDC dc, int width);
    void FitWindow();

    void Press(bool ok);
    /// Shows what the dialog's members say.
    void ShowState(const ReminderStep& step);
    void UpdatePreview();
    void SelectBox() const;
    [[nodiscard]] std::u16string TextOfBox() const;
    [[nodiscard]] std::u16string CaptionOf(ReminderControl control) const;
    [[nodiscard]] HFONT FontOf(ReminderControl control) const;

    ReminderOwner* owner_;
    ReminderTools& tools_;
    std::unique_ptr<ReminderDialog> dialog_;
    DaySerial existing_ = kNoReminder;
    DaySerial opened_;  ///< the moment that the examples are made from
    Scale scale_;
    FontHandle font_;
    FontHandle headingFont_;
    FontHandle strongFont_;  ///< of the reminder that is set
    BrushHandle messageBrush_;
    HWND toolTips_ = nullptr;
    UiTimer previewTimer_;  ///< a phrase such as "in 15 minutes" means another time every second
    int clientWidth_ = 0;
    int footTop_ = 0;
    int footBottom_ = 0;     ///< where the message's container starts
    int messageHeight_ = 0;  ///< of the container
};

}  // namespace quillo
