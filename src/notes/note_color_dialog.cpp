#include "notes/note_color_dialog.h"

#include <algorithm>
#include <utility>

namespace quillo {

void NoteColorDialog::Load(NoteColorTarget& note, bool own, const ColorScheme& colors) {
    loading_ = true;
    view_.ResetChoice();
    view_.SelectOption(own);
    if (std::find(asked_.begin(), asked_.end(), &note) == asked_.end()) asked_.push_back(&note);
    target_ = &note;
    own_ = own;
    colors_ = colors;
}

void NoteColorDialog::OnColorPicked(const ColorScheme& colors) {
    if (loading_) return;
    view_.SelectOption(true);
    own_ = true;
    colors_ = colors;
    Apply();
}

void NoteColorDialog::OnOptionClicked(bool own) {
    if (loading_) return;
    own_ = own;
    Apply();
}

void NoteColorDialog::Apply() const {
    if (target_ != nullptr) target_->SetColor(own_, colors_.note, colors_.border, colors_.text);
}

void NoteColorDialog::OnGone() {
    target_ = nullptr;
    loading_ = false;
    for (NoteColorTarget* note : std::exchange(asked_, {})) note->ColorClosing();
}

void NoteColorDialog::DropTarget(NoteColorTarget& note) {
    std::erase(asked_, &note);
    if (target_ != &note) return;
    target_ = nullptr;
    view_.Close();
}

}  // namespace quillo
