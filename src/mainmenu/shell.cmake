target_sources(quillo_shell PRIVATE
  mainmenu/about_form.cpp
  mainmenu/content_panel.cpp
  mainmenu/key_box.cpp
  mainmenu/main_form.cpp
  mainmenu/menu_artwork.cpp
  mainmenu/menu_drop_target.cpp
  mainmenu/menu_picture.cpp
  mainmenu/note_preview.cpp
  mainmenu/notify_window.cpp
  mainmenu/options_appearance_page.cpp
  mainmenu/options_behavior_page.cpp
  mainmenu/options_form.cpp
  mainmenu/options_help_page.cpp
  mainmenu/options_shortcuts_page.cpp
  mainmenu/page_column.cpp
  mainmenu/shortcut_icon.cpp
)
