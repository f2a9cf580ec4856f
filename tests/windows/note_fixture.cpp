#include "note_fixture.h"

#include "platform/gdi_scope.h"

namespace quillo::windows_tests {

NoteWorldForTests::NoteWorldForTests() {
    // Colors with three different channels, so that a mix-up shows.
    settings.noteColor = ColorWord::FromRgb(0xFE, 0xFD, 0xD7);
    settings.noteBorderColor = ColorWord::FromRgb(0xFE, 0xCF, 0x38);
    settings.noteTextColor = ColorWord::FromRgb(0x20, 0x10, 0x40);
}

Rect PlaceIn(HWND window, HWND child) {
    RECT place{};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    return FromWin32(place);
}

}  // namespace quillo::windows_tests
