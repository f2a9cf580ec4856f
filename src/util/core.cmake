target_sources(quillo_core PRIVATE
  util/base32.cpp
  util/byte_search.cpp
  util/coverage_planes.cpp
  util/color_word.cpp
  util/day_serial.cpp
  util/decimal.cpp
  util/inflate.cpp
  util/monitor.cpp
  util/numbers.cpp
  util/path_text.cpp
  util/placement.cpp
  util/string_builder.cpp
  util/text.cpp
  util/unicode.cpp
)
