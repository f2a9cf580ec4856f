#include "platform/win_shell.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/com_ptr.h"
#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "platform/win_file_store.h"
#include "support.h"

// After windows.h.
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

namespace quillo {
namespace {

using windows_tests::PutFile;
using windows_tests::TempFolder;

class WinShellTest : public testing::Test {
  protected:
    WinShellTest() : com_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~WinShellTest() override {
        if (com_) CoUninitialize();
    }

    /// A shell link at `path` to `target`.
    static void MakeLink(const std::u16string& path, const std::u16string& target) {
        ComPtr<IShellLinkW> link;
        ASSERT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, link.PutVoid()),
                  S_OK);
        ASSERT_EQ(link->SetPath(Wide(target)), S_OK);
        ComPtr<IPersistFile> file;
        ASSERT_EQ(link->QueryInterface(IID_IPersistFile, file.PutVoid()), S_OK);
        ASSERT_EQ(file->Save(Wide(path), TRUE), S_OK);
    }
    [[nodiscard]] static bool IsFolder(const std::u16string& path) {
        const DWORD attributes = GetFileAttributesW(Wide(path));
        return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    }

    bool com_;
    TempFolder folder_;
    WinFileStore files_;
    WinShell shell_;
};

TEST_F(WinShellTest, FoldersExistAndHaveNoTrailingBackslash) {
    for (const auto folder :
         {SpecialFolder::Documents, SpecialFolder::DesktopDirectory, SpecialFolder::RoamingApplicationData,
          SpecialFolder::LocalApplicationData, SpecialFolder::ProgramFiles}) {
        const std::u16string path = shell_.FolderPath(folder);
        ASSERT_FALSE(path.empty()) << static_cast<int>(folder);
        EXPECT_NE(path.back(), u'\\');
        EXPECT_TRUE(IsFolder(path)) << static_cast<int>(folder);
    }
    EXPECT_EQ(shell_.FolderPath(static_cast<SpecialFolder>(9999)), u"");
    EXPECT_TRUE(IsFolder(shell_.WindowsFolder()));
    EXPECT_TRUE(IsFolder(shell_.SystemFolder()));
    EXPECT_TRUE(files_.FileExists(shell_.ProgramPath()));
}

TEST_F(WinShellTest, FullPathsStartFromTheCurrentFolder) {
    wchar_t before[MAX_PATH + 1] = {};
    GetCurrentDirectoryW(MAX_PATH, before);
    ASSERT_NE(SetCurrentDirectoryW(Wide(folder_.Path())), 0);
    EXPECT_EQ(shell_.FullPath(u"a.qln"), folder_.Of(u"a.qln"));
    EXPECT_EQ(shell_.FullPath(u".\\x\\..\\a.qln"), folder_.Of(u"a.qln"));
    EXPECT_EQ(shell_.FullPath(u"C:\\Notes\\a.qln"), u"C:\\Notes\\a.qln");
    EXPECT_EQ(shell_.FullPath(u""), u"");
    const std::u16string longName(400, u'n');
    EXPECT_EQ(shell_.FullPath(longName), folder_.Of(longName));
    SetCurrentDirectoryW(before);
}

TEST_F(WinShellTest, FullLongPathsAreAlikeForEveryNameOfAFile) {
    const std::u16string path = folder_.Of(u"A long name of a note.qln");
    ASSERT_NO_FATAL_FAILURE(PutFile(path, "x"));
    wchar_t shortName[MAX_PATH + 1] = {};
    ASSERT_NE(GetShortPathNameW(Wide(path), shortName, MAX_PATH), 0U);
    const std::u16string resolved = shell_.FullLongPath(path);
    EXPECT_EQ(shell_.FullLongPath(FromWide(shortName)), resolved);
    EXPECT_EQ(shell_.FullLongPath(folder_.Of(u".\\none\\..\\A long name of a note.qln")), resolved);
    EXPECT_EQ(resolved.substr(resolved.rfind(u'\\') + 1), u"A long name of a note.qln");
    const std::u16string folder = resolved.substr(0, resolved.rfind(u'\\'));
    EXPECT_EQ(shell_.FullLongPath(folder_.Of(u"missing\\too.qln")), folder + u"\\missing\\too.qln")
        << "a missing file keeps its name in the folder that exists";
    EXPECT_EQ(shell_.FullLongPath(u"Q:\\no drive\\a.qln"), u"Q:\\no drive\\a.qln");
    EXPECT_EQ(shell_.FullLongPath(u""), u"");
}

TEST_F(WinShellTest, ALinkGivesItsTarget) {
    const std::u16string target = folder_.Of(u"target \u00E9.txt");
    ASSERT_NO_FATAL_FAILURE(PutFile(target, "x"));
    MakeLink(folder_.Of(u"link.lnk"), target);
    EXPECT_EQ(shell_.LinkTarget(folder_.Of(u"link.lnk")), target);
}

TEST_F(WinShellTest, AFileThatIsNotALinkHasNoTarget) {
    ASSERT_NO_FATAL_FAILURE(PutFile(folder_.Of(u"broken.lnk"), "no link"));
    ASSERT_NO_FATAL_FAILURE(PutFile(folder_.Of(u"empty.lnk"), ""));
    EXPECT_EQ(shell_.LinkTarget(folder_.Of(u"broken.lnk")), u"");
    EXPECT_EQ(shell_.LinkTarget(folder_.Of(u"empty.lnk")), u"");
    EXPECT_EQ(shell_.LinkTarget(folder_.Of(u"missing.lnk")), u"");
    EXPECT_EQ(shell_.LinkTarget(folder_.Path()), u"");
}

