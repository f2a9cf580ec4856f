#include <array>

#include "harness/dialogs.h"
#include "harness/e2e_test.h"
#include "harness/mail_program.h"
#include "harness/popup_menu.h"

namespace quillo::e2e {
namespace {

constexpr wchar_t kMessageWindow[] = L"Mail program of the tests";
const std::string kBelowTheText =
    "\r\n\r\n\r\n------------------------------------------------------------\r\n"
    "This message has a sticky note attached to it.  To view the sticky note, you will need Quillo.  You can get it at "
    "www.marrowind.example -- it's free!\r\n";

/// How many of our files are in the system's temporary folder.
std::size_t TemporaryFiles() {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    std::size_t count = 0;
    for (const std::wstring& name : FilesIn(folder.data(), L".tmp")) count += name.rfind(L"QL-", 0) == 0 ? 1U : 0U;
    return count;
}

/// Programs started in the scope have that temporary folder.
class TemporaryFolderScope {
  public:
    explicit TemporaryFolderScope(const std::wstring& folder) {
        GetEnvironmentVariableW(L"TMP", before_.data(), static_cast<DWORD>(before_.size()));
        SetEnvironmentVariableW(L"TMP", folder.c_str());
    }
    TemporaryFolderScope(const TemporaryFolderScope&) = delete;
    TemporaryFolderScope& operator=(const TemporaryFolderScope&) = delete;
    ~TemporaryFolderScope() { SetEnvironmentVariableW(L"TMP", before_[0] != L'\0' ? before_.data() : nullptr); }

  private:
    std::array<wchar_t, 1024> before_{};
};

class MailingTest : public OrdinaryTest {
  protected:
    NoteWindow Open(const std::string& text) {
        Profile().SetText(L"Note folder", Outside().Path());
        path_ = Profile().AddNote(L"note.qln", NoteFile{text}.Bytes());
        Start();
        before_ = MarkOf(path_);
        return FindNote(Quillo(), Widen(text));
    }
    void MailByMenu(const NoteWindow& note) {
        ASSERT_TRUE(note.TakeKeyboard());
        PressKey(VK_APPS);
        const auto menu = PopupMenu::WaitFor(Quillo().Pid());
        ASSERT_TRUE(menu);
        ASSERT_TRUE(menu->ChooseByKeys(static_cast<int>(NoteMenuLine::Email), kNoteMenuLines));
    }
    /// Answers the message window of the mail program: sends or discards.
    void Answer(int button) {
        const auto box = MessageBoxWindow::WaitFor(Quillo().Pid());
        ASSERT_TRUE(box);
        ASSERT_EQ(box->Title(), kMessageWindow);
        EXPECT_TRUE(box->Answer(button));
    }
    [[nodiscard]] const FileMark& Before() const { return before_; }
    [[nodiscard]] FileMark Now() const { return MarkOf(path_); }

