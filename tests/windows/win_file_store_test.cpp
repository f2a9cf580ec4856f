#include "platform/win_file_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>

#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "support.h"

namespace quillo {
namespace {

using windows_tests::PutFile;
using windows_tests::SmallDisk;
using windows_tests::TempFolder;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::uint64_t kMost = 1U << 20;

FileHandle Open(const std::u16string& path, DWORD access, DWORD share) {
    return FileHandle(CreateFileW(Wide(path), access, share, nullptr, OPEN_EXISTING, 0, nullptr));
}

/// The disk, with waits that are counted instead of taken.
class WinFileStoreTest : public testing::Test {
  protected:
    /// Creates a file in the folder with that content; returns its full path.
    [[nodiscard]] std::u16string Put(std::u16string_view name, std::string_view bytes) const {
        std::u16string path = folder_.Of(name);
        PutFile(path, bytes);
        return path;
    }
    [[nodiscard]] std::vector<std::u16string> Names(std::u16string_view extension = u"") {
        std::vector<std::u16string> paths;
        for (const FileEntry& file : store_.List(folder_.Path(), extension)) paths.push_back(file.path);
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    TempFolder folder_;
    std::uint32_t slept_ = 0;       ///< milliseconds
    std::function<void()> onWait_;  ///< called while the store waits
    WinFileStore store_{Patience([this](std::uint32_t milliseconds) {
        slept_ += milliseconds;
        if (onWait_) onWait_();
    })};
};

TEST_F(WinFileStoreTest, ADeviceNameIsNotCreated) {
    const std::u16string path = folder_.Of(u"nul.qln");
    const FileError error = store_.Create(path, "precious");
    EXPECT_EQ(error == FileError::None, store_.Read(path) == "precious") << "newer systems make a file of it";
    EXPECT_NE(store_.Create(u"NUL", "precious"), FileError::None);
    EXPECT_EQ(store_.Hold(u"NUL", kMost).file, nullptr);
    EXPECT_EQ(store_.Read(u"NUL"), std::nullopt);
}

TEST_F(WinFileStoreTest, ReadsBackACreatedFile) {
    std::string large(3'000'000, '\0');
    for (std::size_t i = 0; i < large.size(); ++i) large[i] = static_cast<char>(i * 7 % 251);
    for (const std::string& bytes : {std::string(), std::string("a\0b\r\n\xE9", 6), large}) {
        const std::u16string path = folder_.Of(u"note.qln");
        ASSERT_EQ(store_.Create(path, bytes), FileError::None);
        EXPECT_TRUE(store_.FileExists(path));
        EXPECT_TRUE(store_.Read(path) == bytes) << bytes.size() << " bytes";
        ASSERT_TRUE(store_.Find(path));
        EXPECT_EQ(store_.Find(path)->size, bytes.size());
        ASSERT_EQ(store_.Delete(path), FileError::None);
    }
}

TEST_F(WinFileStoreTest, CreateNeverReplaces) {
    const std::u16string path = Put(u"note.qln", "mine");
    EXPECT_EQ(store_.Create(path, "other"), FileError::NameTaken);
    EXPECT_EQ(store_.Create(folder_.Of(u"NOTE.QLN"), "other"), FileError::NameTaken);
    EXPECT_EQ(store_.Read(path), "mine");
    ASSERT_TRUE(store_.CreateFolder(folder_.Of(u"folder")));
    EXPECT_NE(store_.Create(folder_.Of(u"folder"), "other"), FileError::None);
    EXPECT_EQ(Names(), std::vector<std::u16string>{path});
}

TEST_F(WinFileStoreTest, AFileInAMissingFolderIsRefused) {
    EXPECT_EQ(store_.Create(folder_.Of(u"none\\note.qln"), "x"), FileError::FolderMissing);
    EXPECT_TRUE(Names().empty());
}

TEST_F(WinFileStoreTest, OnAFullDiskNoPartialFileRemains) {
    const SmallDisk disk;
    if (!disk.IsThere()) GTEST_SKIP() << disk.WhyNot();
    const std::u16string path = disk.Of(u"large");
    EXPECT_EQ(store_.Create(path, std::string(4'000'000, 'x')), FileError::DiskFull);
    EXPECT_FALSE(store_.FileExists(path));
    EXPECT_EQ(store_.Create(path, "small"), FileError::None) << "the space is free again";
    EXPECT_EQ(store_.Read(path), "small");
}

TEST_F(WinFileStoreTest, AMissingFileAndAFolderCannotBeRead) {
    for (const std::u16string& path : {folder_.Of(u"missing.qln"), folder_.Path(), std::u16string()}) {
        EXPECT_EQ(store_.Read(path), std::nullopt);
        EXPECT_EQ(store_.Hold(path, kMost).file, nullptr);
        EXPECT_NE(store_.Hold(path, kMost).error, FileError::None);
        EXPECT_FALSE(store_.FileExists(path));
        EXPECT_FALSE(store_.Find(path));
    }
    EXPECT_EQ(store_.Hold(folder_.Of(u"missing.qln"), kMost).error, FileError::NotFound);
    EXPECT_EQ(store_.Hold(folder_.Of(u"none\\note.qln"), kMost).error, FileError::FolderMissing);
    EXPECT_EQ(store_.Delete(folder_.Of(u"missing.qln")), FileError::NotFound);
    EXPECT_EQ(slept_, 0U);
}

TEST_F(WinFileStoreTest, ALockedFileCannotBeReadAndStays) {
    const std::u16string path = Put(u"note.qln", "mine");
    const std::u16string other = Put(u"other.qln", "other");
    {
        const FileHandle lock = Open(path, GENERIC_READ, 0);
        ASSERT_TRUE(lock);
        EXPECT_EQ(store_.Read(path), std::nullopt);
        EXPECT_EQ(store_.Hold(path, kMost).error, FileError::InUse);
        EXPECT_EQ(slept_, 0U) << "what cannot be read is tried again later";
        EXPECT_EQ(store_.Delete(path), FileError::InUse);
        EXPECT_NE(store_.MoveOver(other, path), FileError::None);
        EXPECT_NE(store_.Rename(path, folder_.Of(u"third.qln")), FileError::None);
        EXPECT_TRUE(store_.FileExists(path));
    }
    EXPECT_EQ(store_.Read(path), "mine");
    EXPECT_EQ(store_.Read(other), "other");
    EXPECT_EQ(Names().size(), 2U);
}

TEST_F(WinFileStoreTest, AFileBeingWrittenIsNotReadByHalf) {
    const std::u16string path = Put(u"note.qln", "mine");
    const FileHandle writer = Open(path, GENERIC_WRITE, kShareAll);
    ASSERT_TRUE(writer);
    EXPECT_EQ(store_.Read(path), std::nullopt);
    EXPECT_EQ(store_.Hold(path, kMost).error, FileError::InUse);
}

TEST_F(WinFileStoreTest, RenameRequiresAFreeName) {
    const std::u16string path = Put(u"first.qln", "first");
    const std::u16string taken = Put(u"taken.qln", "taken");
    EXPECT_EQ(store_.Rename(path, taken), FileError::NameTaken);
    EXPECT_EQ(store_.Read(path), "first");
    EXPECT_EQ(store_.Read(taken), "taken");
    EXPECT_EQ(store_.Rename(path, folder_.Of(u"free.qln")), FileError::None);
    EXPECT_EQ(store_.Read(folder_.Of(u"free.qln")), "first");
    EXPECT_FALSE(store_.FileExists(path));
    EXPECT_EQ(store_.Rename(path, folder_.Of(u"more.qln")), FileError::NotFound);
}

TEST_F(WinFileStoreTest, MoveOverReplacesAndAcceptsAFreeNameToo) {
    const std::u16string path = folder_.Of(u"note.qln");
    for (const char* bytes : {"first", "second"}) {
        ASSERT_EQ(store_.MoveOver(Put(u"note.qln.new", bytes), path), FileError::None);
        EXPECT_EQ(store_.Read(path), bytes);
        EXPECT_EQ(Names(), std::vector<std::u16string>{path});
    }
    EXPECT_EQ(store_.MoveOver(folder_.Of(u"note.qln.new"), path), FileError::NotFound);
    EXPECT_EQ(store_.Read(path), "second");
}

TEST_F(WinFileStoreTest, AReaderSeesTheOldBytesOrTheNew) {
    const std::u16string path = Put(u"note.qln", std::string(40'000, 'a'));
    std::atomic<bool> done{false};
    std::atomic<int> torn{0};
    std::atomic<int> reads{0};
    std::thread reader([&] {
        WinFileStore files;
        while (!done) {
            const auto bytes = files.Read(path);
            if (!bytes) continue;  // it is being replaced at this moment
            ++reads;
            if (bytes->size() != 40'000 || bytes->find_first_not_of(bytes->front()) != std::string::npos) ++torn;
        }
    });
    // The reader may have the file open at any moment at which it is to be replaced.
    onWait_ = [] { Sleep(1); };
    int replaced = 0;
    for (int i = 0; i < 100 || reads == 0; ++i) {
        const std::u16string fresh = Put(u"note.qln.new", std::string(40'000, static_cast<char>('b' + i % 20)));
        replaced += store_.MoveOver(fresh, path) == FileError::None ? 1 : 0;
    }
    done = true;
    reader.join();
    EXPECT_EQ(torn, 0);
    EXPECT_GT(replaced, 0);
}

TEST_F(WinFileStoreTest, AReaderThatWasThereFirstKeepsTheOldBytes) {
    const std::u16string path = Put(u"note.qln", "old");
    const FileHandle reader = Open(path, GENERIC_READ, kShareAll);
    ASSERT_TRUE(reader);
    const bool replaced = store_.MoveOver(Put(u"note.qln.new", "newer"), path) == FileError::None;
    char bytes[8] = {};
    DWORD read = 0;
    ASSERT_NE(ReadFile(reader.Get(), bytes, sizeof bytes, &read, nullptr), 0);
    EXPECT_EQ(std::string(bytes, read), "old");
    EXPECT_EQ(store_.Read(path), replaced ? "newer" : "old");
}

TEST_F(WinFileStoreTest, WaitsForAFileThatIsOpenBriefly) {
    const std::u16string path = Put(u"note.qln", "old");
    const std::u16string fresh = Put(u"note.qln.new", "new");
    FileHandle lock = Open(path, GENERIC_READ, FILE_SHARE_READ);
    ASSERT_TRUE(lock);
    int waits = 0;
    onWait_ = [&] {
        if (++waits == 3) lock.Reset();
    };
    EXPECT_EQ(store_.MoveOver(fresh, path), FileError::None);
    EXPECT_EQ(store_.Read(path), "new");
    EXPECT_EQ(waits, 3);
    lock = Open(path, GENERIC_READ, FILE_SHARE_READ);
    waits = 0;
    EXPECT_EQ(store_.Delete(path), FileError::None);
    EXPECT_EQ(waits, 3);
    EXPECT_FALSE(store_.FileExists(path));
}

TEST_F(WinFileStoreTest, TheWaitsForFiftyLockedFilesDoNotAddUp) {
    constexpr int kFiles = 50;
    std::vector<std::u16string> paths;
    std::vector<FileHandle> locks;
    for (int i = 0; i < kFiles; ++i) {
        const std::string number = std::to_string(i);
        paths.push_back(Put(std::u16string(number.begin(), number.end()), "old"));
        locks.push_back(Open(paths.back(), GENERIC_READ, FILE_SHARE_READ));
        ASSERT_TRUE(locks.back());
    }
    for (const std::u16string& path : paths) {
        EXPECT_NE(store_.MoveOver(Put(u"fresh", "new"), path), FileError::None);
        EXPECT_EQ(store_.Delete(path), FileError::InUse);
        ASSERT_EQ(store_.Delete(folder_.Of(u"fresh")), FileError::None);
    }
    EXPECT_LE(slept_, 2000U);
    EXPECT_GT(slept_, 0U);
}

TEST_F(WinFileStoreTest, AReadOnlyFileIsNotWaitedFor) {
    const std::u16string path = Put(u"note.qln", "old");
    SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_READONLY);
    // Windows refuses it; Wine leaves it to the host, which lets an administrator do anything.
    const bool replaced = store_.MoveOver(Put(u"note.qln.new", "new"), path) == FileError::None;
    EXPECT_EQ(store_.Read(path), replaced ? "new" : "old");
    SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(store_.Delete(path), FileError::NoPermission);
    EXPECT_TRUE(store_.FileExists(path));
    EXPECT_EQ(slept_, 0U);
}

TEST_F(WinFileStoreTest, AFolderInTheWayIsNotWaitedFor) {
    ASSERT_TRUE(store_.CreateFolder(folder_.Of(u"folder")));
    EXPECT_NE(store_.MoveOver(Put(u"note.qln", "x"), folder_.Of(u"folder")), FileError::None);
    EXPECT_NE(store_.Delete(folder_.Of(u"folder")), FileError::None);
    EXPECT_EQ(slept_, 0U);
}

TEST_F(WinFileStoreTest, NamesOutsideTheCodePageWorkEverywhere) {
    const std::u16string inner = folder_.Of(u"\u0416\u65E5\u2603");
    ASSERT_TRUE(store_.CreateFolder(inner));
    const std::u16string path = inner + u"\\\u05D0\U0001F58B.qln";
    ASSERT_EQ(store_.Create(path + u".new", "x"), FileError::None);
    ASSERT_EQ(store_.MoveOver(path + u".new", path), FileError::None);
    EXPECT_TRUE(store_.FileExists(path));
    ASSERT_EQ(store_.List(inner, u".qln").size(), 1U);
    EXPECT_EQ(store_.List(inner, u".qln")[0].path, path);
    EXPECT_EQ(store_.Read(path), "x");
    EXPECT_EQ(store_.Delete(path), FileError::None);
    EXPECT_FALSE(store_.FileExists(path));
}

TEST_F(WinFileStoreTest, ListsFilesByTheirLongExtensionInAnyCase) {
    for (const char16_t* name : {u"a.qln", u"B.QLN", u"c.Qln", u"d.qlnx", u"e.txt", u"qln", u".qln", u"f.qln.new"}) {
        PutFile(folder_.Of(name), "x");
    }
    PutFile(folder_.Of(u"\u65E5\u672C \u2603.qln"), "x");
    ASSERT_TRUE(store_.CreateFolder(folder_.Of(u"folder.qln")));
    PutFile(folder_.Of(u"folder.qln\\inside.qln"), "x");
    const std::vector<std::u16string> expected{folder_.Of(u".qln"), folder_.Of(u"B.QLN"), folder_.Of(u"a.qln"),
                                               folder_.Of(u"c.Qln"), folder_.Of(u"\u65E5\u672C \u2603.qln")};
    EXPECT_EQ(Names(u".qln"), expected);
}

TEST_F(WinFileStoreTest, AListHasTheSizesAndTheTimes) {
    PutFile(folder_.Of(u"small.qln"), "x");
    PutFile(folder_.Of(u"large.qln"), std::string(300'000, 'x'));
    for (const FileEntry& file : store_.List(folder_.Path(), u".qln")) {
        const bool large = file.path == folder_.Of(u"large.qln");
        EXPECT_EQ(file.size, large ? 300'000U : 1U);
        ASSERT_TRUE(store_.Find(file.path));
        EXPECT_EQ(store_.Find(file.path)->size, file.size);
        EXPECT_EQ(store_.Find(file.path)->modified, file.modified);
        EXPECT_NE(file.modified, 0U);
    }
}

TEST_F(WinFileStoreTest, AMissingOrEmptyFolderListsNothing) {
    EXPECT_TRUE(store_.List(folder_.Of(u"none"), u".qln").empty());
    EXPECT_TRUE(store_.List(folder_.Path(), u".qln").empty());
}

TEST_F(WinFileStoreTest, CreateFolderMakesTheLastComponentOnly) {
    EXPECT_TRUE(store_.CreateFolder(folder_.Of(u"one")));
    EXPECT_TRUE(store_.CreateFolder(folder_.Of(u"one"))) << "it is there already";
    EXPECT_FALSE(store_.CreateFolder(folder_.Of(u"two\\three")));
    EXPECT_FALSE(store_.CreateFolder(Put(u"file", "")));
}

TEST_F(WinFileStoreTest, TemporaryNamesAreFreeAndHaveThePrefix) {
    const std::u16string name = store_.TemporaryName(u"qln");
    ASSERT_FALSE(name.empty());
    EXPECT_FALSE(store_.FileExists(name));
    const std::size_t backslash = name.find_last_of(u'\\');
    EXPECT_EQ(name.substr(backslash + 1, 3), u"qln");
    EXPECT_EQ(name.substr(0, backslash), store_.TemporaryFolder());
}

TEST_F(WinFileStoreTest, PathsBeyondTheOldLimitWorkWhereTheSystemAllowsThem) {
    std::u16string deep = folder_.Path();
    while (deep.size() < 300) {
        deep += u"\\" + std::u16string(60, u'd');
        if (!store_.CreateFolder(deep)) GTEST_SKIP() << "long paths are switched off on this system";
    }
    const std::u16string path = deep + u"\\note.qln";
    ASSERT_EQ(store_.Create(path, "far down"), FileError::None);
    EXPECT_EQ(store_.Read(path), "far down");
    ASSERT_EQ(store_.List(deep, u".qln").size(), 1U);
    EXPECT_EQ(store_.List(deep, u".qln")[0].path, path);
}

// A file that is held.

TEST_F(WinFileStoreTest, AHeldFileIsReadWhole) {
    const std::u16string path = Put(u"note.qln", std::string("a\0b", 3));
    const HoldResult held = store_.Hold(path, 3);
    ASSERT_NE(held.file, nullptr);
    EXPECT_EQ(held.error, FileError::None);
    EXPECT_EQ(held.file->Bytes(), std::string("a\0b", 3));
    EXPECT_EQ(store_.Read(path), std::string("a\0b", 3)) << "others may read";
}

TEST_F(WinFileStoreTest, AFileThatIsTooLargeIsNotRead) {
    const std::u16string path = Put(u"note.qln", "1234");
    EXPECT_EQ(store_.Hold(path, 3).error, FileError::TooLarge);
    EXPECT_EQ(store_.Hold(path, 3).file, nullptr);
    EXPECT_TRUE(Open(path, GENERIC_WRITE, 0));
}

TEST_F(WinFileStoreTest, NoOtherProgramChangesAHeldFile) {
    const std::u16string path = Put(u"note.qln", "mine");
    {
        const HoldResult held = store_.Hold(path, kMost);
        ASSERT_NE(held.file, nullptr);
        EXPECT_FALSE(Open(path, GENERIC_WRITE, kShareAll));
        EXPECT_EQ(DeleteFileW(Wide(path)), 0);
        const std::u16string other = Put(u"other.qln", "other");
        EXPECT_EQ(MoveFileExW(Wide(other), Wide(path), MOVEFILE_REPLACE_EXISTING), 0);
        EXPECT_EQ(MoveFileExW(Wide(path), Wide(folder_.Of(u"away.qln")), 0), 0);
        EXPECT_EQ(store_.Read(path), "mine");
    }
    EXPECT_TRUE(Open(path, GENERIC_WRITE, 0)) << "free again";
}

TEST_F(WinFileStoreTest, AHeldFileCanBeDeleted) {
    const std::u16string path = Put(u"note.qln", "mine");
    {
        const HoldResult held = store_.Hold(path, kMost);
        ASSERT_NE(held.file, nullptr);
        EXPECT_EQ(held.file->Delete(), FileError::None);
        EXPECT_FALSE(store_.FileExists(path));
        PutFile(path, "another that has taken its name");
    }
    EXPECT_EQ(store_.Read(path), "another that has taken its name");
}

TEST_F(WinFileStoreTest, AFileThatAnotherProgramReadsIsHeldButNotDeleted) {
    const std::u16string path = Put(u"note.qln", "mine");
    const FileHandle reader = Open(path, GENERIC_READ, FILE_SHARE_READ);
    ASSERT_TRUE(reader);
    const HoldResult held = store_.Hold(path, kMost);
    ASSERT_NE(held.file, nullptr);
    EXPECT_EQ(held.file->Bytes(), "mine");
    EXPECT_NE(held.file->Delete(), FileError::None);
    EXPECT_EQ(store_.Read(path), "mine");
}

}  // namespace
}  // namespace quillo
