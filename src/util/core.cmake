target_sources(quillo_core PRIVATE
  util/day_serial.cpp
)
