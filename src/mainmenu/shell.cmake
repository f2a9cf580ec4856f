target_sources(quillo_shell PRIVATE
  mainmenu/menu_artwork.cpp
  mainmenu/notify_window.cpp
)
