#pragma once

#include <string_view>

#include "ports/user_notice.h"

namespace quillo {

class RegistryApi;
struct OsFacts;
struct Settings;

/// A message beside the icon in the notification area.
struct Hint {
    std::u16string_view title;
    std::u16string_view text;
    BalloonIcon icon = BalloonIcon::Information;
};

/// Balloons of the program's icon, which the user can turn off and old systems do not have. One object serves the whole
/// program.
class Hints {
  public:
    Hints(UserNotice& notice, const Settings& settings, const OsFacts& os, RegistryApi& registry)
        : notice_(notice), settings_(settings), os_(os), registry_(registry) {}

    /// The system has balloons, and the user has not turned them off.
    [[nodiscard]] bool HasBalloons() const;
    /// A balloon, unless the user has turned them off.
    void ShowBalloon(const Hint& hint);
    /// The same, but on a system without balloons a message box with `boxText`, which pumps messages.
    void ShowBalloonOrBox(const Hint& hint, std::u16string_view boxText);
    void ShowBalloonOrBox(const Hint& hint) { ShowBalloonOrBox(hint, hint.text); }

    /// The user has hidden a note before, in this run or an earlier one, and was shown how to see it again.
    [[nodiscard]] bool HasHiddenNotes() const;
    void RememberHiddenNote();

  private:
    UserNotice& notice_;
    const Settings& settings_;
    const OsFacts& os_;
    RegistryApi& registry_;
};

}  // namespace quillo
