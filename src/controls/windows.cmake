target_sources(quillo_windows PRIVATE
  controls/note_button.cpp
  controls/note_button_images.cpp
  controls/note_color_selector.cpp
  controls/tessel_divider.cpp
  controls/tessel_mini_slider.cpp
  controls/tab_drop_target.cpp
  controls/tab_icons.cpp
  controls/tessel_tab.cpp
  controls/tessel_tray_lite.cpp
)
