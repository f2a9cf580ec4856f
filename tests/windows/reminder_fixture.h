#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "../unit/reminders/recording_owner.h"
#include "app/base/hints.h"
#include "app/base/os_facts.h"
#include "app/base/settings.h"
#include "platform/message_loop.h"
#include "platform/text_tools.h"
#include "platform/window.h"
#include "reminders/alert_places.h"
#include "reminders/reminder_services.h"
#include "support.h"
#include "testing/fake_clock.h"
#include "testing/fake_locale_text.h"
#include "testing/fake_registry_api.h"
#include "testing/fake_sound_device.h"
#include "testing/fake_user_notice.h"

namespace quillo::windows_tests {

/// Writes dates as long as any user may have configured them.
class LongDates : public FakeLocaleText {
  public:
    [[nodiscard]] std::u16string ShortDate(DaySerial when) override {
        return longDates ? u"Mittwoch, 27. September 2028" : FakeLocaleText::ShortDate(when);
    }
    [[nodiscard]] std::u16string GeneralDate(DaySerial when) override {
        return longDates ? ShortDate(when) + u" " + LongTime(when) : FakeLocaleText::GeneralDate(when);
    }

    bool longDates = false;
};

/// The window of a note that does nothing.
class PlainWindow : public Window {
  public:
    PlainWindow() {
        WindowPlan plan;
        plan.className = L"QuilloTestNote";
        plan.style = WS_POPUP | WS_VISIBLE;
        plan.place = Rect{300, 200, 188, 163};
        Create(plan);
    }
    void End() { Destroy(); }

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return Default(message, wParam, lParam);
    }
};

/// The objects that a reminder's windows use, at 21 November 2026, 09:30.
struct ReminderWorld {
    Settings settings;
    OsFacts os;
    FakeRegistryApi registry;
    FakeClock clock;
    LongDates locale;
    FakeUserNotice notice;
    FakeSoundDevice sound;
    MessageLoop loop;
    Hints hints{notice, settings, os, registry};
    AlertPlaces places;
    ReminderDialogServices forDialogs{settings, hints, {clock, locale}, notice, loop};
    AlertServices forAlerts{settings, sound, loop, places};
    RecordingOwner owner;
    PlainWindow noteWindow;
};

/// Holds keys down for the messages sent in this scope.
class KeysDown {
  public:
    explicit KeysDown(std::vector<int> keys);
    KeysDown(const KeysDown&) = delete;
    KeysDown& operator=(const KeysDown&) = delete;
    ~KeysDown() { Hold(0); }

  private:
    void Hold(BYTE state);

    std::vector<int> keys_;
};

}  // namespace quillo::windows_tests
