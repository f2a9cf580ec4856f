#include "harness/recycle_bin.h"

#include <array>
#include <memory>
#include <vector>

#include "harness/eventually.h"
#include "harness/files.h"
#include "platform/com_ptr.h"
#include "platform/com_scope.h"
#include "platform/win32.h"

// After windows.h.
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

namespace quillo::e2e {
namespace {

struct ItemDeleter {
    using pointer = LPITEMIDLIST;
    void operator()(LPITEMIDLIST item) const { CoTaskMemFree(item); }
};
using Item = std::unique_ptr<ITEMIDLIST, ItemDeleter>;

bool EndsWith(const std::wstring& text, const std::wstring& end) {
    return text.size() >= end.size() && lstrcmpiW(text.c_str() + (text.size() - end.size()), end.c_str()) == 0;
}

/// The Recycle Bin as the shell shows it.
class Bin {
  public:
    Bin() {
        LPITEMIDLIST place = nullptr;
        ComPtr<IShellFolder> desktop;
        if (SHGetSpecialFolderLocation(nullptr, CSIDL_BITBUCKET, &place) != S_OK) return;
        const Item owned(place);
        if (SHGetDesktopFolder(desktop.Put()) != S_OK) return;
        desktop->BindToObject(place, nullptr, IID_IShellFolder2, folder_.PutVoid());
    }

    /// The items deleted from that path.
    [[nodiscard]] std::vector<Item> From(const std::wstring& path) const {
        std::vector<Item> found;
        ComPtr<IEnumIDList> items;
        constexpr SHCONTF kAll = SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN;
        if (!folder_ || folder_->EnumObjects(nullptr, kAll, items.Put()) != S_OK) return found;
        LPITEMIDLIST next = nullptr;
        while (items->Next(1, &next, nullptr) == S_OK) {
            Item item(next);
            if (CameFrom(next, path)) found.push_back(std::move(item));
        }
        return found;
    }

    /// Chooses "Restore" in the item's own menu.
    [[nodiscard]] bool Restore(const Item& item) const {
        ComPtr<IContextMenu> menu;
        LPCITEMIDLIST list = item.get();
        if (folder_->GetUIObjectOf(nullptr, 1, &list, IID_IContextMenu, nullptr, menu.PutVoid()) != S_OK) return false;
        constexpr UINT kFirst = 1;
        constexpr UINT kLast = 0x7FFF;
        HMENU shown = CreatePopupMenu();
        bool done = false;
        if (SUCCEEDED(menu->QueryContextMenu(shown, 0, kFirst, kLast, CMF_NORMAL))) {
            for (int i = 0; i < GetMenuItemCount(shown) && !done; ++i) {
                const UINT id = GetMenuItemID(shown, i);
                if (id < kFirst || id > kLast || !IsRestore(*menu.Get(), shown, id, id - kFirst)) continue;
                CMINVOKECOMMANDINFO command{};
                command.cbSize = sizeof command;
                command.lpVerb = reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(id - kFirst));
                command.nShow = SW_SHOWNORMAL;
                done = SUCCEEDED(menu->InvokeCommand(&command));
            }
        }
        DestroyMenu(shown);
        return done;
    }

  private:
    /// The name may lack its extension, depending on the user's shell settings.
    [[nodiscard]] bool CameFrom(LPCITEMIDLIST item, const std::wstring& path) const {
        const std::wstring folder = Detail(item, kOriginalLocation);
        const std::wstring name = Detail(item, kName);
        if (folder.empty() || name.empty()) return false;
        const std::wstring origin = folder + L"\\" + name;
        return EndsWith(path, origin) || EndsWith(path, origin + L".qln");
    }
    [[nodiscard]] std::wstring Detail(LPCITEMIDLIST item, UINT column) const {
        SHELLDETAILS detail{};
        std::array<wchar_t, 1024> text{};
        if (folder_->GetDetailsOf(item, column, &detail) != S_OK) return {};
        StrRetToBufW(&detail.str, item, text.data(), static_cast<UINT>(text.size()));
        return text.data();
    }
    static bool IsRestore(IContextMenu& menu, HMENU shown, UINT id, UINT offset) {
        std::array<char, 64> verb{};
        const HRESULT told =
            menu.GetCommandString(offset, GCS_VERBA, nullptr, verb.data(), static_cast<UINT>(verb.size()));
        if (told == S_OK) return lstrcmpiA(verb.data(), "undelete") == 0;
        std::array<wchar_t, 64> caption{};
        GetMenuStringW(shown, id, caption.data(), static_cast<int>(caption.size()), MF_BYCOMMAND);
        return std::wstring(caption.data()).find(L"estore") != std::wstring::npos;
    }

    static constexpr UINT kName = 0;
    static constexpr UINT kOriginalLocation = 1;
    ComPtr<IShellFolder2> folder_;
};

}  // namespace

long long RecycledItems() {
    SHQUERYRBINFO info{};
    info.cbSize = sizeof info;
    // The call fails as long as nothing has ever been deleted.
    return SHQueryRecycleBinW(nullptr, &info) == S_OK ? info.i64NumItems : 0;
}

bool IsInRecycleBin(const std::wstring& path) {
    const ComScope com;
    return Bin().From(path).size() == 1;
}

bool RestoreFromRecycleBin(const std::wstring& path) {
    const ComScope com;
    const Bin bin;
    const std::vector<Item> items = bin.From(path);
    return items.size() == 1 && bin.Restore(items.front()) && Eventually([&] { return FileExists(path); });
}

}  // namespace quillo::e2e
