target_sources(quillo_core PRIVATE
  notes/screen_fit.cpp
  notes/note_face.cpp
  notes/note_drop.cpp
  notes/open_note.cpp
  notes/note_file.cpp
  notes/note_keys.cpp
  notes/note_store.cpp
  notes/note_tags.cpp
)
