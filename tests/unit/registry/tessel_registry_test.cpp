#include "registry/tessel_registry.h"

#include <gtest/gtest.h>

#include "testing/fake_registry_api.h"
#include "util/class_error.h"

namespace quillo {
namespace {

constexpr char16_t kPath[] = u"HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo";

class TesselRegistryTest : public testing::Test {
  protected:
    FakeRegistryApi api_;
};

TEST_F(TesselRegistryTest, SpellingsOfOnePathBindToTheSameKey) {
    api_.Put(kPath, u"Note font", u"Tahoma");
    struct Case {
        std::u16string_view path;
        std::u16string_view readBack;
    };
    const Case cases[] = {
        {kPath, kPath},
        {u"HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo\\", kPath},
        {u"  HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo  ", kPath},
        {u" hkey_current_user\\Software\\Marrowind\\Quillo\\ ", u"hkey_current_user\\Software\\Marrowind\\Quillo"},
        {u"Hkey_Current_User\\software\\marrowind\\quillo", u"Hkey_Current_User\\software\\marrowind\\quillo"},
    };
    for (const Case& c : cases) {
        TesselRegistry registry(api_);
        registry.SetRootPath(c.path);
        EXPECT_EQ(registry.Value(u"Note font"), u"Tahoma");
        EXPECT_EQ(registry.RootPath(), c.readBack);
    }
}

TEST_F(TesselRegistryTest, OnlyOneTrailingBackslashIsRemoved) {
    TesselRegistry registry(api_, u"HKEY_CURRENT_USER\\Software\\\\");
    EXPECT_EQ(registry.RootPath(), u"HKEY_CURRENT_USER\\Software\\");
}

TEST_F(TesselRegistryTest, EveryRootIsKnownByItsFullName) {
    for (const auto* path : {u"HKEY_CLASSES_ROOT\\x", u"HKEY_CURRENT_USER\\x", u"HKEY_LOCAL_MACHINE\\x",
                             u"HKEY_USERS\\x", u"HKEY_CURRENT_CONFIG\\x"}) {
        TesselRegistry registry(api_, path);
        registry.SetValue(u"name", u"text");
        EXPECT_EQ(api_.Text(path, u"name"), u"text");
    }
}

TEST_F(TesselRegistryTest, BindingCreatesTheKey) {
    ASSERT_FALSE(api_.HasKey(kPath));
    const TesselRegistry registry(api_, kPath);
    EXPECT_TRUE(api_.HasKey(kPath));
}

TEST_F(TesselRegistryTest, UnknownRootLeavesTheInstanceClosed) {
    for (const auto* path : {u"HKCU\\Software\\Marrowind\\Quillo", u"\\Software", u"HKEY_CURRENT_USERS\\Software"}) {
        TesselRegistry registry(api_, path);
        EXPECT_EQ(registry.Value(u"Note font"), u"");
        EXPECT_EQ(registry.ValueLong(u"Note color"), 0);
        EXPECT_EQ(api_.OpenKeys(), 0U);
        EXPECT_EQ(registry.RootPath(), path);
    }
}

TEST_F(TesselRegistryTest, PathWithoutBackslashIsMisuse) {
    for (const auto* path : {u"HKEY_CURRENT_USER", u"HKEY_CURRENT_USER\\", u"x"}) {
        TesselRegistry registry(api_);
        EXPECT_THROW(registry.SetRootPath(path), ClassError);
        EXPECT_EQ(registry.Value(u"Note font"), u"");
    }
}

TEST_F(TesselRegistryTest, EmptyPathClosesTheInstance) {
    for (const auto* path : {u"", u"   ", u"\\", u" \\ "}) {
        TesselRegistry registry(api_, kPath);
        registry.SetRootPath(path);
        EXPECT_EQ(registry.RootPath(), u"");
        EXPECT_EQ(api_.OpenKeys(), 0U);
    }
}

TEST_F(TesselRegistryTest, ClosedInstanceAnswers) {
    TesselRegistry registry(api_);
    EXPECT_EQ(registry.RootPath(), u"");
    EXPECT_EQ(registry.Value(u"name"), u"");
    EXPECT_EQ(registry.GetValue(u"name", u"default"), u"");
    EXPECT_EQ(registry.ValueLong(u"name"), 0);
    EXPECT_EQ(registry.GetValueLong(u"name", -1), 0);
    registry.SetValue(u"name", u"text");
    registry.SetValueLong(u"name", 7);
    registry.DeleteValue(u"name");
    registry.DeleteKey(u"name");
    EXPECT_TRUE(api_.Log().empty());

    const TextTable before{3, 4, 5, 6, {u"kept"}, {u"too"}};
    TextTable table = before;
    registry.GetAllValues(table);
    EXPECT_EQ(table, before);
    const TextList listBefore{7, 8, {u"kept"}};
    TextList list = listBefore;
    registry.GetAllSubkeys(list);
    EXPECT_EQ(list, listBefore);
}

TEST_F(TesselRegistryTest, DefaultsReplaceMissingValuesOfAnOpenKey) {
    const TesselRegistry registry(api_, kPath);
    EXPECT_EQ(registry.Value(u"missing"), u"");
    EXPECT_EQ(registry.GetValue(u"missing", u"default"), u"default");
    EXPECT_EQ(registry.ValueLong(u"missing"), 0);
    EXPECT_EQ(registry.GetValueLong(u"missing", -1), -1);
}

TEST_F(TesselRegistryTest, WrittenValuesAreReadBack) {
    TesselRegistry registry(api_, kPath);
    for (const auto* text : {u"", u"a", u" blanks kept ", u"C:\\Übung\\Reminder.wma", u"\x65E5\x672C"}) {
        registry.SetValue(u"name", text);
        EXPECT_EQ(registry.Value(u"name"), text);
        EXPECT_EQ(registry.GetValue(u"NAME", u"default"), text);
    }
    for (const std::int32_t number : {0, -1, 14155262, INT32_MAX, INT32_MIN}) {
        registry.SetValueLong(u"number", number);
        EXPECT_EQ(registry.ValueLong(u"number"), number);
        EXPECT_EQ(registry.GetValueLong(u"number", 5), number);
    }
}

TEST_F(TesselRegistryTest, NumberReadAsTextIsNotEmpty) {
    api_.Put(kPath, u"Note color", 0);
    const TesselRegistry registry(api_, kPath);
    EXPECT_NE(registry.Value(u"Note color"), u"");
}

TEST_F(TesselRegistryTest, LongTextReadAsNumberFails) {
    api_.Put(kPath, u"text", u"12345");
    const TesselRegistry registry(api_, kPath);
    EXPECT_EQ(registry.ValueLong(u"text"), 0);
    EXPECT_EQ(registry.GetValueLong(u"text", 9), 9);
}

TEST_F(TesselRegistryTest, ResetClosesOnceAndKeepsThePathOfAClosedInstance) {
    TesselRegistry registry(api_, kPath);
    ASSERT_EQ(api_.OpenKeys(), 1U);
    registry.Reset();
    EXPECT_EQ(registry.RootPath(), u"");
    EXPECT_EQ(api_.OpenKeys(), 0U);

    registry.SetRootPath(u"HKCU\\Software");
    registry.Reset();
    EXPECT_EQ(registry.RootPath(), u"HKCU\\Software");
}

TEST_F(TesselRegistryTest, RebindingAndDestructionCloseTheKey) {
    {
        TesselRegistry registry(api_, kPath);
        registry.SetRootPath(u"HKEY_CURRENT_USER\\Other");
        EXPECT_EQ(api_.OpenKeys(), 1U);
    }
    EXPECT_EQ(api_.OpenKeys(), 0U);
}

TEST_F(TesselRegistryTest, RefusedRootLeavesTheInstanceClosed) {
    api_.Refuse(FakeRegistryApi::kLocalMachine);
    const TesselRegistry registry(api_, u"HKEY_LOCAL_MACHINE\\Software\\Marrowind\\Quillo");
    EXPECT_EQ(registry.GetValueLong(u"Use roaming profile", -1), 0);
}

TEST_F(TesselRegistryTest, DeletesValuesAndSubkeys) {
    api_.Put(kPath, u"one", 1);
    api_.Put(u"HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo\\Sub", u"two", 2);
    TesselRegistry registry(api_, kPath);
    registry.DeleteValue(u"ONE");
    registry.DeleteKey(u"sub");
    registry.DeleteValue(u"missing");
    registry.DeleteKey(u"missing");
    EXPECT_EQ(api_.ValueCount(kPath), 0U);
    EXPECT_FALSE(api_.HasKey(u"HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo\\Sub"));
}

TEST_F(TesselRegistryTest, EnumerationsOfAnEmptyKey) {
    const TesselRegistry registry(api_, kPath);
    TextTable table{9, 9, 9, 9, {u"old"}, {u"old"}};
    registry.GetAllValues(table);
    EXPECT_EQ(table, (TextTable{1, 2, 0, 0, {}, {}}));
    TextList list{9, 9, {u"old"}};
    registry.GetAllSubkeys(list);
    EXPECT_EQ(list, (TextList{0, 0, {}}));
}

TEST_F(TesselRegistryTest, EnumeratesNamesAndDataOfAnyType) {
    api_.Put(kPath, u"Note font", u"Tahoma");
    api_.Put(kPath, u"Number", 0x00434241);
    api_.Put(kPath, u"Empty", u"");
    const TesselRegistry registry(api_, kPath);
    TextTable table;
    registry.GetAllValues(table);
    EXPECT_EQ(table, (TextTable{1, 2, 1, 3, {u"Note font", u"Number", u"Empty"}, {u"Tahoma", u"ABC", u""}}));
}

TEST_F(TesselRegistryTest, EnumeratesSubkeys) {
    api_.PutKey(u"HKEY_CURRENT_USER\\Top\\Beta\\Below");
    api_.PutKey(u"HKEY_CURRENT_USER\\Top\\Alpha");
    const TesselRegistry registry(api_, u"HKEY_CURRENT_USER\\Top");
    TextList list;
    registry.GetAllSubkeys(list);
    EXPECT_EQ(list, (TextList{1, 2, {u"Alpha", u"Beta"}}));
}

/// A key whose enumerations never end.
class EndlessRegistryApi : public FakeRegistryApi {
  public:
    [[nodiscard]] std::optional<ValueEntry> EnumerateValue(Key, std::uint32_t index) override {
        highest_ = index;
        return ValueEntry{u"n", u"d"};
    }
    [[nodiscard]] std::optional<std::u16string> EnumerateSubkey(Key, std::uint32_t index) override {
        highest_ = index;
        return u"n";
    }
    std::uint32_t highest_ = 0;
};

TEST(TesselRegistryLimit, EnumerationStopsWhereASixteenBitIndexEnds) {
    EndlessRegistryApi api;
    const TesselRegistry registry(api, kPath);
    TextTable table;
    registry.GetAllValues(table);
    EXPECT_EQ(api.highest_, 32767U);
    EXPECT_EQ(table.columnHigh, 32768);
    EXPECT_EQ(table.names.size(), 32768U);
    api.highest_ = 0;
    TextList list;
    registry.GetAllSubkeys(list);
    EXPECT_EQ(api.highest_, 32767U);
    EXPECT_EQ(list.high, 32768);
}

}  // namespace
}  // namespace quillo
