#pragma once

#include <list>
#include <string>
#include <string_view>

#include "controls/tessel_divider.h"
#include "mainmenu/options_table.h"
#include "platform/accessible.h"
#include "platform/dialog_parts.h"
#include "platform/unique_handle.h"
#include "platform/window.h"

namespace quillo {

class BusyFlag;
class OptionsController;

/// One page of the options dialog. Its controls are created from the table of options and filled from the controller,
/// and report to it.
class ContentPanel : public Window, private AccessibleSource {
  public:
    /// `dialogs` is set while a page has a dialog of the system open.
    ContentPanel(OptionsPage page, OptionsController& controller, BusyFlag& dialogs)
        : page_(page), controller_(controller), dialogs_(dialogs) {}

    /// Creates the page and its controls, hidden. False on failure.
    bool Create(HWND dialog);
    /// Sets the fonts of every control; `fonts` is borrowed until the next call.
    void SetFonts(const DialogFonts& fonts, Scale scale);
    /// Places the controls in that width; returns the height that they take, both in device pixels.
    int LayOut(HDC dc, int width);
    /// Shows the current settings.
    virtual void Load();

    [[nodiscard]] OptionsPage Page() const { return page_; }
    /// The window of one of its controls; null for one of another page.
    [[nodiscard]] HWND Item(OptionControl control) const;

  protected:
    /// Creates a control that is more than one of the system's; false for every other one.
    virtual bool CreateSpecial(const OptionRow& /*row*/) { return false; }
    virtual void Place(class PageColumn& column) = 0;
    virtual void OnCommand(OptionControl control, int notification);
    virtual void OnScaleChanged() {}
    /// Called when the system's colors change; the glyphs of the small buttons follow them.
    virtual void OnColorsChanged() { SetGlyphs(); }
    void SetGlyphs();
    [[nodiscard]] virtual HFONT FontOf(const OptionRow& row) const;

    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    [[nodiscard]] OptionsController& Controller() const { return controller_; }
    [[nodiscard]] BusyFlag& Dialogs() const { return dialogs_; }
    [[nodiscard]] const Scale& PageScale() const { return scale_; }
    [[nodiscard]] const DialogFonts& Fonts() const { return *fonts_; }
    [[nodiscard]] HWND Dialog() const { return GetAncestor(Handle(), GA_ROOT); }
    [[nodiscard]] std::u16string TextOf(OptionControl control) const;
    void SetText(OptionControl control, std::u16string_view text) const;
    void ShowChecked(OptionControl check) const;

  private:
    friend class PageColumn;

    // AccessibleSource; the name is the tab's.
    [[nodiscard]] AccessiblePart Describe(int part) const override;
    [[nodiscard]] bool HoldsWindows() const override { return true; }

    void CreateControls();
    void CreateDivider(const OptionRow& row);
    void OnChecked(OptionControl check);
    void OnErase(HDC dc) const;

    OptionsPage page_;
    OptionsController& controller_;
    BusyFlag& dialogs_;
    std::list<TesselDivider> dividers_;
    std::list<IconHandle> glyphs_;  ///< of the small buttons
    AccessibleLink accessible_{*this};
    const DialogFonts* fonts_ = nullptr;
    Scale scale_;
};

}  // namespace quillo
