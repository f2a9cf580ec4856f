#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "harness/dialogs.h"
#include "harness/eventually.h"
#include "harness/files.h"
#include "harness/input.h"
#include "harness/note_text.h"
#include "harness/note_window.h"
#include "harness/quillo_process.h"
#include "harness/test_profile.h"

namespace quillo::e2e {

/// A test of the running program with a profile of its own.
class E2eTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Starts the program and waits until it is ready.
    void Start(const std::wstring& arguments = L"", const std::wstring& folder = L"");
    /// Ends the program as a user does; fails the test if it does not end, or has crashed.
    void Quit();
    /// The program that was started last.
    [[nodiscard]] QuilloProcess& Quillo() { return *quillo_; }

    [[nodiscard]] const TestProfile& Profile() const { return profile_; }
    /// Outside the folder of notes.
    [[nodiscard]] const TemporaryFolder& Outside() const { return outside_; }
    /// The full paths of the note files in the folder of notes.
    [[nodiscard]] std::vector<std::wstring> StorageCopies() const;

  private:
    void LookForCrash() const;

    TestProfile profile_;
    TemporaryFolder outside_{L"outside"};
    std::unique_ptr<QuilloProcess> quillo_;
};

/// The same with the profile of a user who has finished the first run and does not want random colors.
class OrdinaryTest : public E2eTest {
  protected:
    void SetUp() override;
};

}  // namespace quillo::e2e
