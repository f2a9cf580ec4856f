#pragma once

#include <functional>

#include "controls/note_button.h"
#include "notes/note_commands.h"
#include "notes/note_face.h"
#include "notes/save_sign.h"
#include "platform/tool_tips.h"

namespace quillo {

/// The ids of the children of a note's window.
enum NoteChildId : int { kMessageBoxId = 1, kCloseButtonId, kPushpinId, kMenuButtonId, kSaveSignId };

/// What is in the strip of a note: its three buttons and, while it could not be saved, a sign; with their tool tips.
class NoteButtonBar {
  public:
    explicit NoteButtonBar(NoteButtonImages& images);

    /// OpenMenu, TogglePin, ClickClose or QuickDelete; it may end the note.
    std::function<void(NoteAction)> onAction;
    /// What the tips are to say now.
    std::function<NoteButtonTips()> describe;

    /// Makes the buttons' windows; until then PaintAtRest stands in for them.
    void Create(HWND note, const NoteLayout& layout);
    [[nodiscard]] bool IsCreated() const { return menu_.Handle() != nullptr; }
    void PaintAtRest(HDC dc, const NoteLayout& layout);
    void MoveTo(const NoteLayout& layout);
    void SetTint(const ButtonTint& tint, const Scale& scale);
    void ShowPinned(bool pinned);
    /// The sign that the note is not saved, with its reason; an empty reason takes it away.
    void ShowSaveProblem(HWND note, std::u16string_view reason, const NoteLayout& layout);

    /// On the screen, in device pixels.
    [[nodiscard]] Rect MenuButtonPlace() const;
    /// The menu button looks pressed, and no tip covers the menu, until the menu has closed.
    void MenuOpens();
    void MenuHasClosed();

    /// The pointer moves over a child of the note, which does not know it yet: the time to make the tips.
    void PointerIsOver(HWND child);
    /// A control of the note asks or tells something.
    void Notify(NMHDR& notification);
    /// The note's window goes, and the tips' with it.
    void DropToolTips() { tips_.DropHandle(); }

  private:
    NoteButton close_;
    NoteButton pushpin_;
    NoteButton menu_;
    SaveSign sign_;
    ToolTips tips_;
    Scale scale_;
};

/// Moves a child of a window, if it has been made.
void MoveChild(HWND child, const Rect& place);

}  // namespace quillo
