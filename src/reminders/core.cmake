target_sources(quillo_core PRIVATE
  reminders/alert_colors.cpp
  reminders/alert_places.cpp
  reminders/clock_text.cpp
  reminders/date_add.cpp
  reminders/reminder_alert.cpp
  reminders/reminder_dialog.cpp
  reminders/reminder_phrase.cpp
  reminders/reminder_text.cpp
)
