#include "harness/e2e_test.h"

namespace quillo::e2e {
namespace {

using ::testing::IsEmpty;

class SingleInstance : public OrdinaryTest {
  protected:
    static constexpr std::size_t kManyNotes = 40;

    /// Enough notes for start-up to take a while.
    void AddManyNotes() const {
        for (std::size_t i = 0; i < kManyNotes; ++i) {
            const std::string name = "many " + std::to_string(i);
            Profile().AddNote(Widen(name) + L".qln", NoteFile{name}.Bytes());
        }
    }
};

TEST_F(SingleInstance, OpensTheChannelThatSendersLookFor) {
    Start();
    HWND form = FindWindowW(L"ThunderRT6FormDC", L"Quillo Notify");
    ASSERT_NE(form, nullptr);
    EXPECT_FALSE(IsWindowVisible(form));
    EXPECT_NE(FindWindowExW(form, nullptr, L"ThunderRT6TextBox", nullptr), nullptr);
}

TEST_F(SingleInstance, ASecondStartWithNothingEndsAtOnce) {
    Profile().AddNote(L"note.qln", NoteFile{"a note"}.Bytes());
    Start();
    for (const wchar_t* arguments : {L"", L"   "}) {
        EXPECT_EQ(RunToEnd(arguments), 0U);
        EXPECT_TRUE(Quillo().IsRunning());
        EXPECT_EQ(NotesOf(Quillo()).size(), 1U);
    }
}

TEST_F(SingleInstance, OfTwoStartsAtOnceExactlyOneStays) {
    AddManyNotes();
    const QuilloProcess first;
    const QuilloProcess second;
    ASSERT_TRUE(Eventually([&] { return first.IsRunning() != second.IsRunning(); }));
    const QuilloProcess& stays = first.IsRunning() ? first : second;
    const QuilloProcess& ends = first.IsRunning() ? second : first;
    EXPECT_EQ(ends.WaitForExit(), 0U);
    ASSERT_TRUE(stays.WaitUntilReady());
    EXPECT_EQ(stays.Notes().size(), kManyNotes);
    EXPECT_EQ(RunToEnd(L"/close"), 0U);
    EXPECT_EQ(stays.WaitForExit(), 0U);
    EXPECT_EQ(StorageCopies().size(), kManyNotes);
}

TEST_F(SingleInstance, ACommandSentDuringStartUpIsNotLost) {
    AddManyNotes();
    const std::wstring path = Outside() / L"late.txt";
    WriteBytes(path, "came early");
    const QuilloProcess first;
    // Not before the first is the running instance: until then the second could become it.
    ASSERT_TRUE(Eventually([&] { return first.Channel() != nullptr; }));
    EXPECT_EQ(RunToEnd(L"\"" + path + L"\""), 0U);
    ASSERT_TRUE(first.WaitUntilReady());
    EXPECT_TRUE(WaitForNote(first, L"came early").IsVisible());
    EXPECT_FALSE(FileExists(path));
    EXPECT_EQ(first.Notes().size(), kManyNotes + 1);
    EXPECT_EQ(RunToEnd(L"/close"), 0U);
    EXPECT_EQ(first.WaitForExit(), 0U);
}

TEST_F(SingleInstance, ACommandSentBeforeTheChannelIsOpenWaitsForIt) {
    AddManyNotes();
    for (int attempt = 0; attempt < 5; ++attempt) {
        const QuilloProcess first;
        const QuilloProcess second(L"/new");
        ASSERT_TRUE(Eventually([&] { return first.IsRunning() != second.IsRunning() || first.Notes().size() > 0; }));
        if (!first.IsRunning() || MessageBoxWindow::Find(second.Pid())) continue;  // the second was faster
        EXPECT_EQ(second.WaitForExit(), 0U);
        ASSERT_TRUE(first.WaitUntilReady());
        EXPECT_TRUE(Eventually([&] { return first.Notes().size() == kManyNotes + 1; }));
        return;
    }
    FAIL() << "the first start never became the running program";
}

TEST_F(SingleInstance, AKilledInstanceDoesNotBlockTheNextStart) {
    Profile().AddNote(L"note.qln", NoteFile{"a note"}.Bytes());
    Start();
    Quillo().Kill();
    Start();
    EXPECT_EQ(VisibleNotes(Quillo()), 1U);
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 2; })) << "the new one hears what is sent";
}

TEST_F(SingleInstance, ACloseCommandWithoutAnInstanceChangesNothing) {
    EXPECT_EQ(RunToEnd(L"/close"), 0U);
    EXPECT_EQ(FindChannel(), nullptr);
    EXPECT_THAT(StorageCopies(), IsEmpty());
}

TEST_F(SingleInstance, AnEmptyCommandDoesNotWaitForAHungInstance) {
    Start();
    // A start with an empty command line sends nothing, so it ends although nobody answers.
    const DWORD thread = GetWindowThreadProcessId(Quillo().Channel(), nullptr);
    HANDLE suspended = OpenThread(THREAD_SUSPEND_RESUME, FALSE, thread);
    ASSERT_NE(suspended, nullptr);
    const KernelHandle owned(suspended);
    SuspendThread(suspended);
    const auto code = RunToEnd(L"");
    ResumeThread(suspended);
    EXPECT_EQ(code, 0U);
}

}  // namespace
}  // namespace quillo::e2e
