target_sources(quillo_core PRIVATE
  controls/button_state.cpp
  controls/button_strip.cpp
  controls/divider_geometry.cpp
  controls/icon_compositing.cpp
  controls/slider_track.cpp
  controls/swatch_palette.cpp
  controls/swatch_strip.cpp
  controls/tab_layout.cpp
  controls/tab_strip.cpp
  controls/tray_record.cpp
  controls/tray_rules.cpp
)
