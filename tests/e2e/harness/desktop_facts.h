#pragma once

#include <string>

namespace quillo::e2e {

/// What the look of the program's windows depends on besides the program: resolution, fonts as they come out, how text
/// is smoothed, theme, metrics and colors of the system; one line each.
[[nodiscard]] std::string DesktopFacts();

/// The first line of `facts` that `recorded` does not have in the same place, with what is there; "" when all are
/// equal.
[[nodiscard]] std::string FirstOtherFact(const std::string& facts, const std::string& recorded);

}  // namespace quillo::e2e
