#include "app/base/hints.h"

#include "app/base/os_facts.h"
#include "app/base/registry_keys.h"
#include "app/base/settings.h"
#include "registry/tessel_registry.h"

namespace quillo {

bool Hints::HasBalloons() const {
    return os_.windows2000OrLater && !settings_.disableBalloonHelp;
}

void Hints::ShowBalloon(const Hint& hint) {
    if (!settings_.disableBalloonHelp) notice_.Balloon(hint.title, hint.text, hint.icon);
}

void Hints::ShowBalloonOrBox(const Hint& hint, std::u16string_view boxText) {
    if (os_.windows2000OrLater) {
        ShowBalloon(hint);
    } else {
        notice_.Inform(boxText);
    }
}

bool Hints::HasHiddenNotes() const {
    return TesselRegistry(registry_, kUserKey).ValueLong(setting::kHasHiddenNotes) != 0;
}

void Hints::RememberHiddenNote() {
    TesselRegistry(registry_, kUserKey).SetValueLong(setting::kHasHiddenNotes, kTrueNumber);
}

}  // namespace quillo
