target_sources(quillo_core PRIVATE
  notes/hide_hint.cpp
  notes/note_codec.cpp
  notes/note_color_dialog.cpp
  notes/note_commands.cpp
  notes/note_drop.cpp
  notes/note_face.cpp
  notes/note_mail.cpp
  notes/note_print.cpp
  notes/note_store.cpp
  notes/open_note.cpp
  notes/open_note_sharing.cpp
  notes/print_lines.cpp
  notes/screen_fit.cpp
  notes/unicode_element.cpp
)
