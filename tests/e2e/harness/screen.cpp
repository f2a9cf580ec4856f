#include "harness/screen.h"

#include <cstdlib>
#include <limits>

#include "platform/gdi_scope.h"
#include "platform/unique_handle.h"

namespace quillo::e2e {
namespace {

/// A bitmap in memory whose rows can be read.
class Sheet {
  public:
    Sheet(int width, int height) : dc_(CreateCompatibleDC(nullptr)), width_(width), height_(height) {
        BITMAPINFO info{};
        info.bmiHeader = BITMAPINFOHEADER{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_.Reset(CreateDIBSection(dc_.Get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        bits_ = static_cast<const DWORD*>(bits);
        before_ = SelectObject(dc_.Get(), bitmap_.Get());
    }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;
    ~Sheet() { SelectObject(dc_.Get(), before_); }

    [[nodiscard]] HDC Dc() const { return dc_.Get(); }
    [[nodiscard]] std::vector<COLORREF> Pixels() const {
        GdiFlush();
        std::vector<COLORREF> pixels;
        for (int i = 0; bits_ != nullptr && i < width_ * height_; ++i) {
            const DWORD bgr = bits_[i];
            pixels.push_back(RGB(bgr >> 16 & 0xFF, bgr >> 8 & 0xFF, bgr & 0xFF));
        }
        return pixels;
    }

  private:
    MemoryDc dc_;
    BitmapHandle bitmap_;
    const DWORD* bits_ = nullptr;
    HGDIOBJ before_ = nullptr;
    int width_;
    int height_;
};

int Distance(COLORREF a, COLORREF b) {
    return std::abs(GetRValue(a) - GetRValue(b)) + std::abs(GetGValue(a) - GetGValue(b)) +
           std::abs(GetBValue(a) - GetBValue(b));
}

}  // namespace

COLORREF ScreenPixel(POINT at) {
    HDC screen = GetDC(nullptr);
    const COLORREF color = GetPixel(screen, at.x, at.y);
    ReleaseDC(nullptr, screen);
    return color;
}

ScreenCopy::ScreenCopy(const RECT& area) : width_(area.right - area.left), height_(area.bottom - area.top) {
    const Sheet sheet(width_, height_);
    HDC screen = GetDC(nullptr);
    BitBlt(sheet.Dc(), 0, 0, width_, height_, screen, area.left, area.top, SRCCOPY);
    ReleaseDC(nullptr, screen);
    pixels_ = sheet.Pixels();
}

COLORREF ScreenCopy::At(int x, int y) const {
    return pixels_.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x));
}

int ScreenCopy::Count(COLORREF color) const {
    int count = 0;
    for (const COLORREF pixel : pixels_) count += pixel == color ? 1 : 0;
    return count;
}

std::size_t NearestIcon(const RECT& area, COLORREF background, const std::vector<HICON>& icons) {
    const ScreenCopy shown(area);
    std::size_t nearest = icons.size();
    long long least = std::numeric_limits<long long>::max();
    for (std::size_t i = 0; i < icons.size(); ++i) {
        const Sheet sheet(shown.Width(), shown.Height());
        const RECT all{0, 0, shown.Width(), shown.Height()};
        const BrushHandle brush(CreateSolidBrush(background));
        FillRect(sheet.Dc(), &all, brush.Get());
        DrawIconEx(sheet.Dc(), 0, 0, icons[i], shown.Width(), shown.Height(), 0, nullptr, DI_NORMAL);
        const std::vector<COLORREF> drawn = sheet.Pixels();
        long long distance = 0;
        for (std::size_t p = 0; p < drawn.size(); ++p) {
            const int row = static_cast<int>(p) / shown.Width();
            distance += Distance(drawn[p], shown.At(static_cast<int>(p) % shown.Width(), row));
        }
        if (distance < least) {
            least = distance;
            nearest = i;
        }
    }
    return nearest;
}

}  // namespace quillo::e2e
