#include "reminder_fixture.h"

#include <array>
#include <utility>

#include "platform/wide.h"

namespace quillo::windows_tests {

std::u16string TextOfWindow(HWND window) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, WideBuffer(text), static_cast<int>(text.size()))));
    return text;
}

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
