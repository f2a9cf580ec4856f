#include "platform/single_instance.h"

#include <array>

#include "platform/wide.h"

namespace quillo {
namespace {

/// The user's security identifier as hexadecimal digits; "" if it cannot be read.
std::u16string UserMark() {
    HANDLE opened = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened) == 0) return {};
    const KernelHandle token(opened);
    alignas(TOKEN_USER) std::array<BYTE, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> user{};
    DWORD size = 0;
    if (GetTokenInformation(token.Get(), TokenUser, user.data(), static_cast<DWORD>(user.size()), &size) == 0) {
        return {};
    }
    PSID sid = reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid;
    const auto* bytes = static_cast<const BYTE*>(sid);
    std::u16string mark;
    for (DWORD i = 0; i < GetLengthSid(sid); ++i) {
        constexpr char16_t kDigits[] = u"0123456789ABCDEF";
        mark += kDigits[bytes[i] >> 4];
        mark += kDigits[bytes[i] & 15];
    }
    return mark;
}

}  // namespace

SingleInstance::SingleInstance() {
    // "Local" means the session: a user who is logged on twice has two desktops and a program on each.
    const std::u16string name = u"Local\\Quillo-" + UserMark();
    mutex_.Reset(CreateMutexW(nullptr, FALSE, Wide(name)));
    anotherRuns_ = GetLastError() == ERROR_ALREADY_EXISTS || (!mutex_ && GetLastError() == ERROR_ACCESS_DENIED);
}

}  // namespace quillo
