#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "reminders/reminder_owner.h"

namespace quillo {

/// A note that only records the calls of its reminder's dialog and alert.
class RecordingOwner : public ReminderOwner {
  public:
    void SetReminder(DaySerial time) override {
        calls.emplace_back("set");
        when = time;
    }
    void CancelReminderByUser() override { calls.emplace_back("cancel"); }
    void MinimizeByUser() override { calls.emplace_back("minimize"); }
    void HideByUser() override { calls.emplace_back("hide"); }
    void ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) override {
        calls.emplace_back("balloon");
        balloonText = text;
        balloonTitle = title;
        balloonIcon = icon;
    }
    void Popup() override { calls.emplace_back("popup"); }
    void Activate() override { calls.emplace_back("activate"); }
    void SetReminderClosing() override { calls.emplace_back("dialog closing"); }
    void ReminderClosing() override { calls.emplace_back("alert closing"); }

    std::vector<std::string> calls;
    DaySerial when;
    std::u16string balloonText;
    std::u16string balloonTitle;
    BalloonIcon balloonIcon = BalloonIcon::None;
};

}  // namespace quillo
