target_sources(quillo_core PRIVATE
  notes/note_commands.cpp
  notes/note_drop.cpp
  notes/note_face.cpp
  notes/note_file.cpp
  notes/note_store.cpp
  notes/note_tags.cpp
  notes/open_note.cpp
  notes/screen_fit.cpp
)
