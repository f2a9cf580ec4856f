target_sources(quillo_core PRIVATE
  app/base/hints.cpp
  app/base/note_names.cpp
  app/base/notes_folder.cpp
  app/base/os_facts.cpp
  app/base/program_shortcut.cpp
  app/base/settings_table.cpp
  app/base/sound_choice.cpp
)
