#include "harness/user_path.h"

#include <gtest/gtest.h>

namespace quillo::e2e {

UserPath::Value UserPath::Read() {
    constexpr DWORD kAsItIs = RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND;
    Value value;
    value.text.resize(32768);
    auto room = static_cast<DWORD>(value.text.size() * sizeof(wchar_t));
    if (RegGetValueW(HKEY_CURRENT_USER, L"Environment", L"Path", kAsItIs, &value.type, value.text.data(), &room) !=
        ERROR_SUCCESS) {
        return {};
    }
    value.text.resize(value.text.find(L'\0'));
    return value;
}

void UserPath::Write(const Value& value) {
    if (value.type == REG_NONE) {
        RegDeleteKeyValueW(HKEY_CURRENT_USER, L"Environment", L"Path");
        return;
    }
    const auto bytes = static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, L"Environment", L"Path", value.type, value.text.c_str(), bytes),
              ERROR_SUCCESS);
}

}  // namespace quillo::e2e
