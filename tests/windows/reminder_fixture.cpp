#include "reminder_fixture.h"

#include <array>
#include <utility>

namespace quillo::windows_tests {

KeysDown::KeysDown(std::vector<int> keys) : keys_(std::move(keys)) {
    constexpr BYTE kDown = 0x80;
    Hold(kDown);
}

void KeysDown::Hold(BYTE state) {
    std::array<BYTE, 256> all{};
    GetKeyboardState(all.data());
    for (const int key : keys_) all.at(static_cast<std::size_t>(key)) = state;
    SetKeyboardState(all.data());
}

}  // namespace quillo::windows_tests
