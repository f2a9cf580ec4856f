#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/accessible.h"
#include "platform/app_icons.h"
#include "platform/artwork.h"
#include "platform/drawn_window.h"
#include "platform/ui_timer.h"
#include "platform/unique_handle.h"
#include "reminders/alert_colors.h"
#include "reminders/reminder_services.h"
#include "util/units.h"

namespace quillo {

class ReminderOwner;

/// The alert of a due reminder: it shows the note's text above all windows and repeats the reminder's sound until the
/// user dismisses it, which shows the note again.
class ReminderForm : public DrawnWindow, private AccessibleSource {
  public:
    /// `owner` is the note, or null; borrowed.
    ReminderForm(ReminderOwner* owner, const AlertServices& services);
    ~ReminderForm() override { Destroy(); }

    /// Shows the alert, plays the sound and pumps waiting messages: on return the alert may already be dismissed and
    /// the note closed. Once per object; false on failure.
    bool Initialize(std::u16string_view text, const AlertColors& colors);
    /// Ends the alert without showing the note.
    void Unload() { Destroy(); }

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnCreate();
    void OnDestroy();
    void OnPressed(Point at);
    void OnReleased(Point at);
    void OnKeyDown(int virtualKey);
    void OnDpiChanged(int dpi, const RECT& suggested);
    void OnPaint() override;

    // AccessibleSource; the name is the note's text.
    [[nodiscard]] AccessiblePart Describe(int part) const override;
    void Activate(int part) override;

    void Dismiss();
    void PlaySound();
    void MakeFonts();
    void PaintStrip(HDC dc, int width) const;
    void PaintText(HDC dc, const Rect& area) const;
    void PaintGlyph(HDC dc, Glyph glyph, Point at) const;

    ReminderOwner* owner_;
    AlertServices services_;
    std::u16string text_;
    AlertPaint paint_;
    Scale scale_;
    WindowIcons icons_;
    FontHandle textFont_;
    FontHandle titleFont_;
    FontHandle hintFont_;
    std::optional<std::size_t> place_;  ///< in the cascade of alerts
    UiTimer soundTimer_;
    bool pressed_ = false;  ///< the button was pressed where a click dismisses
    AccessibleLink accessible_{*this};
};

}  // namespace quillo
