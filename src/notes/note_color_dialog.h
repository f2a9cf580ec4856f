#pragma once

#include <string_view>
#include <vector>

#include "controls/swatch_palette.h"

namespace quillo {

inline constexpr std::u16string_view kNoteColorCaption = u"Note color";
inline constexpr std::u16string_view kNoteColorHeading = u"Choose the colors of this note";
inline constexpr std::u16string_view kNoteColorInstruction = u"The note changes as soon as you choose.";
inline constexpr std::u16string_view kDefaultColorsCaption = u"Use the &default colors";
inline constexpr std::u16string_view kOwnColorsCaption = u"Give this note its &own colors:";
inline constexpr std::u16string_view kColorSelectorName = u"Colors";

/// What the color dialog asks of its note, which tells the dialog to forget it before it goes.
class NoteColorTarget {
  public:
    virtual ~NoteColorTarget() = default;
    /// The user's choice of colors; without `own` the note takes those of the settings. Marks the note changed.
    virtual void SetColor(bool own, ColorWord noteColor, ColorWord borderColor, ColorWord textColor) = 0;
    /// The dialog is gone: the note can open it again.
    virtual void ColorClosing() = 0;
};

/// What the dialog asks of its window.
class NoteColorView {
  public:
    virtual ~NoteColorView() = default;
    virtual void ResetChoice() = 0;
    /// Selects CustomOption, or DefaultOption when `own` is false.
    virtual void SelectOption(bool own) = 0;
    /// Ends the window, which answers with NoteColorDialog::OnGone.
    virtual void Close() = 0;
};

/// The program's one color dialog, free of its window.
///
/// Intended: there is one for all notes. A second note that asks for it takes the dialog over; the first one cannot
/// open it again before it was closed, so that a user always sees one dialog and knows which note it colors.
class NoteColorDialog {
  public:
    explicit NoteColorDialog(NoteColorView& view) : view_(view) {}

    /// Fills the dialog for a note. What the controls report meanwhile and until Shown is not the user's.
    void Load(NoteColorTarget& note, bool own, const ColorScheme& colors);
    void Shown() { loading_ = false; }

    void OnColorPicked(const ColorScheme& colors);
    /// CustomOption, or DefaultOption when `own` is false. The colors picked last stay, to come back to.
    void OnOptionClicked(bool own);
    void OnOk() { view_.Close(); }
    /// The window has gone, for whatever reason.
    void OnGone();
    /// The note goes. A dialog that is open for it closes.
    void DropTarget(NoteColorTarget& note);

  private:
    void Apply() const;

    NoteColorView& view_;
    NoteColorTarget* target_ = nullptr;
    std::vector<NoteColorTarget*> asked_;  ///< every note that has opened the dialog since it was closed last
    bool loading_ = false;
    bool own_ = false;
    ColorScheme colors_{};
};

}  // namespace quillo
