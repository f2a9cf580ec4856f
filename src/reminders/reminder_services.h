#pragma once

#include "ports/date_services.h"

namespace quillo {

class AlertPlaces;
class Hints;
class MessageLoop;
class SoundDevice;
class UserNotice;
struct Settings;

/// What the dialogs in which reminders are set share.
struct ReminderDialogServices {
    const Settings& settings;
    const Hints& hints;
    DateServices dates;
    UserNotice& notice;
    MessageLoop& loop;
};

/// What the alerts of all reminders share.
struct AlertServices {
    const Settings& settings;
    SoundDevice& sound;
    MessageLoop& loop;
    AlertPlaces& places;
};

}  // namespace quillo