/// Files in the Recycle Bin of every drive, or -1 if the system cannot tell.
long long Recycled() {
    SHQUERYRBINFO info{};
    info.cbSize = sizeof info;
    return SHQueryRecycleBinW(nullptr, &info) == S_OK ? info.i64NumItems : -1;
}

TEST_F(WinShellTest, ARecycledFileIsInTheRecycleBin) {
    // The first file creates the bin, so that there is something to count.
    ASSERT_NO_FATAL_FAILURE(PutFile(folder_.Of(u"first.qln"), "x"));
    EXPECT_EQ(shell_.Recycle(folder_.Of(u"first.qln")), RecycleResult::Moved);
    EXPECT_FALSE(files_.FileExists(folder_.Of(u"first.qln")));
    const long long before = Recycled();
    ASSERT_NO_FATAL_FAILURE(PutFile(folder_.Of(u"second \u65E5.qln"), "x"));
    EXPECT_EQ(shell_.Recycle(folder_.Of(u"second \u65E5.qln")), RecycleResult::Moved);
    EXPECT_FALSE(files_.FileExists(folder_.Of(u"second \u65E5.qln")));
    EXPECT_EQ(Recycled(), before + 1);
}

TEST_F(WinShellTest, AFileThatIsOpenBrieflyIsRecycledAfterAWait) {
    const std::u16string path = folder_.Of(u"scanned.qln");
    ASSERT_NO_FATAL_FAILURE(PutFile(path, "x"));
    FileHandle scanner(CreateFileW(Wide(path), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(scanner);
    int waits = 0;
    WinShell shell(Patience([&](std::uint32_t) {
        if (++waits == 3) scanner.Reset();
    }));
    EXPECT_EQ(shell.Recycle(path), RecycleResult::Moved);
    EXPECT_EQ(waits, 3);
}

TEST_F(WinShellTest, AFileThatStaysOpenIsLeftWhereItIs) {
    const std::u16string path = folder_.Of(u"open.qln");
    ASSERT_NO_FATAL_FAILURE(PutFile(path, "precious"));
    const FileHandle reader(CreateFileW(Wide(path), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader);
    const RecycleResult result = shell_.Recycle(path);
    EXPECT_EQ(result == RecycleResult::Stays, files_.Read(path) == "precious")
        << "Wine's bin takes a file although it is open";
}

/// The user's data folder without the one in which Wine keeps its Recycle Bin: Wine then deletes permanently, as
/// Windows does on a volume without a bin.
class WithoutRecycleBin {
  public:
    WithoutRecycleBin() {
        std::array<wchar_t, MAX_PATH + 1> home{};
        const DWORD length = GetEnvironmentVariableW(L"QUILLO_TEST_HOME", home.data(), static_cast<DWORD>(home.size()));
        if (length == 0 || length >= home.size()) return;
        folder_ = std::u16string(FromWide(home.data())) + u"\\.local\\share";
        moved_ = MoveFileExW(Wide(folder_), Wide(folder_ + u" aside"), 0) != 0;
    }
    WithoutRecycleBin(const WithoutRecycleBin&) = delete;
    WithoutRecycleBin& operator=(const WithoutRecycleBin&) = delete;
    ~WithoutRecycleBin() {
        if (moved_) MoveFileExW(Wide(folder_ + u" aside"), Wide(folder_), 0);
    }
    [[nodiscard]] bool Works() const { return moved_; }

  private:
    std::u16string folder_;
    bool moved_ = false;
};

TEST_F(WinShellTest, AFileThatTheSystemDeletesPermanentlyIsGone) {
    const WithoutRecycleBin bin;
    if (!bin.Works()) GTEST_SKIP() << "QUILLO_TEST_HOME names no home folder whose Recycle Bin can be taken away";
    const std::u16string path = folder_.Of(u"lost.qln");
    ASSERT_NO_FATAL_FAILURE(PutFile(path, "x"));
    const RecycleResult result = shell_.Recycle(path);
    EXPECT_NE(result, RecycleResult::Moved);
    // A process in which Wine has already found its bin does not delete: there the file stays.
    EXPECT_EQ(result == RecycleResult::Gone, !files_.FileExists(path));
}

TEST_F(WinShellTest, AMissingFileCountsAsGone) {
    EXPECT_EQ(shell_.Recycle(folder_.Of(u"missing.qln")), RecycleResult::Gone);
}

TEST_F(WinShellTest, OpeningAMissingFileFailsSilently) {
    EXPECT_FALSE(shell_.Open(folder_.Of(u"missing.chm")));
}

TEST_F(WinShellTest, IdentifiersAreGuidsInTheRegistrysForm) {
    const std::u16string first = shell_.NewUniqueIdentifier();
    ASSERT_EQ(first.size(), 38U);
    EXPECT_EQ(first.front(), u'{');
    EXPECT_EQ(first.back(), u'}');
    for (std::size_t i = 1; i < 37; ++i) {
        const bool dash = i == 9 || i == 14 || i == 19 || i == 24;
        const char16_t c = first[i];
        EXPECT_TRUE(dash ? c == u'-' : (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F')) << i;
    }
    EXPECT_NE(first, shell_.NewUniqueIdentifier());
}

}  // namespace
}  // namespace quillo
