#include "notes/hide_hint.h"

#include "app/base/hints.h"

namespace quillo {
namespace {

constexpr std::u16string_view kBoxText =
    u"When a note is hidden, it can only be shown by clicking \"show all notes\" on the main Quillo menu.  This "
    u"message will not be shown again.";
constexpr Hint kHint{
    u"Note hidden",
    u"To show this note again, click the Quillo icon to show the menu, and then click \"show all notes.\"  This "
    u"message will not be shown again."};

}  // namespace

void ShowHideHintOnce(Hints& hints) {
    if (hints.HasHiddenNotes()) return;
    hints.RememberHiddenNote();
    hints.ShowBalloonOrBox(kHint, kBoxText);
}

}  // namespace quillo
