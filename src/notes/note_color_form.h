#pragma once

#include "controls/note_color_selector.h"
#include "notes/note_color_dialog.h"
#include "platform/dialog_window.h"

namespace quillo {

/// The program's one dialog for a note's colors. NoteColorDialog has its logic. It has no window until first opened,
/// and none after it has closed.
class NoteColorForm : public DialogWindow, private NoteColorView {
  public:
    enum ControlId : int {
        kDefaultOption = 100,
        kCustomOption,
        kColorSelector,
        kHeadingLabel,
        kInstructionLabel,
        kRuleBar
    };

    explicit NoteColorForm(MessageLoop& loop);
    ~NoteColorForm() override { Destroy(); }

    /// Fills and shows the dialog for a note, owned by the note's window and beside it; an open dialog switches to that
    /// note. False on failure.
    bool ShowFor(HWND noteWindow, NoteColorTarget& note, bool own, const ColorScheme& colors);
    /// Called when the note's window is destroyed; the dialog closes if it is open for that note.
    void DropTarget(NoteColorTarget& note) { dialog_.DropTarget(note); }

  protected:
    void CreateControls() override;
    void LayOut(HDC dc) override;
    void OnCommand(int id, int notification) override;
    void OnGone() override { dialog_.OnGone(); }
    void OnFontsChanged() override { selector_.SetScale(DialogScale()); }
    [[nodiscard]] HFONT FontOf(int id) const override;

  private:
    // NoteColorView
    void ResetChoice() override { selector_.ResetChoice(); }
    void SelectOption(bool own) override;
    void Close() override { Destroy(); }

    void PlaceBesideNote(HWND noteWindow) const;

    NoteColorSelector selector_;
    NoteColorDialog dialog_{*this};
};

}  // namespace quillo
