target_sources(quillo_core PRIVATE
  util/day_serial.cpp
  util/numbers.cpp
  util/text.cpp
)
