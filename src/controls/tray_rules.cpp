#include "controls/tray_rules.h"

namespace quillo {
namespace {

// The messages of the shell: mouse messages of the system, and its own notifications from 1024 on.
constexpr std::uint32_t kMouseMove = 512;
constexpr std::uint32_t kLeftUp = 514;
constexpr std::uint32_t kLeftDoubleClick = 515;
constexpr std::uint32_t kRightUp = 517;
constexpr std::uint32_t kContextMenu = 123;
constexpr std::uint32_t kSelect = 1024;
constexpr std::uint32_t kKeySelect = 1025;
constexpr std::uint32_t kBalloonClick = 1029;

constexpr std::int32_t kLongestBalloonSeconds = 60;
constexpr std::int32_t kHidingTimeoutSeconds = 10;

}  // namespace

TrayEvent EventOf(std::uint32_t message) {
    switch (message) {
        case kLeftUp:
        case kSelect:
        case kKeySelect:
            return TrayEvent::Click;
        case kRightUp:
        case kContextMenu:  // after the button-up of the same press (intended: two events, as the shell sends two)
            return TrayEvent::RightClick;
        case kLeftDoubleClick:
            return TrayEvent::DblClick;
        case kBalloonClick:
            return TrayEvent::BalloonClick;
        default:
            return TrayEvent::None;
    }
}

TrayEvent ClickMerger::Next(std::uint32_t message) {
    if (message == kMouseMove) return TrayEvent::None;  // the pointer may move a little between the two
    const bool sameClick = message == kSelect && selectionFollows_;
    selectionFollows_ = message == kLeftUp;
    return sameClick ? TrayEvent::None : EventOf(message);
}

std::uint32_t BalloonInterval(std::int32_t timeoutSeconds) {
    constexpr std::uint32_t kMilliseconds = 1000;
    if (timeoutSeconds <= 0) return 0;
    if (timeoutSeconds > kLongestBalloonSeconds) timeoutSeconds = kLongestBalloonSeconds;
    return static_cast<std::uint32_t>(timeoutSeconds) * kMilliseconds;
}

TrayRules::~TrayRules() {
    if (shown_) Delete();
}

void TrayRules::Load(const TrayProperties& properties) {
    toolTipText_ = properties.toolTipText;
    icon_ = properties.icon;
    enabled_ = properties.enabled;
    shown_ = false;  // so that the loaded visibility is applied as a change
    SetVisible(properties.visible);
}

void TrayRules::SetToolTipText(std::u16string_view text) {
    toolTipText_ = text;
    WriteTip(record_, toolTipText_, locale_);
    Modify();
}

void TrayRules::SetIcon(TrayHandle icon) {
    icon_ = icon;
    if (icon == 0) return;
    record_.icon = icon;
    Modify();
}

void TrayRules::StopRetrying() {
    if (!retrying_) return;
    retrying_ = false;
    shell_.EnableRetryTimer(false);
}

void TrayRules::SetVisible(bool visible) {
    if (visible == shown_) return;
    shown_ = visible;
    if (visible) {
        Add();
    } else {
        Delete();
    }
}

void TrayRules::Recreate() {
    Delete();
    Add();
}

void TrayRules::ShowBalloon(std::u16string_view text, std::u16string_view title, std::uint32_t iconType,
                            std::int32_t timeoutSeconds) {
    WriteBalloon(record_, text, title, iconType, timeoutSeconds, locale_);
    record_.flags |= kTrayBalloonFlag;
    shell_.Notify(TrayCommand::Modify, record_);
    if (text.empty() && title.empty()) {
        shell_.StopBalloonTimer();
    } else {
        shell_.StartBalloonTimer(BalloonInterval(timeoutSeconds));
    }
    // A later change of tip or picture must not show the balloon again.
    record_.flags &= ~kTrayBalloonFlag;
}

void TrayRules::HideBalloon() {
    ShowBalloon({}, {}, 0, kHidingTimeoutSeconds);
}

void TrayRules::OnBalloonTimer() {
    shell_.StopBalloonTimer();
    HideBalloon();
}

void TrayRules::OnRetryTimer() {
    shown_ = true;
    Add();
    retrying_ = !shown_;
    shell_.EnableRetryTimer(retrying_);
}

void TrayRules::Receive(std::uint32_t message, const std::function<void(TrayEvent)>& raise) {
    const TrayEvent event = merger_.Next(message);
    if (Busy() || !enabled_ || event == TrayEvent::None) return;
    lifetime_.RaiseLast(raise, event);
}

void TrayRules::Add() {
    if (icon_ == 0) return;
    merger_.Reset();
    FillForAdding(record_, shell_.CallbackWindow(), icon_);
    WriteTip(record_, toolTipText_, locale_);
    if (!shell_.Notify(TrayCommand::Add, record_)) {
        shown_ = false;
        retrying_ = true;
        shell_.EnableRetryTimer(true);
        return;
    }
    shell_.Notify(TrayCommand::SetVersion, record_);
    if (retrying_) {
        // Set here and not by the timer: another attempt would find the icon present and retry forever.
        shown_ = true;
        retrying_ = false;
        shell_.EnableRetryTimer(false);
    }
}

void TrayRules::Modify() {
    if (icon_ != 0) shell_.Notify(TrayCommand::Modify, record_);
}

void TrayRules::Delete() {
    shell_.Notify(TrayCommand::Delete, record_);
}

}  // namespace quillo
