#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/accessible.h"
#include "platform/app_icons.h"
#include "platform/dialog_parts.h"
#include "platform/message_loop.h"
#include "platform/tool_tips.h"
#include "platform/unique_handle.h"
#include "platform/window.h"

namespace quillo {

struct DialogPlan {
    const wchar_t* className = nullptr;
    std::u16string_view caption;
    HWND owner = nullptr;  ///< borrowed; it owns the dialog, which is created on its monitor
};

/// A dialog of our own, not modal: the contents have the background of a window, the foot with the buttons that of a
/// dialog. The keys of dialogs work while it is open: Tab in the order in which the controls were created, Enter for
/// the button IDOK, Esc, which closes it unless a derived class differs. Its controls follow the resolution.
class DialogWindow : public Window, protected DialogKeys, private AccessibleSource {
  public:
    /// The window of one of its controls; null if there is none.
    [[nodiscard]] HWND Item(int id) const { return GetDlgItem(Handle(), id); }
    /// The resolution of its layout: its monitor's, or a lower one if the work area is too small.
    [[nodiscard]] Scale DialogScale() const { return scale_; }

  protected:
    explicit DialogWindow(MessageLoop& loop) : loop_(loop) {}

    /// Creates the dialog with its controls, at its size, hidden. False on failure.
    bool CreateHidden(const DialogPlan& dialog);

    // Implemented by a dialog.
    /// Creates the controls in Tab order; a label comes before its control, so that screen readers find it.
    virtual void CreateControls() = 0;
    /// Places the controls: LayOutFoot at the end of the contents, then FitClient.
    virtual void LayOut(HDC dc) = 0;
    virtual void OnCommand(int id, int notification) = 0;
    /// Esc, or the window's own close button. The object remains; it can be opened again.
    virtual void OnClose() { Destroy(); }
    /// The window has ended, for any reason.
    virtual void OnGone() {}
    bool OnKeyDown(WPARAM /*key*/) override { return false; }
    /// The fonts have changed: updates what depends on them besides the controls.
    virtual void OnFontsChanged() {}
    /// The system's colors have changed; every control has been notified.
    virtual void OnColorsChanged() {}
    [[nodiscard]] virtual HFONT FontOf(int /*id*/) const { return fonts_.body.Get(); }
    [[nodiscard]] virtual int WidthOfButton(HDC dc, int id) const;
    virtual void PaintGround(HDC dc) const;
    /// The background brush of a label or button; also sets its text color.
    [[nodiscard]] virtual HBRUSH ColorControl(HDC dc, HWND control) const;

    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    [[nodiscard]] const DialogFonts& Fonts() const { return fonts_; }
    [[nodiscard]] int Px(int atDesignDpi) const { return scale_.Px(atDesignDpi); }
    /// The two edges of the foot; 0 without one.
    [[nodiscard]] int FootTop() const { return footTop_; }
    [[nodiscard]] int FootBottom() const { return footBottom_; }
    [[nodiscard]] Rect WindowRect() const;

    /// Adds a tool tip to one of the controls; wrapped, and in front of the dialog.
    void AddToolTip(HWND control, std::u16string_view text);
    /// Places the rule and the buttons, from left to right up to the right edge, below contents that are `width` wide
    /// and end at `top`. Returns the left edge of the first button.
    int LayOutFoot(HDC dc, int width, int top, int ruleId, std::initializer_list<int> buttons);
    /// The width of a foot's buttons, side by side.
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
    /// Lays the dialog out at its monitor's resolution, or smaller if it would not fit the work area otherwise.
    void LayOutOnMonitor();
    /// High contrast or another theme: Windows notifies only top-level windows.
    void PassColorsOn(UINT message, WPARAM wParam, LPARAM lParam);

    MessageLoop& loop_;
    Scale monitor_;  ///< the resolution of the monitor that the dialog is on
    Scale scale_;    ///< the resolution of the layout
    WindowIcons icons_;
    AccessibleLink accessible_{*this};
    DialogFonts fonts_;
    ToolTips toolTips_;
    int clientWidth_ = 0;
    int footTop_ = 0;
    int footBottom_ = 0;
};

}  // namespace quillo
