#include "platform/win_file_store.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "support.h"

namespace quillo {
namespace {

using windows_tests::TempFolder;

class WinFileStoreTest : public testing::Test {
  protected:
    [[nodiscard]] FileHandle Open(const std::u16string& path, DWORD access, DWORD share) const {
        return FileHandle(CreateFileW(Wide(path), access, share, nullptr, OPEN_EXISTING, 0, nullptr));
    }
    [[nodiscard]] std::vector<std::u16string> Names() {
        auto paths = store_.List(folder_.Path(), u"");
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    TempFolder folder_;
    WinFileStore store_;
};

TEST_F(WinFileStoreTest, WhatADeviceSwallowsIsNotWritten) {
    for (const std::u16string& path : {folder_.Of(u"nul.qln"), std::u16string(u"NUL")}) {
        const bool written = store_.Write(path, "precious");
        EXPECT_EQ(written, store_.Read(path) == "precious") << "newer systems make a file of the first one";
    }
    EXPECT_FALSE(store_.Write(u"NUL", "precious"));
}

TEST_F(WinFileStoreTest, ReadsBackWhatWasWritten) {
    std::string large(3'000'000, '\0');
    for (std::size_t i = 0; i < large.size(); ++i) large[i] = static_cast<char>(i * 7 % 251);
    for (const std::string& bytes : {std::string(), std::string("a\0b\r\n\xE9", 6), large}) {
        const std::u16string path = folder_.Of(u"note.qln");
        ASSERT_TRUE(store_.Write(path, bytes));
        EXPECT_TRUE(store_.FileExists(path));
        EXPECT_TRUE(store_.Read(path) == bytes) << bytes.size() << " bytes";
    }
}

TEST_F(WinFileStoreTest, WriteTruncatesALongerFile) {
    const std::u16string path = folder_.Of(u"note.qln");
    ASSERT_TRUE(store_.Write(path, "a long text"));
    ASSERT_TRUE(store_.Write(path, "short"));
    EXPECT_EQ(store_.Read(path), "short");
}

TEST_F(WinFileStoreTest, AMissingFileAndAFolderCannotBeRead) {
    EXPECT_EQ(store_.Read(folder_.Of(u"missing.qln")), std::nullopt);
    EXPECT_EQ(store_.Read(folder_.Path()), std::nullopt);
    EXPECT_EQ(store_.Read(u""), std::nullopt);
    EXPECT_FALSE(store_.FileExists(folder_.Of(u"missing.qln")));
    EXPECT_FALSE(store_.FileExists(folder_.Path()));
    EXPECT_FALSE(store_.FileExists(u""));
}

TEST_F(WinFileStoreTest, ALockedFileCannotBeReadAndStays) {
    const std::u16string path = folder_.Of(u"note.qln");
    ASSERT_TRUE(store_.Write(path, "mine"));
    {
        const FileHandle lock = Open(path, GENERIC_READ, 0);
        ASSERT_TRUE(static_cast<bool>(lock));
        EXPECT_EQ(store_.Read(path), std::nullopt);
        EXPECT_FALSE(store_.Write(path, "other"));
        EXPECT_FALSE(store_.Delete(path));
        EXPECT_TRUE(store_.FileExists(path));
    }
    EXPECT_EQ(store_.Read(path), "mine");
}

TEST_F(WinFileStoreTest, AFileThatSomebodyWritesIsNotReadByHalf) {
    const std::u16string path = folder_.Of(u"note.qln");
    ASSERT_TRUE(store_.Write(path, "mine"));
    const FileHandle writer = Open(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    ASSERT_TRUE(static_cast<bool>(writer));
    EXPECT_EQ(store_.Read(path), std::nullopt);
}

TEST_F(WinFileStoreTest, ReplacePutsTheNewBytesInPlaceAndLeavesNothingBeside) {
    const std::u16string path = folder_.Of(u"note.qln");
    ASSERT_TRUE(store_.Replace(path, "first"));
    EXPECT_EQ(store_.Read(path), "first");
    ASSERT_TRUE(store_.Replace(path, "second"));
    EXPECT_EQ(store_.Read(path), "second");
    EXPECT_EQ(Names(), std::vector<std::u16string>{path});
}

TEST_F(WinFileStoreTest, AReaderThatWasThereFirstKeepsTheOldBytes) {
    const std::u16string path = folder_.Of(u"note.qln");
    ASSERT_TRUE(store_.Write(path, "old"));
    const FileHandle reader = Open(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    ASSERT_TRUE(static_cast<bool>(reader));
    const bool replaced = store_.Replace(path, "newer");
    char bytes[8] = {};
    DWORD read = 0;
    ASSERT_NE(ReadFile(reader.Get(), bytes, sizeof bytes, &read, nullptr), 0);
    EXPECT_EQ(std::string(bytes, read), "old");
    EXPECT_EQ(store_.Read(path), replaced ? "newer" : "old");
}

TEST_F(WinFileStoreTest, AFailedReplaceKeepsTheOldFileAndLeavesNothingBeside) {
    const std::u16string path = folder_.Of(u"note.qln");
    ASSERT_TRUE(store_.Write(path, "old"));
    {
        const FileHandle holder = Open(path, GENERIC_READ, FILE_SHARE_READ);
        ASSERT_TRUE(static_cast<bool>(holder));
        EXPECT_FALSE(store_.Replace(path, "new"));
    }
    EXPECT_EQ(store_.Read(path), "old");
    EXPECT_EQ(Names(), std::vector<std::u16string>{path});
}

TEST_F(WinFileStoreTest, AReadOnlyTargetIsReplacedWholeOrNotAtAll) {
    const std::u16string path = folder_.Of(u"note.qln");
    ASSERT_TRUE(store_.Write(path, "old"));
    SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_READONLY);
    // Windows refuses both; Wine leaves it to the host, which refuses an administrator nothing.
    const bool replaced = store_.Replace(path, "new");
    EXPECT_EQ(store_.Read(path), replaced ? "new" : "old");
    SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_READONLY);
    const std::string before = store_.Read(path).value_or("");
    const bool written = store_.Write(path, "newer");
    EXPECT_EQ(store_.Read(path), written ? "newer" : before);
    EXPECT_EQ(Names(), std::vector<std::u16string>{path});
}

TEST_F(WinFileStoreTest, AMissingFolderTakesNoFile) {
    EXPECT_FALSE(store_.Write(folder_.Of(u"none\\note.qln"), "x"));
    EXPECT_FALSE(store_.Replace(folder_.Of(u"none\\note.qln"), "x"));
    EXPECT_TRUE(Names().empty());
}

TEST_F(WinFileStoreTest, ListsFilesByTheirLongExtensionInAnyCase) {
    for (const char16_t* name : {u"a.qln", u"B.QLN", u"c.Qln", u"d.qlnx", u"e.txt", u"qln", u".qln", u"f.qln.new"}) {
        ASSERT_TRUE(store_.Write(folder_.Of(name), "x"));
    }
    ASSERT_TRUE(store_.Write(folder_.Of(u"\u65E5\u672C \u2603.qln"), "x"));
    ASSERT_TRUE(store_.CreateFolder(folder_.Of(u"folder.qln")));
    ASSERT_TRUE(store_.Write(folder_.Of(u"folder.qln\\inside.qln"), "x"));

    auto found = store_.List(folder_.Path(), u".qln");
    std::sort(found.begin(), found.end());
    std::vector<std::u16string> expected{folder_.Of(u".qln"), folder_.Of(u"B.QLN"), folder_.Of(u"a.qln"),
                                         folder_.Of(u"c.Qln"), folder_.Of(u"\u65E5\u672C \u2603.qln")};
    EXPECT_EQ(found, expected);
}

TEST_F(WinFileStoreTest, AMissingOrEmptyFolderListsNothing) {
    EXPECT_TRUE(store_.List(folder_.Of(u"none"), u".qln").empty());
    EXPECT_TRUE(store_.List(folder_.Path(), u".qln").empty());
}

TEST_F(WinFileStoreTest, NamesOutsideTheCodePageWorkEverywhere) {
    const std::u16string inner = folder_.Of(u"\u0416\u65E5\u2603");
    ASSERT_TRUE(store_.CreateFolder(inner));
    const std::u16string path = inner + u"\\\u05D0\U0001F58B.qln";
    ASSERT_TRUE(store_.Replace(path, "x"));
    EXPECT_TRUE(store_.FileExists(path));
    EXPECT_EQ(store_.List(inner, u".qln"), std::vector<std::u16string>{path});
    EXPECT_EQ(store_.Read(path), "x");
    EXPECT_TRUE(store_.Delete(path));
    EXPECT_FALSE(store_.FileExists(path));
    EXPECT_FALSE(store_.Delete(path));
}

TEST_F(WinFileStoreTest, CreateFolderMakesTheLastComponentOnly) {
    EXPECT_TRUE(store_.CreateFolder(folder_.Of(u"one")));
    EXPECT_TRUE(store_.CreateFolder(folder_.Of(u"one"))) << "it stands already";
    EXPECT_FALSE(store_.CreateFolder(folder_.Of(u"two\\three")));
    ASSERT_TRUE(store_.Write(folder_.Of(u"file"), ""));
    EXPECT_FALSE(store_.CreateFolder(folder_.Of(u"file")));
}

TEST_F(WinFileStoreTest, TemporaryNamesAreFreeAndCarryThePrefix) {
    const std::u16string name = store_.TemporaryName(u"qln");
    ASSERT_FALSE(name.empty());
    EXPECT_FALSE(store_.FileExists(name));
    const std::u16string last = name.substr(name.find_last_of(u'\\') + 1);
    EXPECT_EQ(last.substr(0, 3), u"qln");
}

TEST_F(WinFileStoreTest, PathsBeyondTheOldLimitWorkWhereTheSystemTakesThem) {
    std::u16string deep = folder_.Path();
    while (deep.size() < 300) {
        deep += u"\\" + std::u16string(60, u'd');
        if (!store_.CreateFolder(deep)) GTEST_SKIP() << "long paths are switched off on this system";
    }
    const std::u16string path = deep + u"\\note.qln";
    ASSERT_TRUE(store_.Replace(path, "far down"));
    EXPECT_EQ(store_.Read(path), "far down");
    EXPECT_EQ(store_.List(deep, u".qln"), std::vector<std::u16string>{path});
}

}  // namespace
}  // namespace quillo
