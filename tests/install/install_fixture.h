#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "harness/dialogs.h"
#include "harness/eventually.h"
#include "harness/files.h"
#include "harness/note_text.h"
#include "harness/note_window.h"
#include "harness/quillo_process.h"
#include "harness/test_profile.h"
#include "installation.h"

namespace quillo::e2e {

/// A user who has no Quillo. What the test installs is gone afterwards.
class InstallTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Starts a program that ends with the test, and so does all that it starts.
    Family& Start(const std::wstring& commandLine);
    /// Runs an installer without a page to its end. The exit code; nothing when it stayed.
    std::optional<DWORD> Setup(const std::wstring& setup, const std::wstring& options = L"");
    /// Installs the older version and waits until it shows this many notes.
    void Install(std::size_t notes, const std::wstring& options = L"");
    /// Starts what is installed, and waits until it shows this many notes.
    void StartInstalled(std::size_t notes);
    /// Ends it as a user does.
    void CloseInstalled();
    /// Removes without a page, and waits until the program's folder is gone.
    void Remove(const std::wstring& options = L"");

    [[nodiscard]] static bool ShowsNotes(std::size_t number);
    /// Whether every installed file is that of the later version, or none is; fails the test on a mixture.
    [[nodiscard]] bool IsNew() const;
    [[nodiscard]] std::wstring Installed(const std::wstring& file) const { return (folder_ / file).wstring(); }
    [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }
    void UseFolder(const std::filesystem::path& folder) { folder_ = folder; }
    /// Nothing that an update needs on the way is left.
    void ExpectNoLeftovers() const;

    [[nodiscard]] const TestProfile& Profile() const { return profile_; }
    [[nodiscard]] const TemporaryFolder& Outside() const { return outside_; }

  private:
    TestProfile profile_;
    TemporaryFolder outside_{L"outside"};
    std::filesystem::path folder_ = UsualFolder();
    std::vector<std::unique_ptr<Family>> families_;
};

}  // namespace quillo::e2e
