target_sources(quillo_core PRIVATE
  app/command_line.cpp
  app/late_notes.cpp
  app/legacy_import.cpp
  app/note_identifier.cpp
  app/note_opening.cpp
  app/open_notes.cpp
  app/quit.cpp
  app/recovery.cpp
  app/save_all.cpp
  app/startup.cpp
)
