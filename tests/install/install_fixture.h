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

/// A user without Quillo. The fixture removes what a test installs.
class InstallTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Starts a program that ends with the test, together with its child processes.
    Family& Start(const std::wstring& commandLine);
    /// Runs a silent installer to its end. Returns the exit code; nothing if it is still running after the deadline.
    std::optional<DWORD> Setup(const std::wstring& setup, const std::wstring& options = L"");
    /// Installs the older version and waits until it shows this many notes.
    void Install(std::size_t notes, const std::wstring& options = L"");
    /// Starts the installed program, and waits until it shows this many notes.
    void StartInstalled(std::size_t notes);
    /// Closes the program as a user does.
    void CloseInstalled();
    /// Uninstalls silently, and waits until the program's folder is gone.
    void Remove(const std::wstring& options = L"");

    [[nodiscard]] static bool ShowsNotes(std::size_t number);
    /// Whether the installed files are those of the later version (true) or the earlier one; a mixture fails the test.
    [[nodiscard]] bool IsNew() const;
    [[nodiscard]] std::wstring Installed(const std::wstring& file) const { return (folder_ / file).wstring(); }
    [[nodiscard]] const std::filesystem::path& Folder() const { return folder_; }
    void UseFolder(const std::filesystem::path& folder) { folder_ = folder; }
    /// No temporary file of an update is left.
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
