#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "controls/tray_record.h"
#include "util/lifetime.h"

namespace quillo {

class LocaleText;

/// The commands to the shell for an icon; the numbers are the shell's.
enum class TrayCommand : std::uint32_t { Add = 0, Modify = 1, Delete = 2, SetVersion = 4 };

/// The system calls that an icon needs.
class TrayShell {
  public:
    virtual ~TrayShell() = default;

    /// The window that receives the shell's messages, created by the first call. 0 on failure.
    [[nodiscard]] virtual TrayHandle CallbackWindow() = 0;
    /// False if the shell refuses, and for a record without a window: that icon was never added.
    virtual bool Notify(TrayCommand command, const TrayRecord& record) = 0;

    /// Restarts the timer; 0 leaves it inactive.
    virtual void StartBalloonTimer(std::uint32_t milliseconds) = 0;
    virtual void StopBalloonTimer() = 0;
    /// Ticks once a second while enabled; enabling it twice has no effect.
    virtual void EnableRetryTimer(bool enabled) = 0;
};

enum class TrayEvent { None, Click, RightClick, DblClick, BalloonClick };

/// The event for one message of the shell, considered alone.
[[nodiscard]] TrayEvent EventOf(std::uint32_t message);

/// Merges the two messages that a newer shell sends for one click, the button-up and the selection, into one event.
class ClickMerger {
  public:
    /// Must get every message of the shell, including dropped ones: they show which press a selection belongs to.
    [[nodiscard]] TrayEvent Next(std::uint32_t message);
    /// Discards the pending state of an icon that was removed.
    void Reset() { selectionFollows_ = false; }

  private:
    bool selectionFollows_ = false;
};

/// In milliseconds, at most a minute; 0, an inactive timer, for a timeout that is not positive.
[[nodiscard]] std::uint32_t BalloonInterval(std::int32_t timeoutSeconds);

/// The properties as a form stores them, with defaults for those that it omits.
struct TrayProperties {
    std::u16string toolTipText;
    TrayHandle icon = 0;
    bool enabled = true;
    bool visible = true;
};

/// One icon in the notification area: its state, what it sends to the shell and when, and which of the shell's messages
/// become events.
class TrayRules {
  public:
    TrayRules(TrayShell& shell, LocaleText& locale) : shell_(shell), locale_(locale) {}
    TrayRules(const TrayRules&) = delete;
    TrayRules& operator=(const TrayRules&) = delete;
    /// Removes a visible icon from the notification area.
    ~TrayRules();

    /// Called once, for a new icon. Applies the visibility last, which adds the icon if it has a picture.
    void Load(const TrayProperties& properties);

    /// The whole text, however much of it the shell shows.
    [[nodiscard]] const std::u16string& ToolTipText() const { return toolTipText_; }
    void SetToolTipText(std::u16string_view text);
    [[nodiscard]] TrayHandle Icon() const { return icon_; }
    /// Never adds the icon: an icon made visible without a picture is added by Recreate (intended: only a change of the
    /// visibility acts).
    void SetIcon(TrayHandle icon);
    [[nodiscard]] bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    /// False also while a failed addition is being retried.
    [[nodiscard]] bool Visible() const { return shown_; }
    /// Acts only if the value changes. Intended: an icon that is being retried reads false, so that making it invisible
    /// does not end the retry; StopRetrying does.
    void SetVisible(bool visible);
    /// Ends the retry because the icon is no longer wanted.
    void StopRetrying();

    void Recreate();
    void ShowBalloon(std::u16string_view text, std::u16string_view title, std::uint32_t iconType,
                     std::int32_t timeoutSeconds);
    void HideBalloon();

    void OnBalloonTimer();
    void OnRetryTimer();

    /// True while a handler runs: messages from the shell are dropped meanwhile.
    [[nodiscard]] bool Busy() const { return lifetime_.IsRaising(); }
    /// `raise` is called at most once; it may destroy this object.
    void Receive(std::uint32_t message, const std::function<void(TrayEvent)>& raise);

  private:
    void Add();
    void Modify();
    void Delete();

    TrayShell& shell_;
    LocaleText& locale_;
    TrayRecord record_{};
    std::u16string toolTipText_;
    TrayHandle icon_ = 0;
    bool shown_ = true;  ///< a new icon counts as visible although it has not been added yet
    bool enabled_ = true;
    bool retrying_ = false;
    ClickMerger merger_;
    Lifetime lifetime_;
};

}  // namespace quillo
