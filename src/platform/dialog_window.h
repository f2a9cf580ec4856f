#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/accessible.h"
#include "platform/app_icons.h"
#include "platform/dialog_parts.h"
#include "platform/unique_handle.h"
#include "platform/window.h"

namespace quillo {

class MessageLoop;

struct DialogPlan {
    const wchar_t* className = nullptr;
    std::u16string_view caption;
    HWND owner = nullptr;  ///< borrowed; the dialog goes with it, and is made on its monitor
};

/// A dialog of our own, not modal: contents on the ground of a window above, a foot with buttons on that of a dialog
/// below. The keys of dialogs work while it is open: Tab in the order in which the controls were made, Enter for the
/// button IDOK, Esc, which closes it unless a derived class says otherwise. Its controls follow the resolution.
class DialogWindow : public Window, private AccessibleSource {
  public:
    /// The window of one of its controls; null when there is none.
    [[nodiscard]] HWND Item(int id) const { return GetDlgItem(Handle(), id); }
    /// The resolution that it is laid out at: its monitor's, or a lower one where the work area is too small.
    [[nodiscard]] Scale DialogScale() const { return scale_; }

  protected:
    explicit DialogWindow(MessageLoop& loop) : loop_(loop) {}

    /// Makes the dialog with its controls, at its size, hidden. False on failure.
    bool CreateHidden(const DialogPlan& dialog);

    // What a dialog fills in.
    /// Makes the controls, in the order of the Tab key; a label stands before its control, so that a screen reader
    /// finds it.
    virtual void CreateControls() = 0;
    /// Gives the controls their places: LayOutFoot at the end of the contents, then FitClient.
    virtual void LayOut(HDC dc) = 0;
    virtual void OnCommand(int id, int notification) = 0;
    /// Esc, or the window's own close button. The object stays; without a window it can be opened again.
    virtual void OnClose() { Destroy(); }
    /// The window goes, for whatever reason.
    virtual void OnGone() {}
    /// A key going down, before the keys of dialogs are looked for; true when it is done with.
    virtual bool OnKeyDown(WPARAM /*key*/) { return false; }
    /// The fonts are new: what follows them besides the controls.
    virtual void OnFontsChanged() {}
    /// The system's colors are new; every control has been told.
    virtual void OnColorsChanged() {}
    [[nodiscard]] virtual HFONT FontOf(int /*id*/) const { return fonts_.body.Get(); }
    [[nodiscard]] virtual int WidthOfButton(HDC dc, int id) const;
    virtual void PaintGround(HDC dc) const;
    /// The ground of a label or button, whose text color it sets.
    [[nodiscard]] virtual HBRUSH ColorControl(HDC dc, HWND control) const;

    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    [[nodiscard]] const DialogFonts& Fonts() const { return fonts_; }
    [[nodiscard]] int Px(int atDesignDpi) const { return scale_.Px(atDesignDpi); }
    /// The two edges of the foot; where there is none yet, 0.
    [[nodiscard]] int FootTop() const { return footTop_; }
    [[nodiscard]] int FootBottom() const { return footBottom_; }
    [[nodiscard]] Rect WindowRect() const;

    /// A tool tip on one of the controls; wrapped, and on top of the dialog.
    void AddToolTip(HWND control, std::u16string_view text);
    /// The rule and the buttons, from left to right and to the right edge, below contents that are `width` wide and
    /// end at `top`. The answer is the left edge of the first button.
    int LayOutFoot(HDC dc, int width, int top, int ruleId, std::initializer_list<int> buttons);
    /// What the buttons of a foot need, side by side.
    [[nodiscard]] int FootWidth(HDC dc, std::initializer_list<int> buttons) const;
    /// Sizes the window for that client height, and keeps it on its monitor.
    void FitClient(int height) const;

  private:
    // AccessibleSource; the name is the caption.
    [[nodiscard]] AccessiblePart Describe(int part) const override;
    [[nodiscard]] bool HoldsWindows() const override { return true; }

    void OnCreate();
    void OnDestroy();
    void OnDpiChanged(int dpi, const RECT& suggested);
    void ApplyFonts();
    void WrapToolTips() const;
    /// Lays the dialog out at its monitor's resolution, or smaller where it would not fit the work area otherwise.
    void LayOutOnMonitor();
    /// High contrast or another theme: Windows tells only top-level windows.
    void PassColorsOn(UINT message, WPARAM wParam, LPARAM lParam);

    MessageLoop& loop_;
    Scale monitor_;  ///< the resolution of the monitor that the dialog is on
    Scale scale_;    ///< that of the layout
    WindowIcons icons_;
    AccessibleLink accessible_{*this};
    DialogFonts fonts_;
    WindowHandle toolTips_;  ///< owned by no window: one that owns a topmost window cannot always become one itself
    int clientWidth_ = 0;
    int footTop_ = 0;
    int footBottom_ = 0;
};

/// Stacks controls of a dialog below each other.
class ControlColumn {
  public:
    /// Device pixels. `dc` is borrowed.
    ControlColumn(HDC dc, int left, int top, int width) : dc_(dc), left_(left), width_(width), bottom_(top) {}

    void Put(HWND control, int indent, int height, int gapAfter);
    /// A label as high as `text` needs, wrapped at the column's width.
    void PutText(HWND label, HFONT font, std::u16string_view text, int indent, int gapAfter);
    /// Below everything so far, its gap included.
    [[nodiscard]] int Bottom() const { return bottom_; }

  private:
    HDC dc_;
    int left_;
    int width_;
    int bottom_;
};

}  // namespace quillo
