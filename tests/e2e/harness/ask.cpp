#include "harness/ask.h"

namespace quillo::e2e {

DWORD_PTR Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kAnswerMilliseconds, &answer);
    return answer;
}

}  // namespace quillo::e2e
