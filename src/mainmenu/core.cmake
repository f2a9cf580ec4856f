target_sources(quillo_core PRIVATE
  mainmenu/hotkey_choice.cpp
  mainmenu/menu_planes.cpp
  mainmenu/options_controller.cpp
  mainmenu/options_table.cpp
  mainmenu/update_link.cpp
  mainmenu/menu_map.cpp
  mainmenu/menu_shortcuts.cpp
  mainmenu/menu_slide.cpp
  mainmenu/menu_state.cpp
  mainmenu/slot_icons.cpp
)
