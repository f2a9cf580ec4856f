#include "notes/wheel_turns.h"

namespace quillo {
namespace {

constexpr int kNotch = 120;

}  // namespace

int WheelTurns::Turn(int turned, int linesPerNotch) {
    // After a change of direction the first line follows as late as it would from rest.
    if ((turned < 0) != (rest_ < 0)) rest_ = 0;
    rest_ += turned * linesPerNotch;
    const int lines = rest_ / kNotch;
    rest_ -= lines * kNotch;
    return -lines;
}

}  // namespace quillo
