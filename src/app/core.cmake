target_sources(quillo_core PRIVATE
  app/note_identifier.cpp
  app/notes_folder.cpp
  app/open_notes.cpp
  app/os_facts.cpp
)
