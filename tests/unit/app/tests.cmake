target_sources(quillo_core_tests PRIVATE
  unit/app/command_line_test.cpp
  unit/app/hints_test.cpp
  unit/app/legacy_import_test.cpp
  unit/app/legacy_kill_test.cpp
  unit/app/locked_copy_test.cpp
  unit/app/note_names_test.cpp
  unit/app/note_opening_test.cpp
  unit/app/notes_folder_test.cpp
  unit/app/open_notes_test.cpp
  unit/app/os_facts_test.cpp
  unit/app/quit_test.cpp
  unit/app/recovery_test.cpp
  unit/app/settings_table_test.cpp
  unit/app/startup_test.cpp
  unit/app/sound_choice_test.cpp
)
