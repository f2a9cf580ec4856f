target_sources(quillo_core PRIVATE
  mainmenu/options_controller.cpp
  mainmenu/options_table.cpp
)
