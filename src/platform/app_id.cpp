#include "platform/app_id.h"

#include <string>

#include "platform/wide.h"

// After windows.h.
#include <shobjidl.h>

namespace quillo {

bool TakeRegisteredAppId(std::u16string_view id, HRESULT(WINAPI* take)(PCWSTR)) {
    const std::u16string name(id);
    const std::u16string key = u"Software\\Classes\\AppUserModelId\\" + name;
    // Checked without opening the key for writing, which would create it.
    if (RegGetValueW(HKEY_CURRENT_USER, Wide(key), L"DisplayName", RRF_RT_REG_SZ, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
        return false;
    }
    if (take == nullptr) take = SetCurrentProcessExplicitAppUserModelID;
    return SUCCEEDED(take(Wide(name)));
}

}  // namespace quillo
