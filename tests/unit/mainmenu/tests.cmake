target_sources(quillo_core_tests PRIVATE
  unit/mainmenu/contrast_test.cpp
  unit/mainmenu/hotkey_choice_test.cpp
  unit/mainmenu/main_form_rules_test.cpp
  unit/mainmenu/menu_map_test.cpp
  unit/mainmenu/menu_planes_test.cpp
  unit/mainmenu/menu_shortcuts_test.cpp
  unit/mainmenu/menu_slide_test.cpp
  unit/mainmenu/menu_state_test.cpp
  unit/mainmenu/options_controller_test.cpp
  unit/mainmenu/options_table_test.cpp
  unit/mainmenu/slot_icons_test.cpp
  unit/mainmenu/update_link_test.cpp
)
