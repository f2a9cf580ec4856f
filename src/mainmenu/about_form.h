#pragma once

#include <string>

#include "mainmenu/about_controls.h"
#include "mainmenu/link_label.h"
#include "mainmenu/update_link.h"
#include "platform/dialog_window.h"

namespace quillo {

class Shell;

/// The about box: the version, the link to the maker's site, updates and the help. Not modal.
class AboutForm : public DialogWindow {
  public:
    AboutForm(Shell& shell, MessageLoop& loop, ProgramVersion version)
        : DialogWindow(loop), shell_(shell), version_(version) {
        webLink_.onFollow = [this] { FollowLink(); };
    }
    ~AboutForm() override { Destroy(); }

    /// Shows the box in the middle of the monitor that shows `owner`, or brings the open one to the front. False on
    /// failure.
    bool Open(HWND owner);

    [[nodiscard]] HWND ControlWindow(AboutControl control) const;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void CreateControls() override;
    void LayOut(HDC dc) override;
    void OnCommand(int id, int notification) override;
    [[nodiscard]] HFONT FontOf(int id) const override;
    void PaintGround(HDC dc) const override;
    [[nodiscard]] HBRUSH ColorControl(HDC dc, HWND control) const override;
    void OnFontsChanged() override;
    void OnColorsChanged() override { OnFontsChanged(); }

  private:
    void FollowLink() const;
    void OnDrawItem(const DRAWITEMSTRUCT& item) const;
    [[nodiscard]] std::u16string CaptionOf(AboutControl control) const;
    [[nodiscard]] bool IsInYellowBox(HWND control) const;

    Shell& shell_;
    ProgramVersion version_;
    LinkLabel webLink_;
    IconHandle picture_;
    BrushHandle paper_;  ///< of the yellow box; none in high contrast
    int yellowBoxBottom_ = 0;
};

}  // namespace quillo
