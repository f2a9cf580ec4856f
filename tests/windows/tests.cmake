target_sources(quillo_windows_tests PRIVATE
  windows/about_form_test.cpp
  windows/accessible_test.cpp
  windows/after_painting_test.cpp
  windows/artwork_test.cpp
  windows/accessible_tree_test.cpp
  windows/app_id_test.cpp
  windows/control_column_test.cpp
  windows/control_fixture.cpp
  windows/divider_test.cpp
  windows/drawn_window_test.cpp
  windows/hand_counts_test.cpp
  windows/idle_counts_test.cpp
  windows/import_counter.cpp
  windows/main.cpp
  windows/main_form_test.cpp
  windows/main_form_menu_test.cpp
  windows/mail_form_test.cpp
  windows/menu_artwork_test.cpp
  windows/mini_slider_test.cpp
  windows/note_button_test.cpp
  windows/note_color_form_test.cpp
  windows/note_color_selector_test.cpp
  windows/note_drop_target_test.cpp
  windows/note_fixture.cpp
  windows/note_form_test.cpp
  windows/note_form_look_test.cpp
  windows/note_move_size_test.cpp
  windows/note_handles_test.cpp
  windows/note_menu_test.cpp
  windows/note_reminder_test.cpp
  windows/note_scroll_bar_test.cpp
  windows/note_tool_tips_test.cpp
  windows/notify_window_test.cpp
  windows/options_form_test.cpp
  windows/options_pages_test.cpp
  windows/platform_dialogs_test.cpp
  windows/registry_test.cpp
  windows/reminder_fixture.cpp
  windows/reminder_form_test.cpp
  windows/res_form_test.cpp
  windows/session_test.cpp
  windows/set_reminder_form_test.cpp
  windows/shortcut_icon_test.cpp
  windows/support.cpp
  windows/start_counts_test.cpp
  windows/styled_controls_test.cpp
  windows/tab_test.cpp
  windows/tray_test.cpp
  windows/win_file_store_test.cpp
  windows/win_locale_text_test.cpp
  windows/win_printer_test.cpp
  windows/win_shell_test.cpp
  windows/win_timers_test.cpp
  windows/window_drag_test.cpp
  windows/window_test.cpp
)
target_include_directories(quillo_windows_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/windows)
# Printed documents are read back as in ring 3.
target_sources(quillo_windows_tests PRIVATE e2e/harness/files.cpp e2e/harness/test_printer.cpp)
target_include_directories(quillo_windows_tests PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/e2e)
target_link_libraries(quillo_windows_tests PRIVATE winspool)
