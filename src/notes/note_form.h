#pragma once

#include <optional>

#include "notes/note_button_bar.h"
#include "notes/note_codec.h"
#include "notes/note_commands.h"
#include "notes/note_dialogs.h"
#include "notes/note_drop_target.h"
#include "notes/note_face.h"
#include "notes/note_icon.h"
#include "notes/note_text_box.h"
#include "notes/note_view.h"
#include "notes/open_note.h"
#include "platform/accessible.h"
#include "platform/drawn_window.h"
#include "platform/drop_registration.h"
#include "ports/date_services.h"
#include "util/units.h"

namespace quillo {

class MonitorCache;
class NoteBatch;
class Random;
struct NoteResources;

/// Where notes are on the desktop.
struct DesktopServices {
    MonitorCache& monitors;
    NoteBatch& batch;
    Random& random;
};

/// What a note needs to accept drops.
struct DropServices {
    OleSession& ole;
    Shell& shell;
};

/// What the windows of all notes share.
struct NoteFormServices {
    const Settings& settings;
    DateServices dates;
    NoteResources& resources;
    DesktopServices desktop;
    DropServices drops;
    NoteDialogServices dialogs;
};

/// A note's window: a bordered, colored face with a strip to drag it by, three buttons and a text box.
class NoteForm : public DrawnWindow, public NoteWindow, private AccessibleSource {
  public:
    NoteForm(OpenNote& note, const NoteFormServices& services);
    ~NoteForm() override;

    /// The class that the windows of notes share.
    [[nodiscard]] static WindowClass Class();
    /// Creates the hidden window at the place and size of a new note, or at `position`. False on failure.
    [[nodiscard]] bool Create(const std::optional<NotePosition>& position = std::nullopt);

    // NoteWindow
    [[nodiscard]] NoteIcon& Icon() override { return icon_; }
    [[nodiscard]] NoteDialogs& Dialogs() override { return dialogs_; }
    [[nodiscard]] std::u16string Text() const override;
    [[nodiscard]] bool SetText(std::u16string_view text) override;
    [[nodiscard]] bool InsertInFront(std::u16string_view text) override;
    [[nodiscard]] TwipsRect Rectangle() const override;
    void MoveTo(const TwipsRect& rectangle) override;
    void MoveOntoScreen() override;
    [[nodiscard]] bool IsVisible() const override;
    void Show() override;
    void Hide() override;
    void BringToFront(bool pinned) override;
    void Activate() override;
    void ShowPinned(bool pinned) override;
    void SetOpacity(std::optional<int> alpha) override;
    void ApplyAppearance(const Note& note, const Settings& settings) override;
    void Repaint() override;
    void ShowSaveProblem(std::u16string_view reason) override;
    void Close() override;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    // AccessibleSource; the name is the window's title.
    [[nodiscard]] AccessiblePart Describe(int part) const override;
    [[nodiscard]] bool HoldsWindows() const override { return true; }

    LRESULT OnCreate();
    void OnDestroy();
    LRESULT OnNcHitTest(UINT message, WPARAM wParam, LPARAM lParam);
    void OnActivate(bool active);
    void FocusTextBox();
    void OnCommand(int id, int notification);
    void Perform(NoteAction action);
    /// False while a modal dialog of the program is open.
    [[nodiscard]] bool TakesInput() const;
    HBRUSH OnColorTextBox(HDC dc);
    void OnDpiChanged(int dpi, const RECT& suggested);
    void OnDragBarPressed(Point at);
    void OnMinMaxInfo(MINMAXINFO& info) const;
    void OnPointerOverFoot(POINT screen);
    void OnPaint() override;
    void PaintFace(HDC dc, const NoteLayout& layout);
    void OnMoveSizeBegins();
    void OnMoveSizeEnds();
    void OnPlaceChanging(WINDOWPOS& next) const;
    void OnPlaceChanged(const WINDOWPOS& place);
    void OnSystemChanged();

    void OpenMenu();
    void OpenIconMenu();
    void SetUpParts();
    /// Creates the parts that a start must not wait for: the buttons' windows (until then the note draws the buttons at
    /// rest) and the drop target.
    void Settle();
    void UpdateTitle();
    /// What the label in the border's color, which not everyone can read, says in short; empty without a reminder.
    [[nodiscard]] std::u16string ReminderWords() const;
    [[nodiscard]] NoteLayout Layout() const;
    /// Where the window is created, in pixels.
    [[nodiscard]] Rect FirstPlace(const std::optional<NotePosition>& position);
    [[nodiscard]] Rect ToPixels(const TwipsRect& rectangle) const;
    /// Lays out the parts if the client size has changed since they were laid out last.
    void LayOut();
    void Place(const Rect& place, UINT flags);
    /// Where the window is on the screen, or was before the system minimized it.
    [[nodiscard]] Rect WindowPlace() const;
    /// Restores a note that "Show desktop" or the like has minimized; notes themselves minimize in another way.
    void RestoreIfMinimized();
    [[nodiscard]] bool InsertDropped(std::u16string_view text);
    void ApplyFont();
    void ApplyBarColors();
    void UpdateDropTarget();

    OpenNote& note_;
    NoteFormServices services_;
    Scale scale_;
    NoteTextBox messageBox_;
    NoteButtonBar buttons_;
    NoteTrayIcon icon_;
    NoteDialogForms dialogs_;
    HFONT font_ = nullptr;  ///< borrowed from the shared fonts
    BrushHandle background_;
    DragBarPaint bar_;
    ColorWord noteColor_;
    ColorWord borderColor_;
    ColorWord textColor_;
    DropRegistration drops_;
    AccessibleLink accessible_{*this};
    std::u16string title_;  ///< of the window, once there was a text
    bool active_ = false;
    bool inMoveSize_ = false;  ///< while the user moves or sizes it
    Size laidOut_;             ///< the client size that the parts are laid out for
    bool placing_ = false;     ///< set while we move the window ourselves, so that it is not taken for the user's move
};

}  // namespace quillo
