#pragma once

#include <functional>
#include <optional>

#include "controls/note_button.h"
#include "notes/note_commands.h"
#include "notes/note_face.h"
#include "notes/save_sign.h"
#include "platform/tool_tips.h"

namespace quillo {

/// The ids of the children of a note's window, and of the part of it that has a tool tip.
enum NoteChildId : int { kMessageBoxId = 1, kCloseButtonId, kPushpinId, kMenuButtonId, kSaveSignId, kReminderLabelId };

/// The content of a note's strip: its three buttons, a sign while the note is not saved, and their tool tips.
class NoteButtonBar {
  public:
    explicit NoteButtonBar(NoteButtonImages& images);

    /// OpenMenu, TogglePin, ClickClose or QuickDelete. It may close the note, whose objects exist until it has
    /// returned.
    std::function<void(NoteAction)> onAction;
    /// Supplies the current texts of the tool tips.
    std::function<NoteTips()> describe;

    /// Creates the buttons' windows; before that, PaintWindowless draws the buttons.
    void Create(HWND note, const NoteLayout& layout);
    [[nodiscard]] bool IsCreated() const { return menu_.Handle() != nullptr; }
    /// Draws the buttons that have no visible window, at rest.
    void PaintWindowless(HDC dc, const NoteLayout& layout);
    void MoveTo(const NoteLayout& layout);
    /// Hides the windows of the buttons at the right while the user moves the edge beside them: two windows that move
    /// at each step would add a fifth to its cost.
    void HideRightButtons();
    /// Shows them again, at their places in `layout`; nothing if they are not hidden.
    void ShowRightButtons(const NoteLayout& layout);
    void SetTint(const ButtonTint& tint, const Scale& scale);
    void ShowPinned(bool pinned);
    /// Shows the sign that the note is not saved, with its reason; an empty reason removes it.
    void ShowSaveProblem(HWND note, std::u16string_view reason, const NoteLayout& layout);

    /// In screen coordinates, in device pixels.
    [[nodiscard]] Rect MenuButtonPlace() const;
    /// Shows the menu button pressed, and no tool tip over the menu, until the menu has closed.
    void MenuOpens();
    void MenuHasClosed();

    /// The pointer moves over a child of the note that the tips do not know yet: creates the tool tips.
    void PointerIsOver(HWND child);
    /// The pointer moves over the note's foot. Its edge resizes the note, so the system reports these moves apart from
    /// those that the tips look for.
    void PointerIsOverLabel(HWND note, Point at, const Rect& label);
    void HideTip() { tips_.Hide(); }
    /// Handles a notification from a control of the note.
    void Notify(NMHDR& notification);
    /// Called when the note's window is destroyed, and the tool tips' window with it.
    void DropToolTips() { tips_.DropHandle(); }

  private:
    /// A press on the button while the menu is open closes the menu, and reaches the button afterwards: it must not
    /// open the next menu. `pressedAt` is in milliseconds since the system's start.
    [[nodiscard]] bool HasClosedMenu(DWORD pressedAt) const;
    /// False on failure.
    bool MakeTips(HWND note);

    NoteButton close_;
    NoteButton pushpin_;
    NoteButton menu_;
    SaveSign sign_;
    ToolTips tips_;
    Scale scale_;
    bool areRightHidden_ = false;
    std::optional<DWORD> menuClosedAt_;  ///< in milliseconds since the system's start
};

/// Moves a child of a window, if it exists and is at another place.
void MoveChild(HWND child, const Rect& place);

}  // namespace quillo
