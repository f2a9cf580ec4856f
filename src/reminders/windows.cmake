target_sources(quillo_windows PRIVATE
  reminders/reminder_form.cpp
  reminders/set_reminder_form.cpp
)