  private:
    std::wstring path_;
    FileMark before_;
};

TEST_F(MailingTest, ANoteIsSentAsTheAttachmentOfAMessage) {
    const TestMailProgram mail;
    const std::size_t temporaryFiles = TemporaryFiles();
    const std::string text = "Caf\xE9 at eight\r\nwith Bob, and do not forget the tickets for the concert";
    const NoteWindow note = Open(text);
    MailByMenu(note);
    ASSERT_TRUE(Eventually([&] { return mail.HasBeenCalled("send"); }));
    EXPECT_TRUE(FileExists(Widen(mail.Detail("path"))));
    Answer(IDOK);
    ASSERT_TRUE(Eventually([&] { return mail.HasBeenCalled("sign off"); }));

    EXPECT_EQ(mail.Calls(), (std::vector<std::string>{"sign on", "send", "sign off"}));
    EXPECT_EQ(mail.Subject(), text.substr(0, 61) + "...");
    EXPECT_EQ(mail.Body(), text + kBelowTheText);
    EXPECT_EQ(mail.Detail("position"), std::to_string(mail.Body().size() - 1));
    EXPECT_EQ(mail.Detail("type"), "0");
    EXPECT_EQ(mail.Detail("name"), "Sticky note.qln");
    EXPECT_EQ(mail.Detail("files"), "1");
    EXPECT_EQ(mail.Detail("recipients"), "0") << "the user addresses it";
    EXPECT_EQ(mail.Detail("flags"), "8") << "the message window is asked for";
    EXPECT_EQ(mail.Detail("session"), "4711");
    EXPECT_EQ(mail.Detail("owner"), "QuilloMail");
    EXPECT_FALSE(FileExists(Widen(mail.Detail("path"))));
    EXPECT_EQ(TemporaryFiles(), temporaryFiles);
    EXPECT_TRUE(Eventually([] { return FindWindowW(nullptr, L"QuilloMail") == nullptr; })) << "made for one sending";
    EXPECT_EQ(Now(), Before()) << "the note was not even saved again";

    // The receiver opens it: it is the same note, and its file is not moved.
    EXPECT_EQ(mail.Attachment(), Before().bytes);
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey('W', {VK_CONTROL, VK_SHIFT});
    ASSERT_TRUE(Eventually([&] { return NotesOf(Quillo()).empty(); }));
    const std::wstring received = Outside() / L"Sticky note.qln";
    WriteBytes(received, mail.Attachment());
    EXPECT_EQ(RunToEnd(L"\"" + received + L"\""), 0U);
    EXPECT_NE(WaitForNote(Quillo(), Widen(text)).Handle(), nullptr);
    EXPECT_TRUE(FileExists(received));
}

TEST_F(MailingTest, TheAttachmentIsFoundInATemporaryFolderWithAnyName) {
    const TestMailProgram mail;
    const std::wstring folder = Outside() / L"\x437\x430\x43C\x435\x442\x43A\x438";  // not in any Western code page
    ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    const TemporaryFolderScope scope(folder);
    MailByMenu(Open("Call Bob"));
    Answer(IDOK);
    ASSERT_TRUE(Eventually([&] { return mail.HasBeenCalled("sign off"); }));
    EXPECT_EQ(mail.Attachment(), Before().bytes);
    EXPECT_TRUE(FilesIn(folder).empty());
}

TEST_F(MailingTest, DiscardingTheMessageIsNotAnError) {
    const TestMailProgram mail;
    const NoteWindow note = Open("Call Bob");
    MailByMenu(note);
    Answer(IDCANCEL);
    ASSERT_TRUE(Eventually([&] { return mail.HasBeenCalled("sign off"); }));
    EXPECT_EQ(mail.Subject(), "Call Bob");
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
    EXPECT_FALSE(FileExists(Widen(mail.Detail("path"))));
}

TEST_F(MailingTest, TheNoteMayBeClosedWhileItsMessageIsOpen) {
    const TestMailProgram mail;
    const NoteWindow note = Open("Call Bob");
    MailByMenu(note);
    ASSERT_TRUE(Eventually([&] { return mail.HasBeenCalled("send"); }));
    PostMessageW(note.Handle(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(Eventually([&] { return !note.Exists(); }));
    Answer(IDOK);
    ASSERT_TRUE(Eventually([&] { return mail.HasBeenCalled("sign off"); }));
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_FALSE(FileExists(Widen(mail.Detail("path"))));
    EXPECT_TRUE(StorageCopies().empty());
    EXPECT_TRUE(FileExists(Outside() / L"Call.qln")) << "it was closed as ever";
}

TEST_F(MailingTest, TheProgramMayEndWhileAMessageIsOpen) {
    const TestMailProgram mail;
    MailByMenu(Open("Call Bob"));
    ASSERT_TRUE(Eventually([&] { return mail.HasBeenCalled("send"); }));
    ASSERT_TRUE(MessageBoxWindow::WaitFor(Quillo().Pid()));
    Quit();
    EXPECT_TRUE(mail.HasBeenCalled("sign off"));
    EXPECT_FALSE(FileExists(Widen(mail.Detail("path"))));
    EXPECT_EQ(Now(), Before());
}

TEST_F(MailingTest, WithoutSigningOnTheErrorIsReportedOnce) {
    const TestMailProgram mail(TestMailProgram::SignOn::Refuse);
    const std::size_t temporaryFiles = TemporaryFiles();
    const NoteWindow note = Open("Call Bob");
    MailByMenu(note);
    const auto box = MessageBoxWindow::WaitFor(Quillo().Pid());
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Title(), L"Quillo");
    EXPECT_EQ(box->Text(),
              L"Quillo could not send this note because no mail program answered.  Please make sure that you have a "
              L"default mail program.  The note itself was not changed.");
    EXPECT_TRUE(box->ShowsWarningIcon());
    EXPECT_TRUE(box->Answer(IDOK));
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
    EXPECT_EQ(mail.Calls(), (std::vector<std::string>{"sign on"}));
    EXPECT_EQ(TemporaryFiles(), temporaryFiles);
    EXPECT_EQ(Now(), Before());
}

TEST_F(MailingTest, ANoteWithoutTextIsNotSent) {
    const TestMailProgram mail;
    const NoteWindow note = Open("");
    MailByMenu(note);
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_TRUE(mail.Calls().empty());
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L" ");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L" "; }));
    MailByMenu(note);
    Answer(IDOK);  // blanks are text
    ASSERT_TRUE(Eventually([&] { return mail.HasBeenCalled("sign off"); }));
    EXPECT_EQ(mail.Subject(), " ");
}

}  // namespace
}  // namespace quillo::e2e
