target_sources(quillo_shell PRIVATE
  controls/tessel_tray_lite.cpp
)
