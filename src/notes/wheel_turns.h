#pragma once

namespace quillo {

/// Collects the turns of a mouse wheel, which can be finer than a notch, until they make a whole line.
class WheelTurns {
  public:
    /// `turned` is in 120ths of a notch, and positive away from the user. Returns the lines to scroll by, positive
    /// towards the end of the text.
    [[nodiscard]] int Turn(int turned, int linesPerNotch);

  private:
    int rest_ = 0;  ///< in 120ths of a line, with the sign of the last turn
};

}  // namespace quillo
