target_sources(quillo_shell PRIVATE
  mainmenu/notify_window.cpp
)
