#pragma once

#include "reminders/alert_places.h"

namespace quillo {

class Clock;
class LocaleText;
class MessageLoop;
class RegistryApi;
class SoundDevice;
class UserNotice;
struct OsFacts;
struct Settings;

/// What the windows of all reminders share. One object serves them all and outlives them.
struct ReminderTools {
    const Settings& settings;
    const OsFacts& os;
    RegistryApi& registry;
    Clock& clock;
    LocaleText& locale;
    UserNotice& notice;
    SoundDevice& sound;
    MessageLoop& loop;
    AlertPlaces places{};
};

}  // namespace quillo
