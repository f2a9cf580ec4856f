// The yardstick for start-up: the smallest program that puts the same files on the screen. It lists a folder and shows
// each file's bytes in a plain window with one edit box. Usage: bare_notes FOLDER

#include "platform/wide.h"
#include "platform/win_file_store.h"
#include "platform/win_locale_text.h"
#include "platform/window.h"

namespace {

void ShowFile(const std::u16string& text, int index) {
    constexpr int kWidth = 188;
    constexpr int kHeight = 163;
    HWND window = CreateWindowExW(0, L"BareNote", L"", WS_POPUP | WS_CLIPCHILDREN, 20 + index * 10, 20 + index * 8,
                                  kWidth, kHeight, nullptr, nullptr, quillo::ThisModule(), nullptr);
    HWND box = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL, 1, 22,
                               kWidth - 2, kHeight - 36, window, nullptr, quillo::ThisModule(), nullptr);
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
    windowClass.lpfnWndProc = &DefWindowProcW;
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
