#pragma once

#include <string_view>
#include <vector>

#include "controls/swatch_palette.h"
#include "notes/note_color_target.h"

namespace quillo {

inline constexpr std::u16string_view kNoteColorCaption = u"Note color";
inline constexpr std::u16string_view kNoteColorHeading = u"Choose the colors of this note";
inline constexpr std::u16string_view kNoteColorInstruction = u"The note changes as soon as you choose.";
inline constexpr std::u16string_view kDefaultColorsCaption = u"Use the &default colors";
inline constexpr std::u16string_view kOwnColorsCaption = u"Give this note its &own colors:";
inline constexpr std::u16string_view kColorSelectorName = u"Colors";

/// The window as the dialog sees it.
class NoteColorView {
  public:
    virtual ~NoteColorView() = default;
    virtual void ResetChoice() = 0;
    /// Selects CustomOption, or DefaultOption when `own` is false.
    virtual void SelectOption(bool own) = 0;
    /// Closes the window, which then calls NoteColorDialog::OnGone.
    virtual void Close() = 0;
};

/// The program's one color dialog, independent of its window.
///
/// Intended: there is one for all notes. A second note that opens it takes it over; the first note cannot open it again
/// until it has closed, so that a user always sees one dialog and knows which note it colors.
class NoteColorDialog {
  public:
    explicit NoteColorDialog(NoteColorView& view) : view_(view) {}

    /// Fills the dialog for a note. Reports from the controls until Shown do not come from the user.
    void Load(NoteColorTarget& note, bool own, const ColorScheme& colors);
    void Shown() { loading_ = false; }

    void OnColorPicked(const ColorScheme& colors);
    /// CustomOption, or DefaultOption if `own` is false. The dialog keeps the last picked colors for a later switch
    /// back.
    void OnOptionClicked(bool own);
    void OnOk() { view_.Close(); }
    /// The window has closed, for any reason.
    void OnGone();
    /// Called when the note ends. The dialog closes if it is open for that note.
    void DropTarget(NoteColorTarget& note);

  private:
    void Apply() const;

    NoteColorView& view_;
    NoteColorTarget* target_ = nullptr;
    std::vector<NoteColorTarget*> asked_;  ///< every note that has opened the dialog since it last closed
    bool loading_ = false;
    bool own_ = false;
    ColorScheme colors_{};
};

}  // namespace quillo
