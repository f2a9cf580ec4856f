#pragma once

#include <string>

namespace quillo::e2e {

/// The facts that affect the look of the program's windows: resolution, the fonts in effect, text smoothing, and the
/// theme, metrics and colors of the system; one line each.
[[nodiscard]] std::string DesktopFacts();

/// The first line of `facts` that differs from `recorded`, with the recorded one; "" if all are equal.
[[nodiscard]] std::string FirstOtherFact(const std::string& facts, const std::string& recorded);

}  // namespace quillo::e2e
