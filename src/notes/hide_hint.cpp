#include "notes/hide_hint.h"

#include "app/base/os_facts.h"
#include "app/base/registry_keys.h"
#include "app/base/settings.h"
#include "ports/user_notice.h"
#include "registry/tessel_registry.h"

namespace quillo {
namespace {

constexpr std::u16string_view kFlag = u"Has hidden notes";
constexpr std::u16string_view kBoxText =
    u"When a note is hidden, it can only be shown by clicking \"show all notes\" on the main Quillo menu.  This "
    u"message will not be shown again.";
constexpr std::u16string_view kBalloonTitle = u"Note hidden";
constexpr std::u16string_view kBalloonText =
    u"To show this note again, click the Quillo icon to show the menu, and then click \"show all notes.\"  This "
    u"message will not be shown again.";

}  // namespace

void ShowHideHintOnce(RegistryApi& registry, const Settings& settings, const OsFacts& os, UserNotice& notice) {
    TesselRegistry key(registry, kUserKey);
    if (key.ValueLong(kFlag) != 0) return;
    key.SetValueLong(kFlag, kTrueNumber);
    if (!os.windows2000OrLater) {
        notice.Inform(kBoxText);
    } else if (!settings.disableBalloonHelp) {
        notice.Balloon(kBalloonTitle, kBalloonText, BalloonIcon::Information);
    }
}

}  // namespace quillo
