#include "mainmenu/shortcut_icon.h"

#include "platform/wide.h"
#include "util/ignore.h"

// After windows.h.
#include <objbase.h>
#include <shellapi.h>

namespace quillo {
namespace {

// Some toolchains' libraries lack it.
constexpr IID kImageListId{0x46EB5926, 0x582E, 0x4017, {0x9F, 0xDF, 0xE8, 0x99, 0x8D, 0xAA, 0x09, 0x50}};

/// The system's own list that has the icon; null if there is none.
ComPtr<IImageList> FindIcon(const std::u16string& file, int& index) {
    ComPtr<IImageList> list;
    SHFILEINFOW info{};
    if (SHGetFileInfoW(Wide(file), 0, &info, sizeof info, SHGFI_SYSICONINDEX) == 0 &&
        SHGetFileInfoW(Wide(file), FILE_ATTRIBUTE_NORMAL, &info, sizeof info,
                       SHGFI_SYSICONINDEX | SHGFI_USEFILEATTRIBUTES) == 0) {
        return list;
    }
    index = info.iIcon;
    Ignore(SHGetImageList(SHIL_LARGE, kImageListId, list.PutVoid()), "the shortcut then has no icon");
    return list;
}

int EdgeOf(IImageList& list) {
    int width = 0;
    int height = 0;
    list.GetIconSize(&width, &height);
    return width;
}

}  // namespace

ShortcutIcon::ShortcutIcon(const std::u16string& file, int size) : list_(FindIcon(file, index_)), size_(size) {
    if (!list_ || EdgeOf(*list_) == size) return;
    // The system's list has one resolution: shrinking a larger picture, if there is one, looks better than enlarging.
    ComPtr<IImageList> larger;
    const bool grows = EdgeOf(*list_) < size;
    if (grows) Ignore(SHGetImageList(SHIL_EXTRALARGE, kImageListId, larger.PutVoid()), "then the small one grows");
    HICON icon = nullptr;
    IImageList& source = larger ? *larger : *list_;
    if (source.GetIcon(index_, ILD_TRANSPARENT, &icon) == S_OK) resized_.Reset(icon);
}

void ShortcutIcon::Draw(HDC dc, Point at) const {
    if (!list_) return;
    if (resized_) {
        DrawIconEx(dc, at.x, at.y, resized_.Get(), size_, size_, 0, nullptr, DI_NORMAL);
        return;
    }
    IMAGELISTDRAWPARAMS plan{};
    plan.cbSize = sizeof plan;
    plan.himl = IImageListToHIMAGELIST(list_.Get());
    plan.i = index_;
    plan.hdcDst = dc;
    plan.x = at.x;
    plan.y = at.y;
    plan.rgbBk = CLR_NONE;
    plan.rgbFg = CLR_NONE;
    plan.fStyle = ILD_TRANSPARENT;
    list_->Draw(&plan);
}

}  // namespace quillo
