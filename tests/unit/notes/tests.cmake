target_sources(quillo_core_tests PRIVATE
  unit/notes/note_color_dialog_test.cpp
  unit/notes/note_commands_test.cpp
  unit/notes/note_drop_test.cpp
  unit/notes/note_face_test.cpp
  unit/notes/note_codec_test.cpp
  unit/notes/note_mail_test.cpp
  unit/notes/note_print_test.cpp
  unit/notes/note_saver_test.cpp
  unit/notes/note_store_test.cpp
  unit/notes/open_note_commands_test.cpp
  unit/notes/open_note_leaving_test.cpp
  unit/notes/open_note_reminder_test.cpp
  unit/notes/open_note_sharing_test.cpp
  unit/notes/open_note_test.cpp
  unit/notes/print_lines_test.cpp
  unit/notes/screen_fit_test.cpp
)
