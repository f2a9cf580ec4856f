#include <gtest/gtest.h>

#include <map>

#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "platform/win_registry_api.h"
#include "registry/tessel_registry.h"

namespace quillo {
namespace {

constexpr RegistryApi::Key kCurrentUser = 0x80000001U;

/// Every test has a key of its own under the current user, which is deleted with the test.
class RealRegistryTest : public testing::Test {
  protected:
    RealRegistryTest() {
        const std::string name = std::to_string(GetCurrentProcessId());
        subkey_ = u"Software\\Marrowind\\QuilloTests\\" + std::u16string(name.begin(), name.end());
        path_ = u"HKEY_CURRENT_USER\\" + subkey_;
        RegDeleteTreeW(HKEY_CURRENT_USER, Wide(subkey_));
    }
    ~RealRegistryTest() override {
        RegDeleteTreeW(HKEY_CURRENT_USER, Wide(subkey_));
        RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Marrowind\\QuilloTests");  // if it is empty
    }

    [[nodiscard]] RegistryKeyHandle Open() const {
        HKEY key = nullptr;
        RegCreateKeyW(HKEY_CURRENT_USER, Wide(subkey_), &key);
        return RegistryKeyHandle(key);
    }
    /// Stores bytes unchanged.
    void Store(const wchar_t* name, DWORD type, const void* data, std::size_t bytes) const {
        ASSERT_EQ(
            RegSetValueExW(Open().Get(), name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(bytes)),
            ERROR_SUCCESS);
    }

