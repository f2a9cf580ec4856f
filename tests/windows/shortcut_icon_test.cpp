#include "mainmenu/shortcut_icon.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "platform/gdi_scope.h"
#include "support.h"

namespace quillo {
namespace {

constexpr int kEdge = 48;

/// The pixels that the icon of a file draws on white.
std::vector<std::uint32_t> Drawn(const std::u16string& file, int size) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), kEdge, -kEdge, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const MemoryDc dc(CreateCompatibleDC(nullptr));
    const BitmapHandle bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const SelectScope selected(dc.Get(), bitmap.Get());
    PatBlt(dc.Get(), 0, 0, kEdge, kEdge, WHITENESS);
    ShortcutIcon(file, size).Draw(dc.Get(), Point{0, 0});
    GdiFlush();
    const auto* pixels = static_cast<const std::uint32_t*>(bits);
    return {pixels, pixels + kEdge * kEdge};
}

TEST(ShortcutIcon, EachKindOfFileHasItsOwn) {
    const windows_tests::TempFolder folder;
    const std::vector<std::uint32_t> blank(kEdge * kEdge, Drawn(u"", 1).back());
    for (const int size : {32, 48}) {
        const auto ofFolder = Drawn(folder.Path(), size);
        const auto ofUnknown = Drawn(folder.Of(u"nothing.unknown"), size);
        EXPECT_TRUE(ofFolder != blank) << size;
        EXPECT_TRUE(ofUnknown != blank) << size;
        EXPECT_TRUE(ofFolder != ofUnknown) << size;
    }
}

}  // namespace
}  // namespace quillo
