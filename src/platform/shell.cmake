target_sources(quillo_shell PRIVATE
  platform/accessible.cpp
  platform/dialog_parts.cpp
  platform/dialog_window.cpp
  platform/dib.cpp
  platform/dpi.cpp
  platform/drop_target.cpp
  platform/file_dialogs.cpp
  platform/gdi_canvas.cpp
  platform/message_loop.cpp
  platform/monitors.cpp
  platform/single_instance.cpp
  platform/text_tools.cpp
  platform/tool_tips.cpp
  platform/ui_timer.cpp
  platform/win_clock.cpp
  platform/win_file_store.cpp
  platform/win_locale_text.cpp
  platform/win_printer.cpp
  platform/win_registry_api.cpp
  platform/win_shell.cpp
  platform/win_sound_device.cpp
  platform/win_user_notice.cpp
  platform/window.cpp
  platform/window_effects.cpp
)
target_link_libraries(quillo_shell PUBLIC comctl32 gdi32 ole32 shell32 uuid)
