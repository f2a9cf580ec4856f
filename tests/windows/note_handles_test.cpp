#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "note_fixture.h"
#include "platform/unique_handle.h"

namespace quillo {
namespace {

using windows_tests::NoteWorldForTests;
using windows_tests::PumpWaiting;
using windows_tests::TestNote;

/// GDI objects, windows and kernel handles of this process. The system's own counter of GDI objects returns 0 on some
/// systems, so every possible handle number is checked instead; the first test shows that this detects a leak.
struct Handles {
    int gdi = 0;
    int windows = 0;
    DWORD kernel = 0;
};

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    EnumChildWindows(
        window,
        [](HWND, LPARAM children) -> BOOL {
            ++*reinterpret_cast<int*>(children);
            return TRUE;
        },
        count);
    return TRUE;
}

Handles Count() {
    Handles handles;
    // A GDI handle has a table index in its low word; GetObjectType needs the whole handle, whose upper bits hold the
    // type and, on Windows, a counter: there the system's counter is right.
    handles.gdi = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
    if (handles.gdi == 0) {
        for (ULONG_PTR index = 1; index < 0x10000; ++index) {
            for (ULONG_PTR generation = 0; generation < 8; ++generation) {
                // Wine's generations are few while few objects were created at an index.
                if (GetObjectType(reinterpret_cast<HGDIOBJ>(generation << 16 | index)) != 0) {
                    ++handles.gdi;
                    break;
                }
            }
        }
    }
    EnumThreadWindows(GetCurrentThreadId(), &CountWindow, reinterpret_cast<LPARAM>(&handles.windows));
    HWND message = nullptr;
    while ((message = FindWindowExW(HWND_MESSAGE, message, nullptr, nullptr)) != nullptr) {
        DWORD process = 0;
        GetWindowThreadProcessId(message, &process);
        if (process == GetCurrentProcessId()) ++handles.windows;
    }
    GetProcessHandleCount(GetCurrentProcess(), &handles.kernel);
    if (handles.kernel == 0) {
        // Wine does not count them; but it uses the numbers in order, multiples of 4 from the lowest free one on.
        DWORD flags = 0;
        for (ULONG_PTR number = 4; number < 0x10000; number += 4) {
            if (GetHandleInformation(reinterpret_cast<HANDLE>(number), &flags) != 0) ++handles.kernel;
        }
    }
    return handles;
}

TEST(HandlesTest, ALeakOfEachKindIsSeen) {
    const Handles before = Count();
    std::vector<BrushHandle> brushes;
    std::vector<HWND> windows;
    std::vector<KernelHandle> events;
    for (int i = 0; i < 40; ++i) {
        brushes.emplace_back(CreateSolidBrush(RGB(i, 1, 2)));
        windows.push_back(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr));
        events.emplace_back(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    }
    const Handles during = Count();
    EXPECT_GE(during.gdi, before.gdi + 40);
    EXPECT_GE(during.windows, before.windows + 40);
    EXPECT_GE(during.kernel, before.kernel + 40);
    for (const HWND window : windows) DestroyWindow(window);
}

TEST(HandlesTest, AThousandNotesLeakNothing) {
    NoteWorldForTests world;
    ASSERT_TRUE(world.ole.Start());
    const auto openAndClose = [&](int notes) {
        for (int i = 0; i < notes; ++i) {
            TestNote one(world, u"one");
            ASSERT_TRUE(one.Create());
            ASSERT_TRUE(one.form.SetText(u"text"));
            one.form.Show();
            windows_tests::PaintNow(one.Window());
            one.note.Perform(NoteAction::ToggleLargeText);
            // Every other note ends by itself, the rest with its object.
            if (i % 2 == 0) one.form.Close();
        }
        PumpWaiting();
    };
    openAndClose(20);  // our own caches and the system's are filled once
    const Handles before = Count();
    openAndClose(1000);
    const Handles after = Count();
    // Far less than one handle per note.
    EXPECT_LE(after.gdi, before.gdi + 20);
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_LE(after.kernel, before.kernel + 20);
}

}  // namespace
}  // namespace quillo
