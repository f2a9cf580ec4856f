target_sources(quillo_core_tests PRIVATE
  unit/controls/button_state_test.cpp
  unit/controls/button_strip_test.cpp
  unit/controls/divider_geometry_test.cpp
  unit/controls/icon_compositing_test.cpp
  unit/controls/slider_track_test.cpp
  unit/controls/swatch_palette_test.cpp
  unit/controls/swatch_strip_test.cpp
  unit/controls/tab_layout_test.cpp
  unit/controls/tab_strip_test.cpp
  unit/controls/tray_record_test.cpp
  unit/controls/tray_rules_test.cpp
)
