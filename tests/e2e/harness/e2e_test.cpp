#include "harness/e2e_test.h"

namespace quillo::e2e {

void E2eTest::SetUp() {
    ASSERT_TRUE(profile_.IsReady());
}

void E2eTest::TearDown() {
    if (quillo_ == nullptr) return;
    if (!quillo_->IsRunning()) return LookForCrash();
    EXPECT_TRUE(quillo_->Answers()) << "the program hangs";
    Quit();
}

void E2eTest::Start(const std::wstring& arguments, const std::wstring& folder) {
    MoveMouse(POINT{0, 0});  // away from the notes: the item under the pointer looks hot
    quillo_ = std::make_unique<QuilloProcess>(arguments, folder);
    ASSERT_TRUE(quillo_->WaitUntilReady()) << "the program did not start: " << quillo_->State();
}

void E2eTest::Quit() {
    EXPECT_EQ(RunToEnd(L"/close"), 0U);
    EXPECT_EQ(quillo_->WaitForExit(), 0U);
    LookForCrash();
}

void E2eTest::LookForCrash() const {
    EXPECT_EQ(quillo_->Crash(), "") << "the program has crashed";
}

std::vector<std::wstring> E2eTest::StorageCopies() const {
    std::vector<std::wstring> paths;
    for (const std::wstring& name : FilesIn(profile_.NotesFolder(), L".qln")) {
        paths.push_back(profile_.NotesFolder() + L"\\" + name);
    }
    return paths;
}

void OrdinaryTest::SetUp() {
    E2eTest::SetUp();
    if (Profile().IsReady()) Profile().UseOrdinarySettings();
}

}  // namespace quillo::e2e
