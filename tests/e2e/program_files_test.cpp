#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/base/app_identity.h"
#include "harness/files.h"
#include "harness/quillo_process.h"
#include "platform/wide.h"
#include "version.h"

namespace quillo::e2e {
namespace {

using ::testing::HasSubstr;

std::wstring PathOf(const wchar_t* program) {
    return (std::filesystem::path(QuilloExe()).parent_path() / program).wstring();
}

/// A program's file, opened as data: none of its code runs.
class ProgramFile {
  public:
    explicit ProgramFile(const std::wstring& path)
        : module_(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {
        EXPECT_NE(module_, nullptr);
        DWORD ignored = 0;
        version_.resize(GetFileVersionInfoSizeW(path.c_str(), &ignored));
        EXPECT_NE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(version_.size()), version_.data()), 0);
    }
    ProgramFile(const ProgramFile&) = delete;
    ProgramFile& operator=(const ProgramFile&) = delete;
    ~ProgramFile() { FreeLibrary(module_); }

    /// An entry of the version, such as "ProductName".
    [[nodiscard]] std::wstring Says(const std::wstring& name) const {
        void* text = nullptr;
        UINT length = 0;
        const std::wstring path = L"\\StringFileInfo\\040904B0\\" + name;
        const bool found = VerQueryValueW(version_.data(), path.c_str(), &text, &length) != 0;
        return found ? static_cast<const wchar_t*>(text) : L"";
    }
    [[nodiscard]] std::string Manifest(int number = 1) const {
        HRSRC found = FindResourceW(module_, MAKEINTRESOURCEW(number), MAKEINTRESOURCEW(24));
        if (found == nullptr) return {};
        const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module_, found)));
        return {bytes, SizeofResource(module_, found)};
    }
    /// How many sizes an icon has; 0 if no icon has that number.
    [[nodiscard]] int IconSizes(int number) const {
        HRSRC found = FindResourceW(module_, MAKEINTRESOURCEW(number), MAKEINTRESOURCEW(14));
        if (found == nullptr) return 0;
        return static_cast<const WORD*>(LockResource(LoadResource(module_, found)))[2];
    }

  private:
    HMODULE module_;
    std::vector<BYTE> version_;
};

TEST(ProgramFiles, HaveTheirVersionInformation) {
    struct Case {
        const wchar_t* name;
        const wchar_t* title;
        const wchar_t* description;
    };
    for (const Case& program :
         {Case{L"quillo.exe", L"quillo", L"Quillo"}, Case{L"quillo-new.exe", L"quillo-new", L"Quillo: new note"}}) {
        const ProgramFile file(PathOf(program.name));
        EXPECT_EQ(file.Says(L"OriginalFilename"), program.name);
        EXPECT_EQ(file.Says(L"InternalName"), program.title);
        EXPECT_EQ(file.Says(L"FileDescription"), program.description);
        EXPECT_EQ(file.Says(L"ProductName"), L"Quillo");
        EXPECT_EQ(file.Says(L"CompanyName"), L"Marrowind");
        EXPECT_EQ(file.Says(L"LegalCopyright"), Wide(std::u16string(kMakerNotice)));
        EXPECT_EQ(file.Says(L"Comments"), L"Freeware");
        const std::string version = QUILLO_VERSION_TEXT;
        EXPECT_EQ(file.Says(L"ProductVersion"), std::wstring(version.begin(), version.end()));
        EXPECT_EQ(file.Says(L"FileVersion"), std::wstring(version.begin(), version.end()));
    }
}

TEST(ProgramFiles, DeclareTheirSupportedSystems) {
    for (const wchar_t* program : {L"quillo.exe", L"quillo-new.exe"}) {
        const std::string manifest = ProgramFile(PathOf(program)).Manifest();
        EXPECT_THAT(manifest, HasSubstr("{35138b9a-5d96-4fbd-8e2d-a2440225f93a}")) << "Windows 7";
        EXPECT_THAT(manifest, HasSubstr("{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}")) << "Windows 10 and 11";
        EXPECT_THAT(manifest, HasSubstr(">PerMonitorV2, PerMonitor<"));
        EXPECT_THAT(manifest, HasSubstr("longPathAware"));
        EXPECT_THAT(manifest, HasSubstr("level=\"asInvoker\""));
    }
}

TEST(ProgramFiles, NameTheControlsWithAVisualStyleOnce) {
    constexpr char kControls[] = "Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\"";
    constexpr int kControlsManifest = 131;
    const ProgramFile quillo(PathOf(L"quillo.exe"));
    EXPECT_THAT(quillo.Manifest(), Not(HasSubstr(kControls))) << "a start would load them";
    EXPECT_THAT(quillo.Manifest(kControlsManifest), HasSubstr(kControls));
    EXPECT_THAT(ProgramFile(PathOf(L"quillo-new.exe")).Manifest(), HasSubstr(kControls));
}

TEST(ProgramFiles, HaveTheirIconsInEverySize) {
    constexpr int kMark = 101;
    constexpr int kNoteFile = 102;
    const ProgramFile quillo(PathOf(L"quillo.exe"));
    EXPECT_EQ(quillo.IconSizes(kMark), 9);
    EXPECT_EQ(quillo.IconSizes(kNoteFile), 9);
    EXPECT_EQ(ProgramFile(PathOf(L"quillo-new.exe")).IconSizes(kMark), 5);
}

TEST(ProgramFiles, TheSmallOneIsSmall) {
    EXPECT_LE(std::filesystem::file_size(PathOf(L"quillo-new.exe")), 40'000U);
}

}  // namespace
}  // namespace quillo::e2e
