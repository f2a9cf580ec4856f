#include "mainmenu/shortcut_icon.h"

#include "platform/com_ptr.h"
#include "platform/wide.h"
#include "util/ignore.h"

// After windows.h.
#include <commctrl.h>
#include <commoncontrols.h>
#include <objbase.h>
#include <shellapi.h>

namespace quillo {
namespace {

// Some toolchains' libraries lack it.
constexpr IID kImageListId{0x46EB5926, 0x582E, 0x4017, {0x9F, 0xDF, 0xE8, 0x99, 0x8D, 0xAA, 0x09, 0x50}};

HIMAGELIST FindIcon(const std::u16string& file, int& index) {
    SHFILEINFOW info{};
    DWORD_PTR list = SHGetFileInfoW(Wide(file), 0, &info, sizeof info, SHGFI_SYSICONINDEX);
    if (list == 0) {
        list = SHGetFileInfoW(Wide(file), FILE_ATTRIBUTE_NORMAL, &info, sizeof info,
                              SHGFI_SYSICONINDEX | SHGFI_USEFILEATTRIBUTES);
    }
    index = info.iIcon;
    return reinterpret_cast<HIMAGELIST>(list);
}

int EdgeOf(HIMAGELIST list) {
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(list, &width, &height);
    return width;
}

}  // namespace

ShortcutIcon::ShortcutIcon(const std::u16string& file, int size) : list_(FindIcon(file, index_)), size_(size) {
    if (list_ == nullptr || EdgeOf(list_) == size) return;
    // The system's list has one resolution: shrinking a larger picture, if there is one, looks better than enlarging.
    ComPtr<IImageList> larger;
    const bool grows = EdgeOf(list_) < size;
    if (grows) Ignore(SHGetImageList(SHIL_EXTRALARGE, kImageListId, larger.PutVoid()), "then the small one grows");
    resized_.Reset(ImageList_GetIcon(larger ? IImageListToHIMAGELIST(larger.Get()) : list_, index_, ILD_TRANSPARENT));
}

void ShortcutIcon::Draw(HDC dc, Point at) const {
    if (list_ == nullptr) return;
    if (resized_) {
        DrawIconEx(dc, at.x, at.y, resized_.Get(), size_, size_, 0, nullptr, DI_NORMAL);
    } else {
        ImageList_Draw(list_, index_, dc, at.x, at.y, ILD_TRANSPARENT);
    }
}

}  // namespace quillo
