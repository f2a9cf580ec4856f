// The yardstick for start-up and for work by hand: the smallest program that puts the same files on the screen. It
// lists a folder and shows each file's bytes in a plain window with one edit box, which can be moved by the strip above
// the box and sized by its lower right corner. Usage: bare_notes FOLDER

#include "platform/wide.h"
#include "platform/win_file_store.h"
#include "platform/win_locale_text.h"
#include "platform/window.h"

namespace {

constexpr int kStrip = 22;  ///< the height above the box, in pixels
constexpr int kFoot = 14;   ///< the height below it
constexpr int kEdge = 1;    ///< the width on either side

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SIZE) {
        HWND box = GetWindow(window, GW_CHILD);
        const int width = LOWORD(lParam);
        const int height = HIWORD(lParam);
        if (box != nullptr) MoveWindow(box, kEdge, kStrip, width - 2 * kEdge, height - kStrip - kFoot, TRUE);
        return 0;
    }
    if (message == WM_SETFOCUS) return SetFocus(GetWindow(window, GW_CHILD)), 0;
    const LRESULT result = DefWindowProcW(window, message, wParam, lParam);
    if (message != WM_NCHITTEST || result != HTCLIENT) return result;
    RECT place{};
    GetWindowRect(window, &place);
    if (static_cast<short>(HIWORD(lParam)) < place.top + kStrip) return HTCAPTION;
    return static_cast<short>(HIWORD(lParam)) >= place.bottom - kFoot ? HTBOTTOMRIGHT : HTCLIENT;
}

void ShowFile(const std::u16string& text, int index) {
    constexpr int kWidth = 188;
    constexpr int kHeight = 163;
    HWND window = CreateWindowExW(0, L"BareNote", L"", WS_POPUP | WS_CLIPCHILDREN, 20 + index * 10, 20 + index * 8,
                                  kWidth, kHeight, nullptr, nullptr, quillo::ThisModule(), nullptr);
    HWND box =
        CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL, kEdge, kStrip,
                        kWidth - 2 * kEdge, kHeight - kStrip - kFoot, window, nullptr, quillo::ThisModule(), nullptr);
    SetWindowTextW(box, quillo::Wide(text));
    ShowWindow(window, SW_SHOWNOACTIVATE);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    std::wstring_view commandLine = GetCommandLineW();
    const std::size_t blank = commandLine.rfind(L' ');
    if (blank == std::wstring_view::npos) return 2;

    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.hInstance = quillo::ThisModule();
    windowClass.lpszClassName = L"BareNote";
    windowClass.lpfnWndProc = &Procedure;
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    RegisterClassExW(&windowClass);

    quillo::WinFileStore files;
    quillo::WinLocaleText locale;
    int index = 0;
    for (const quillo::FileEntry& file : files.List(quillo::FromWide(commandLine.substr(blank + 1)), u".qln")) {
        if (const auto bytes = files.Read(file.path)) ShowFile(locale.FromNarrow(*bytes), index++);
    }
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
