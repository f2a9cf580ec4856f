#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/tray_rules.h"
#include "platform/ui_timer.h"
#include "platform/window.h"
#include "util/lifetime.h"

namespace quillo {

class LocaleText;

[[nodiscard]] inline TrayHandle ToTrayHandle(const void* handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

/// One icon in the notification area with its tool tip, its balloons and its mouse events. Uses no window and no handle
/// until it is shown for the first time.
///
/// A new control counts as visible although its icon has not been added: set its first state with LoadProperties.
class TesselTrayLite : private Window, private TrayShell {
  public:
    /// `locale` is borrowed.
    explicit TesselTrayLite(LocaleText& locale) : rules_(*this, locale) {}

    // Each handler may destroy the control. While one runs, further notifications are dropped.
    std::function<void()> onClick;
    std::function<void()> onRightClick;
    std::function<void()> onDblClick;
    std::function<void()> onBalloonClick;

    /// Called once, for a new control; adds the icon if it is visible and has a picture.
    void LoadProperties(const TrayProperties& properties) { rules_.Load(properties); }

    /// The whole text; the shell shows its first 63 characters.
    [[nodiscard]] const std::u16string& ToolTipText() const { return rules_.ToolTipText(); }
    void SetToolTipText(std::u16string_view text) { rules_.SetToolTipText(text); }
    [[nodiscard]] HICON Icon() const { return reinterpret_cast<HICON>(rules_.Icon()); }
    /// Borrowed. Changes the picture of an existing icon and never adds one.
    void SetIcon(HICON icon) { rules_.SetIcon(ToTrayHandle(icon)); }
    /// Enables or disables the events, nothing else.
    [[nodiscard]] bool Enabled() const { return rules_.Enabled(); }
    void SetEnabled(bool enabled) { rules_.SetEnabled(enabled); }
    /// False while the shell refuses the icon; adding it is retried once a second until it succeeds or StopRetrying is
    /// called.
    [[nodiscard]] bool Visible() const { return rules_.Visible(); }
    void SetVisible(bool visible) { rules_.SetVisible(visible); }
    void StopRetrying() { rules_.StopRetrying(); }

    /// Called when the task bar has been created again.
    void RecreateIcon() { rules_.Recreate(); }
    /// `iconType` is the shell's code for the balloon's icon. The balloon is hidden after `timeoutSeconds`, at most a
    /// minute; with 0 it stays until the shell removes it.
    void ShowBalloon(std::u16string_view text, std::u16string_view title, DWORD iconType, int timeoutSeconds);
    void HideBalloon() { rules_.HideBalloon(); }

    /// The hidden window that receives the shell's messages; null until the icon is shown for the first time.
    using Window::Handle;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    [[nodiscard]] TrayHandle CallbackWindow() override;
    bool Notify(TrayCommand command, const TrayRecord& record) override;
    void StartBalloonTimer(std::uint32_t milliseconds) override { balloonTimer_.Start(milliseconds); }
    void StopBalloonTimer() override { balloonTimer_.Stop(); }
    void EnableRetryTimer(bool enabled) override;

    void OnNotification(WPARAM wParam, LPARAM lParam);
    void Raise(TrayEvent event);

    UiTimer balloonTimer_{[this] { rules_.OnBalloonTimer(); }};
    UiTimer retryTimer_{[this] { rules_.OnRetryTimer(); }};
    Lifetime lifetime_;
    TrayRules rules_;  ///< last: its destructor may still call the shell
};

}  // namespace quillo