    std::u16string subkey_;
    std::u16string path_;
    WinRegistryApi api_;
};

TEST_F(RealRegistryTest, KeysAreCreatedAndRootlessOnesAreNot) {
    const auto key = api_.CreateKey(kCurrentUser, subkey_);
    EXPECT_NE(key, 0U);
    api_.CloseKey(key);
    EXPECT_EQ(api_.CreateKey(0, subkey_), 0U);
}

TEST_F(RealRegistryTest, TextAndNumbersAreStoredUnderTheirTypes) {
    TesselRegistry registry(api_, path_);
    registry.SetValue(u"text", u"caf\u00E9");
    registry.SetValueLong(u"number", -2);

    const RegistryKeyHandle key = Open();
    DWORD type = 0;
    DWORD size = 0;
    ASSERT_EQ(RegQueryValueExW(key.Get(), L"text", nullptr, &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_EQ(size, 10U) << "the null counts";
    std::int32_t number = 0;
    size = sizeof number;
    ASSERT_EQ(RegQueryValueExW(key.Get(), L"number", nullptr, &type, reinterpret_cast<BYTE*>(&number), &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_DWORD});
    EXPECT_EQ(number, -2);
}

TEST_F(RealRegistryTest, WrittenTextReadsBackUnchanged) {
    TesselRegistry registry(api_, path_);
    const std::u16string texts[] = {u"", u"a", u"x y ", u"C:\\Notes\\\u65E5\u672C \u2603", std::u16string(5000, u'q')};
    for (const std::u16string& text : texts) {
        registry.SetValue(u"text", text);
        EXPECT_EQ(registry.Value(u"text"), text);
        EXPECT_EQ(registry.GetValue(u"text", u"default"), text);
    }
    registry.SetValue(u"\u540D\u524D", u"named");
    EXPECT_EQ(registry.Value(u"\u540D\u524D"), u"named");
}

TEST_F(RealRegistryTest, APathInAnyCaseWithBlanksAndABackslashNamesTheSameKey) {
    TesselRegistry plain(api_, path_);
    plain.SetValue(u"text", u"here");
    TesselRegistry other(api_);
    other.SetRootPath(u"  hkey_current_user\\" + subkey_ + u"\\ ");
    EXPECT_EQ(other.RootPath(), u"hkey_current_user\\" + subkey_);
    EXPECT_EQ(other.Value(u"TEXT"), u"here");
}

TEST_F(RealRegistryTest, AnAbbreviatedRootLeavesTheInstanceClosed) {
    TesselRegistry registry(api_, u"HKCU\\" + subkey_);
    registry.SetValue(u"text", u"x");
    EXPECT_EQ(registry.Value(u"text"), u"");
    EXPECT_EQ(registry.GetValue(u"text", u"default"), u"") << "intended: a closed key gives no default";
    EXPECT_EQ(registry.GetValueLong(u"number", -1), 0) << "intended: a closed key gives no default";
    TextTable table{7, 7, 7, 7, {}, {}};
    registry.GetAllValues(table);
    EXPECT_EQ(table.rowLow, 7) << "left as it was";
}

TEST_F(RealRegistryTest, DefaultsReplaceMissingValues) {
    const TesselRegistry registry(api_, path_);
    EXPECT_EQ(registry.Value(u"none"), u"");
    EXPECT_EQ(registry.GetValue(u"none", u"default"), u"default");
    EXPECT_EQ(registry.ValueLong(u"none"), 0);
    EXPECT_EQ(registry.GetValueLong(u"none", -1), -1);
}

TEST_F(RealRegistryTest, TextWithoutItsNullIsReadWhole) {
    Store(L"bare", REG_SZ, L"abc", 6);
    Store(L"one", REG_SZ, L"a", 2);
    Store(L"nothing", REG_SZ, L"", 0);
    Store(L"null", REG_SZ, L"", 2);
    const TesselRegistry registry(api_, path_);
    EXPECT_EQ(registry.Value(u"bare"), u"abc");
    EXPECT_EQ(registry.Value(u"one"), u"a");
    EXPECT_EQ(registry.Value(u"nothing"), u"");
    EXPECT_EQ(registry.GetValue(u"nothing", u"default"), u"") << "it is there";
    EXPECT_EQ(registry.Value(u"null"), u"");
}

TEST_F(RealRegistryTest, ValuesOfTheOtherTypeAreReadByTheirBytes) {
    TesselRegistry registry(api_, path_);
    registry.SetValueLong(u"number", 0x00420041);
    EXPECT_EQ(registry.Value(u"number"), u"A") << "four bytes are two characters, the last one is dropped";
    registry.SetValue(u"short", u"A");
    EXPECT_EQ(registry.ValueLong(u"short"), 0x41);
    registry.SetValue(u"long", u"ABC");
    EXPECT_EQ(registry.GetValueLong(u"long", -1), -1) << "it does not fit into four bytes";
    EXPECT_EQ(registry.ValueLong(u"long"), 0);
}

TEST_F(RealRegistryTest, ValuesAndKeysAreDeleted) {
    TesselRegistry registry(api_, path_);
    registry.SetValue(u"text", u"x");
    registry.DeleteValue(u"text");
    EXPECT_EQ(registry.GetValue(u"text", u"gone"), u"gone");

    const TesselRegistry below(api_, path_ + u"\\below");
    registry.DeleteKey(u"below");
    registry.DeleteKey(u"below");
    TextList list;
    registry.GetAllSubkeys(list);
    EXPECT_EQ(list, TextList{});
}

TEST_F(RealRegistryTest, EnumerationsGiveEverythingFromOneOn) {
    TesselRegistry registry(api_, path_);
    TextTable table;
    registry.GetAllValues(table);
    EXPECT_EQ(table, (TextTable{1, 2, 0, 0, {}, {}}));

    registry.SetValue(u"first", u"1");
    registry.SetValue(u"second \u65E5", u"22");
    registry.SetValue(u"", u"unnamed");
    registry.GetAllValues(table);
    EXPECT_EQ(table.columnLow, 1);
    EXPECT_EQ(table.columnHigh, 3);
    ASSERT_EQ(table.names.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(table.data[i], registry.Value(table.names[i]));

    TextList list;
    registry.GetAllSubkeys(list);
    EXPECT_EQ(list, TextList{});
    const TesselRegistry one(api_, path_ + u"\\one");
    const TesselRegistry two(api_, path_ + u"\\two \u65E5");
    registry.GetAllSubkeys(list);
    EXPECT_EQ(list, (TextList{1, 2, {u"one", u"two \u65E5"}}));
}

TEST_F(RealRegistryTest, ANewPathAndResetCloseTheKey) {
    TesselRegistry registry(api_, path_);
    registry.SetValue(u"text", u"x");
    registry.Reset();
    EXPECT_EQ(registry.RootPath(), u"");
    EXPECT_EQ(registry.Value(u"text"), u"");
    registry.SetRootPath(path_ + u"\\below");
    EXPECT_EQ(registry.Value(u"text"), u"");
    registry.SetRootPath(path_);
    EXPECT_EQ(registry.Value(u"text"), u"x");
}

TEST_F(RealRegistryTest, AValueOfAnySizeIsEnumeratedWhole) {
    // Longer than the initial buffer; after it, one whose size the system has not reported yet.
    const std::u16string large(100'000, u'\u65E5');
    const std::u16string larger(300'000, u'\u2603');
    TesselRegistry registry(api_, path_);
    registry.SetValue(u"1", u"small");
    registry.SetValue(u"2", large);
    registry.SetValue(u"3", larger);
    const auto key = api_.CreateKey(kCurrentUser, subkey_);
    EXPECT_EQ(api_.CountValues(key), 3U);
    std::map<std::u16string, std::u16string> values;
    for (std::uint32_t index = 0; const auto value = api_.EnumerateValue(key, index); ++index) {
        values[value->name] = value->text;
    }
    api_.CloseKey(key);
    const std::map<std::u16string, std::u16string> expected{{u"1", u"small"}, {u"2", large}, {u"3", larger}};
    EXPECT_TRUE(values == expected);
    TextTable table;
    EXPECT_TRUE(registry.GetAllValues(table));
    EXPECT_EQ(table.names.size(), 3U);
}

TEST_F(RealRegistryTest, AnEmptyKeyHasNoValuesAndNoKeyHasNoNumber) {
    const auto key = api_.CreateKey(kCurrentUser, subkey_);
    EXPECT_EQ(api_.CountValues(key), 0U);
    EXPECT_EQ(api_.EnumerateValue(key, 0), std::nullopt);
    api_.CloseKey(key);
    EXPECT_EQ(api_.CountValues(0), std::nullopt);
}

}  // namespace
}  // namespace quillo
