target_sources(quillo_core_tests PRIVATE
  unit/reminders/alert_places_test.cpp
  unit/reminders/date_add_test.cpp
  unit/reminders/reminder_alert_test.cpp
  unit/reminders/reminder_dialog_test.cpp
  unit/reminders/reminder_phrase_date_test.cpp
  unit/reminders/reminder_phrase_test.cpp
  unit/reminders/reminder_text_test.cpp
)
