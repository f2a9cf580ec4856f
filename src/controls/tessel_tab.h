#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/tab_icons.h"
#include "controls/tab_strip.h"
#include "platform/accessible.h"
#include "platform/drop_registration.h"
#include "platform/window.h"

namespace quillo {

/// A flat strip of tabs, with or without icons. It holds no pages: its form shows them when onChange tells it to. The
/// mouse, the arrow keys, Home and End, and data dragged over a tab choose one. Its font is set as for every control,
/// by WM_SETFONT.
class TesselTab : public Window, private AccessibleSource {
  public:
    ~TesselTab() override;

    /// `name` is what a screen reader speaks. False on failure.
    bool Create(HWND parent, int id, const wchar_t* name, const TabProperties& properties = FreshTabProperties(),
                const Rect& place = {});

    [[nodiscard]] const TabProperties& Properties() const { return properties_; }
    /// Takes every property over at once, icons, layout and picture included.
    void SetProperties(const TabProperties& properties);
    /// The captions, parted by vertical bars.
    void SetTabs(std::u16string_view tabs);
    /// A horizontal strip of square icons, one per tab, each as wide as the strip is high; null for none. A 32-bit one
    /// may have soft edges in its alpha channel. `edge` is the size in which they are drawn, in device pixels; 0 draws
    /// them as they are. The bitmap may go afterwards.
    void SetPicture(HBITMAP strip, int edge = 0);
    [[nodiscard]] int CurrentTab() const { return strip_.Current(); }
    /// No event; a number that no tab has means none.
    void SetCurrentTab(int tab);
    [[nodiscard]] int TabCount() const { return strip_.Layout().Count(); }
    /// The resolution of the form that it stands on.
    void SetScale(const Scale& scale);

    /// The user chose a tab, perhaps the current one again. A handler may end the strip.
    std::function<void(int)> onChange;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnCreate();
    void TakeDrops();
    void OnMouseMove(Point at);
    void OnKey(WPARAM key);
    void OnSetFont(HFONT font);
    void OnPaint();
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
    HFONT font_ = nullptr;  // the form's
    FontHandle underlined_;
    OleSession ole_;  // before what it serves
    DropRegistration drops_;
    AccessibleLink accessible_{*this};
};

}  // namespace quillo
