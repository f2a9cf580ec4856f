target_sources(quillo_shell PRIVATE
  reminders/reminder_form.cpp
  reminders/set_reminder_form.cpp
)
