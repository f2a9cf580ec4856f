target_sources(quillo_core PRIVATE
  notes/screen_fit.cpp
  notes/note_face.cpp
)
