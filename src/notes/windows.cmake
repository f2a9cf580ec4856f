target_sources(quillo_windows PRIVATE
  notes/mail_form.cpp
  notes/note_button_bar.cpp
  notes/note_color_form.cpp
  notes/note_dialogs.cpp
  notes/note_drop_target.cpp
  notes/note_fonts.cpp
  notes/note_form.cpp
  notes/note_form_view.cpp
  notes/note_icon.cpp
  notes/note_text_box.cpp
  notes/res_form.cpp
  notes/save_sign.cpp
)
