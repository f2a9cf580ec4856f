#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "controls/tray_record.h"

namespace quillo {

class LocaleText;

/// What the shell can be told about an icon; the numbers are the shell's.
enum class TrayCommand : std::uint32_t { Add = 0, Modify = 1, Delete = 2, SetVersion = 4 };

/// What an icon asks of the system.
class TrayShell {
  public:
    virtual ~TrayShell() = default;

    /// The window that the shell's messages go to; made at the first call. 0 when that fails.
    [[nodiscard]] virtual TrayHandle CallbackWindow() = 0;
    /// False when the shell refuses, and for a record without a window: that icon was never added.
    virtual bool Notify(TrayCommand command, const TrayRecord& record) = 0;

    /// Starts anew; 0 leaves the timer inert.
    virtual void StartBalloonTimer(std::uint32_t milliseconds) = 0;
    virtual void StopBalloonTimer() = 0;
    /// Once a second while it is enabled; enabling it twice changes nothing.
    virtual void EnableRetryTimer(bool enabled) = 0;
};

enum class TrayEvent { None, Click, RightClick, DblClick, BalloonClick };

/// The event behind one message of the shell, taken by itself.
[[nodiscard]] TrayEvent EventOf(std::uint32_t message);

/// Makes one event of the two messages that a newer shell sends for one click: the button-up and the selection.
class ClickMerger {
  public:
    /// Must see every message of the shell, also those that are dropped: they tell which press a selection is of.
    [[nodiscard]] TrayEvent Next(std::uint32_t message);
    /// What was pending belonged to an icon that is gone.
    void Reset() { selectionFollows_ = false; }

  private:
    bool selectionFollows_ = false;
};

/// In milliseconds, at most a minute; 0, an inert timer, for a timeout that is not positive.
[[nodiscard]] std::uint32_t BalloonInterval(std::int32_t timeoutSeconds);

/// The properties as a form keeps them, with the defaults of those it leaves out.
struct TrayProperties {
    std::u16string toolTipText;
    TrayHandle icon = 0;
    bool enabled = true;
    bool visible = true;
};

/// One icon in the notification area: what it holds, what it tells the shell and when, and which of the shell's
/// messages become events.
class TrayRules {
  public:
    TrayRules(TrayShell& shell, LocaleText& locale) : shell_(shell), locale_(locale) {}
    TrayRules(const TrayRules&) = delete;
    TrayRules& operator=(const TrayRules&) = delete;
    /// Takes a visible icon out of the notification area.
    ~TrayRules();

    /// For a new icon, once. Applies the visibility last, which adds the icon when there is a picture.
    void Load(const TrayProperties& properties);

    /// Whole, however much of it the shell shows.
    [[nodiscard]] const std::u16string& ToolTipText() const { return toolTipText_; }
    void SetToolTipText(std::u16string_view text);
    [[nodiscard]] TrayHandle Icon() const { return icon_; }
    /// Never adds the icon: an icon made visible without a picture comes with Recreate (intended: the visibility is
    /// acted upon when it changes, and only then).
    void SetIcon(TrayHandle icon);
    [[nodiscard]] bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    /// False also while a failed adding is being retried.
    [[nodiscard]] bool Visible() const { return shown_; }
    /// Acts only when the value changes. Intended: an icon that is being retried reads false, so that making it
    /// invisible does not end the retry; StopRetrying does.
    void SetVisible(bool visible);
    /// The icon is not wanted any more.
    void StopRetrying();

    void Recreate();
    void ShowBalloon(std::u16string_view text, std::u16string_view title, std::uint32_t iconType,
                     std::int32_t timeoutSeconds);
    void HideBalloon();

    void OnBalloonTimer();
    void OnRetryTimer();

    /// A handler is running: what the shell sends now is dropped.
    [[nodiscard]] bool Busy() const { return destroyed_ != nullptr; }
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
    bool shown_ = true;  ///< a new icon counts as visible although nothing was added yet
    bool enabled_ = true;
    bool retrying_ = false;
    ClickMerger merger_;
    bool* destroyed_ = nullptr;  ///< set while a handler runs: tells that the handler destroyed this object
};

}  // namespace quillo
