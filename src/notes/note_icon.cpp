#include "notes/note_icon.h"

#include <utility>

namespace quillo {
namespace {

constexpr int kBalloonSeconds = 10;

}  // namespace

NoteTrayIcon::NoteTrayIcon(LocaleText& locale, const std::function<void()>& beforeShow, Handlers handlers)
    : beforeShow_(beforeShow), icon_(locale) {
    TrayProperties hidden;
    hidden.visible = false;
    icon_.LoadProperties(hidden);
    icon_.onClick = std::move(handlers.onClick);
    icon_.onRightClick = std::move(handlers.onRightClick);
}

void NoteTrayIcon::Show(std::u16string_view caption) {
    if (beforeShow_) beforeShow_();
    icon_.SetIcon(picture_.Handle());
    icon_.SetToolTipText(caption);
    icon_.SetVisible(true);
}

void NoteTrayIcon::Hide() {
    icon_.StopRetrying();
    icon_.SetVisible(false);
}

void NoteTrayIcon::ShowBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) {
    icon_.ShowBalloon(text, title, static_cast<DWORD>(icon), kBalloonSeconds);
}

void NoteTrayIcon::UpdatePicture() {
    if (icon_.Visible() && picture_.HasChanged()) icon_.SetIcon(picture_.Handle());
}

}  // namespace quillo
