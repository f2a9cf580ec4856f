#pragma once

namespace quillo {

class Hints;

/// Explains how to see a hidden note again when any note is hidden for the first time, and records that in the
/// registry. On old systems the hint is a message box, which pumps messages.
void ShowHideHintOnce(Hints& hints);

}  // namespace quillo
