target_sources(quillo_core PRIVATE
  app/command_line.cpp
  app/late_notes.cpp
  app/legacy_import.cpp
  app/note_identifier.cpp
  app/note_names.cpp
  app/note_opening.cpp
  app/notes_folder.cpp
  app/open_notes.cpp
  app/os_facts.cpp
  app/quit.cpp
  app/recovery.cpp
  app/save_all.cpp
  app/settings_table.cpp
  app/sound_choice.cpp
  app/shared_texts.cpp
  app/startup.cpp
)
