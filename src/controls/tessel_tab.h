#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/tab_icons.h"
#include "controls/tab_strip.h"
#include "platform/accessible.h"
#include "platform/drawn_window.h"
#include "platform/drop_registration.h"
#include "util/lifetime.h"

namespace quillo {

/// A flat strip of tabs, with or without icons. It has no pages: its form shows them on onChange. The mouse, the arrow
/// keys, Home and End choose a tab, and so does data dragged over it. Its font is set with WM_SETFONT, as for every
/// control.
class TesselTab : public DrawnWindow, private AccessibleSource {
  public:
    ~TesselTab() override;

    /// Screen readers speak `name`. False on failure.
    bool Create(HWND parent, int id, const wchar_t* name, const TabProperties& properties = FreshTabProperties(),
                const Rect& place = {});

    // The options dialog passes its properties to Create; these three are for forms that change them later.

    [[nodiscard]] const TabProperties& Properties() const { return properties_; }
    /// Takes all properties at once, icons, layout and picture included.
    void SetProperties(const TabProperties& properties);
    /// The captions, separated by vertical bars.
    void SetTabs(std::u16string_view tabs);

    /// A horizontal strip of square icons, one per tab, each as wide as the strip is high: planes of red, green, blue
    /// and, for soft edges, alpha. Empty for none. `edge` is the size in which the icons are drawn, in device pixels; 0
    /// keeps their size.
    void SetPicture(CoveragePlanes strip, int edge = 0);
    [[nodiscard]] int CurrentTab() const { return strip_.Current(); }
    /// No event; a number without a tab means none.
    void SetCurrentTab(int tab);
    [[nodiscard]] int TabCount() const { return strip_.Layout().Count(); }
    /// Sets the resolution of the form that contains it.
    void SetScale(const Scale& scale);

    /// The user chose a tab, possibly the current one again. A handler may end the strip.
    std::function<void(int)> onChange;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnCreate();
    void TakeDrops();
    void OnMouseMove(Point at);
    void OnKey(WPARAM key);
    void OnSetFont(HFONT font);
    void OnPaint() override;
    void PaintCaption(HDC dc, int tab) const;
    void PaintFocus(HDC dc) const;
    void ComposeIcons();
    void LayOut();
    void Answer(const TabResponse& response);
    [[nodiscard]] HFONT Font() const;

    [[nodiscard]] AccessiblePart Describe(int part) const override;
    [[nodiscard]] int PartCount() const override { return TabCount(); }
    [[nodiscard]] int FocusedPart() const override { return CurrentTab(); }
    void Activate(int part) override { Answer(strip_.Choose(part)); }

    TabProperties properties_;
    std::vector<std::u16string> captions_;
    TabStrip strip_;
    TabIcons icons_;
    int iconEdge_ = 0;  // device pixels; 0 for the picture's own
    Scale scale_;
    HFONT font_ = nullptr;  // borrowed from the form
    FontHandle underlined_;
    OleSession ole_;  // declared before the members that need OLE
    DropRegistration drops_;
    AccessibleLink accessible_{*this};
    Lifetime lifetime_;
};

}  // namespace quillo
