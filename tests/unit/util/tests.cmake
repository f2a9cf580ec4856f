target_sources(quillo_core_tests PRIVATE
  unit/util/decimal_test.cpp
  unit/util/inflate_test.cpp
  unit/util/lifetime_test.cpp
  unit/util/monitor_test.cpp
  unit/util/path_text_test.cpp
  unit/util/placement_test.cpp
  unit/util/string_builder_test.cpp
  unit/util/unicode_test.cpp
  unit/util/util_test.cpp
)
