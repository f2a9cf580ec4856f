target_sources(quillo_core_tests PRIVATE
  unit/controls/button_state_test.cpp
  unit/controls/swatch_palette_test.cpp
)
