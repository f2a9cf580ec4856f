#include "platform/app_id.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/unique_handle.h"
#include "platform/wide.h"

namespace quillo {
namespace {

/// The ids passed to the replaced system call.
std::vector<std::wstring>& Taken() {
    static std::vector<std::wstring> taken;
    return taken;
}
HRESULT WINAPI Take(PCWSTR id) {
    Taken().emplace_back(id);
    return S_OK;
}
HRESULT WINAPI Refuse(PCWSTR /*id*/) {
    return E_FAIL;
}

class AppIdTest : public testing::Test {
  protected:
    AppIdTest() {
        const std::string number = std::to_string(GetCurrentProcessId());
        id_ = u"Marrowind.QuilloTest" + std::u16string(number.begin(), number.end());
        key_ = u"Software\\Classes\\AppUserModelId\\" + id_;
        Taken().clear();
    }
    ~AppIdTest() override { RegDeleteTreeW(HKEY_CURRENT_USER, Wide(key_)); }

    void Register(const wchar_t* value) const {
        HKEY opened = nullptr;
        ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, Wide(key_), &opened), ERROR_SUCCESS);
        const RegistryKeyHandle key(opened);
        constexpr wchar_t kName[] = L"Quillo";
        ASSERT_EQ(RegSetValueExW(key.Get(), value, 0, REG_SZ, reinterpret_cast<const BYTE*>(kName), sizeof kName),
                  ERROR_SUCCESS);
    }
    [[nodiscard]] bool IsKeyThere() const {
        HKEY opened = nullptr;
        const bool there = RegOpenKeyExW(HKEY_CURRENT_USER, Wide(key_), 0, KEY_READ, &opened) == ERROR_SUCCESS;
        const RegistryKeyHandle key(opened);
        return there;
    }

    std::u16string id_;
    std::u16string key_;
};

TEST_F(AppIdTest, IsTakenWhereItIsRegistered) {
    Register(L"DisplayName");
    EXPECT_TRUE(TakeRegisteredAppId(id_, &Take));
    EXPECT_EQ(Taken(), std::vector<std::wstring>{Wide(id_)});
}

TEST_F(AppIdTest, IsNotTakenElsewhereAndNothingIsRegistered) {
    EXPECT_FALSE(TakeRegisteredAppId(id_, &Take));
    EXPECT_TRUE(Taken().empty());
    EXPECT_FALSE(IsKeyThere()) << "looking leaves no trace";
    Register(L"IconUri");
    EXPECT_FALSE(TakeRegisteredAppId(id_, &Take)) << "without a name the system would show the bare id";
    EXPECT_TRUE(Taken().empty());
}

TEST_F(AppIdTest, ARefusalIsReported) {
    Register(L"DisplayName");
    EXPECT_FALSE(TakeRegisteredAppId(id_, &Refuse));
}

TEST_F(AppIdTest, TheSystemsOwnCallIsTheUsualOne) {
    Register(L"DisplayName");
    EXPECT_TRUE(TakeRegisteredAppId(id_));
}

}  // namespace
}  // namespace quillo
