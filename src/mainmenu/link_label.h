#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/accessible.h"
#include "platform/drawn_window.h"
#include "platform/unique_handle.h"
#include "util/lifetime.h"

namespace quillo {

/// A label that is followed like a link, by a click, Enter or Space. The window's text is exactly what it shows; the
/// system's link control does not fit, because its text is markup.
class LinkLabel : public DrawnWindow, private AccessibleSource {
  public:
    ~LinkLabel() override { Destroy(); }

    /// Screen readers report `address` as the link's value. False on failure.
    bool Create(HWND parent, int id, std::u16string_view text, std::u16string address);

    /// The link was followed. A handler may end the label.
    std::function<void()> onFollow;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnPress();
    void OnRelease(Point at);
    void OnKey(WPARAM key) const;
    void OnPaint() override;
    void TakeFont(HFONT font);
    void Follow() const;

    // AccessibleSource
    [[nodiscard]] AccessiblePart Describe(int part) const override;
    void Activate(int part) override;

    std::u16string address_;
    FontHandle underlined_;
    HFONT font_ = nullptr;  // borrowed
    bool pressed_ = false;
    AccessibleLink accessible_{*this};
    Lifetime lifetime_;
};

}  // namespace quillo
