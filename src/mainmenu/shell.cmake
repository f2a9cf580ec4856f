target_sources(quillo_shell PRIVATE
  mainmenu/about_form.cpp
  mainmenu/menu_artwork.cpp
  mainmenu/notify_window.cpp
)
