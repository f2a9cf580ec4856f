target_sources(quillo_core_tests PRIVATE
  unit/notes/screen_fit_test.cpp
)
