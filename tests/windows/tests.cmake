target_sources(quillo_shell_tests PRIVATE
  windows/main.cpp
  windows/registry_test.cpp
  windows/support.cpp
  windows/tray_test.cpp
  windows/win_file_store_test.cpp
  windows/win_locale_text_test.cpp
  windows/win_shell_test.cpp
  windows/window_test.cpp
)
target_include_directories(quillo_shell_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/windows)
