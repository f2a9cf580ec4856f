target_sources(quillo_shell PRIVATE
  mainmenu/about_form.cpp
  mainmenu/main_form.cpp
  mainmenu/menu_artwork.cpp
  mainmenu/menu_drop_target.cpp
  mainmenu/menu_picture.cpp
  mainmenu/notify_window.cpp
  mainmenu/shortcut_icon.cpp
)
