target_sources(quillo_testing PRIVATE
  testing/fake_registry_api.cpp
  testing/fakes.cpp
  testing/recording_canvas.cpp
  testing/recording_printer.cpp
  testing/recording_mail.cpp
  testing/fake_date_reader.cpp
  testing/fake_file_store.cpp
  testing/fake_locale_text.cpp
  testing/fake_note_window.cpp
  testing/fake_shell.cpp
)
