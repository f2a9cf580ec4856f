#pragma once

#include <functional>
#include <string_view>

#include "controls/tessel_tray_lite.h"
#include "notes/note_view.h"
#include "platform/app_icons.h"

namespace quillo {

/// The icon of one note in the notification area. Uses no handle until it is shown for the first time.
class NoteTrayIcon : public NoteIcon {
  public:
    struct Handlers {
        std::function<void()> onClick;  ///< this and the next may destroy the icon
        std::function<void()> onRightClick;
    };
    /// `beforeShow` is called each time before the icon is shown, if it is not empty; borrowed.
    NoteTrayIcon(LocaleText& locale, const std::function<void()>& beforeShow, Handlers handlers);

    // NoteIcon
    void Show(std::u16string_view caption) override;
    void Hide() override;
    void Recreate() override { icon_.RecreateIcon(); }
    void ShowBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) override;

    /// The size or the colors of the system may have changed.
    void UpdatePicture();

  private:
    const std::function<void()>& beforeShow_;
    TrayPicture picture_;
    TesselTrayLite icon_;
};

}  // namespace quillo
