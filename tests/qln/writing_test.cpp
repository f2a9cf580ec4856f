#include <filesystem>

#include "json_notes.h"
#include "qln_fixture.h"

namespace quillo::qln {
namespace {

namespace fs = std::filesystem;

class QlnWriting : public QlnTest {
  protected:
    std::string MadePath() const { return Out().substr(0, Out().find('\n')); }
    std::string MadeBytes() const { return ReadBytes(MadePath()).value_or("(nothing)"); }
    void Fill(int count) {
        for (int i = 0; i < count; ++i) Put(Notes("n" + std::to_string(i) + ".qln"), Copy("note " + std::to_string(i)));
    }
};

constexpr const char* kUsualLook = "<appearance>False,False,14155262,3723262,0,0</appearance>";

TEST_F(QlnWriting, NewMakesAStorageCopyWithoutAPlace) {
    EXPECT_EQ(Qln({"new", "Buy", "caf\u00E9"}), kDone);
    EXPECT_EQ(MadePath(), Notes("{00000001-0000-4000-8000-000000000000}.qln"));
    EXPECT_EQ(MadeBytes(), std::string("Buy caf\xE9\r\n<quillo>") + kUsualLook +
                               "<reminder></reminder><nodelete></nodelete></quillo>");
    EXPECT_EQ(NamesIn(Notes()).size(), 1U) << "nothing else stays";
    EXPECT_EQ(Error(), "qln: shown at Quillo's next start\n");
}

TEST_F(QlnWriting, NewWithEveryOption) {
    host.settings.timestampNewNotes = true;
    host.settings.randomNoteColor = true;
    EXPECT_EQ(Qln({"new", "x", "--remind", "in 20 minutes", "--color", "Black-and-Blue", "--hidden"}), kDone);
    EXPECT_EQ(MadeBytes(),
              "(11/22/2026 10:00:00 AM)\r\n\r\nx\r\n<quillo><appearance>False,True,0,16707344,16707344,1</appearance>"
              "<reminder>#46348.4305555556</reminder><nodelete></nodelete></quillo>");
    EXPECT_EQ(Error().substr(0, Error().find('\n')), "Reminder: Sunday, 11/22/2026, 10:20:00 AM");
    EXPECT_EQ(Qln({"new", "x"}), kDone);
    EXPECT_NE(MadeBytes().find("False,True,16051936,13871483,0,0"), std::string::npos)
        << "a random scheme: " << MadeBytes();
}

TEST_F(QlnWriting, NewReadsTheStandardInput) {
    host.console.input =
        "\xEF\xBB\xBF"
        "first\nsecond\r\n\xE2\x82\xAC\n";
    EXPECT_EQ(Qln({"new", "-"}), kDone);
    EXPECT_EQ(MadeBytes().substr(0, 20), "first\r\nsecond\r\n\x80\r\n<q");
}

TEST_F(QlnWriting, NewKeepsCharactersThatTheCodePageLacks) {
    EXPECT_EQ(Qln({"new", "\u65E5\u672C <quillo>"}), kDone);
    EXPECT_EQ(Qln({"show", "1"}), kDone);
    EXPECT_EQ(Out(), "\u65E5\u672C <quillo>\n");
}

TEST_F(QlnWriting, AnInvalidArgumentRefusesTheWholeCommand) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"new", "x", "--remind", "someday"}, {"new", "x", "--color", "pink"}, {"new", "-"}}) {
        host.console.input = std::string("a\0b", 3);
        EXPECT_EQ(Qln(arguments), kWrongUse);
        EXPECT_NE(Error(), "");
    }
    for (const std::string& input : {std::string("\xC3"), std::string("\xED\xA0\x80"), std::string(4'000'001, 'x')}) {
        host.console.input = input;
        EXPECT_EQ(Qln({"new", "-"}), kWrongUse);
    }
    EXPECT_TRUE(NamesIn(Notes()).empty());
}

TEST_F(QlnWriting, ARunningProgramIsNotifiedOfTheNote) {
    host.channel.answers = true;
    EXPECT_EQ(Qln({"new", "x", "--start"}), kDone);
    EXPECT_EQ(host.channel.sent, std::vector<std::string>{MadePath()});
    EXPECT_EQ(Error(), "");
    EXPECT_EQ(host.channel.started, 0);
}

TEST_F(QlnWriting, StartStartsTheProgram) {
    host.channel.starts = true;
    EXPECT_EQ(Qln({"new", "x", "--start"}), kDone);
    EXPECT_EQ(host.channel.started, 1);
    EXPECT_EQ(Error(), "");
    host.channel.starts = false;
    EXPECT_EQ(Qln({"new", "x", "--start"}), kDone);
    EXPECT_NE(Error().find("cannot be started"), std::string::npos);
}

TEST_F(QlnWriting, WithFiftyNotesNothingIsWritten) {
    Fill(50);
    EXPECT_EQ(Qln({"new", "x"}), kFailed);
    EXPECT_EQ(NamesIn(Notes()).size(), 50U);
    EXPECT_NE(Error().find("50"), std::string::npos);
}

TEST_F(QlnWriting, ANoteThatCannotBeWrittenLeavesNoFile) {
    Put(Notes("{00000001-0000-4000-8000-000000000000}.qln-part"), "in the way");
    EXPECT_EQ(Qln({"new", "x"}), kFailed);
    EXPECT_EQ(NamesIn(Notes()), std::vector<std::string>{"{00000001-0000-4000-8000-000000000000}.qln-part"});
}

TEST_F(QlnWriting, JsonIsRestoredByteForByte) {
    Put(Notes(kFirstName), Copy("\r\nfirst line is empty \x80", "#46348.3958333333", 2));
    Put(Notes(kSecondName),
        "\x3F\r\n<quillo><position>1.5,-15,3000,2400</position>"
        "<appearance>True,True,-2147483643,1,0,1</appearance><reminder></reminder>"
        "<nodelete></nodelete></quillo>");
    EXPECT_EQ(Qln({"new", "\u65E5\u672C"}), kDone);
    const std::string export_ = JoinPaths(Root(), "all.json");
    EXPECT_EQ(Qln({"export", "--format", "json", "-o", export_}), kDone);
    std::vector<std::string> before;
    for (const std::string& name : NamesIn(Notes())) before.push_back(*ReadBytes(Notes(name)));
    for (const std::string& name : NamesIn(Notes())) ASSERT_TRUE(RemoveFile(Notes(name)));
    EXPECT_EQ(Qln({"import", export_}), kDone) << Error();
    std::vector<std::string> after;
    for (const std::string& name : NamesIn(Notes())) after.push_back(*ReadBytes(Notes(name)));
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    EXPECT_EQ(after, before);
    EXPECT_TRUE(IsFile(export_)) << "the source stays";
}

TEST_F(QlnWriting, TextAndMarkdownRestoreTheText) {
    const std::vector<std::string> texts = {"one", "\r\n\r\ntwo\r\n", "```note\r\n````\r\n# x", "", "\ttab  "};
    for (std::size_t i = 0; i < texts.size(); ++i) Put(Notes("t" + std::to_string(i) + ".qln"), Copy(texts[i]));
    const std::string folder = JoinPaths(Root(), "out");
    ASSERT_TRUE(MakeFolder(folder));
    EXPECT_EQ(Qln({"export", "--format", "text", "-o", folder}), kDone);
    const std::string markdown = JoinPaths(Root(), "all.md");
    EXPECT_EQ(Qln({"export", "--format", "markdown", "-o", markdown}), kDone);
    for (const std::string& name : NamesIn(Notes())) ASSERT_TRUE(RemoveFile(Notes(name)));
    std::vector<std::string> arguments = {"import", markdown};
    for (const std::string& name : NamesIn(folder)) arguments.push_back(JoinPaths(folder, name));
    EXPECT_EQ(Qln(arguments), kDone) << Error();
    std::vector<std::string> read;
    for (const std::string& name : NamesIn(Notes())) {
        const std::string bytes = *ReadBytes(Notes(name));
        read.push_back(bytes.substr(0, bytes.rfind("\r\n<quillo>")));
    }
    std::vector<std::string> twice = texts;
    twice.insert(twice.end(), texts.begin(), texts.end());
    std::sort(read.begin(), read.end());
    std::sort(twice.begin(), twice.end());
    EXPECT_EQ(read, twice);
}

TEST_F(QlnWriting, ImportRefusesEverythingForOneBadFile) {
    const std::string good = JoinPaths(Root(), "good.txt");
    const std::string bad = JoinPaths(Root(), "bad.txt");
    Put(good, "good");
    Put(bad, "b\xFF");
    EXPECT_EQ(Qln({"import", good, bad}), kWrongUse);
    EXPECT_EQ(Qln({"import", good, JoinPaths(Root(), "missing")}), kWrongUse);
    EXPECT_TRUE(NamesIn(Notes()).empty());
}

TEST_F(QlnWriting, ImportNamesNotesAboveTheLimit) {
    Fill(49);
    const std::string one = JoinPaths(Root(), "one.txt");
    const std::string two = JoinPaths(Root(), "two.txt");
    Put(one, "first");
    Put(two, "second");
    EXPECT_EQ(Qln({"import", one, two}), kFailed);
    EXPECT_NE(Error().find("1 of 2 notes are over the limit, from \"second\" on"), std::string::npos) << Error();
    EXPECT_EQ(NamesIn(Notes()).size(), 50U);
}

TEST_F(QlnWriting, ABackupIsByteForByteAndDated) {
    Put(Notes(kFirstName), Copy("\r\nfirst"));
    Put(Notes("other.txt"), "kept, too");
    const std::string into = JoinPaths(Root(), "backups");
    EXPECT_EQ(Qln({"backup", into}), kDone);
    const std::string folder = MadePath();
    EXPECT_EQ(folder, JoinPaths(into, "quillo-notes-2026-11-22-100000"));
    EXPECT_EQ(NamesIn(folder), (std::vector<std::string>{"other.txt", "quillo-settings.txt", kFirstName}));
    EXPECT_EQ(ReadBytes(JoinPaths(folder, kFirstName)), Copy("\r\nfirst"));
    EXPECT_EQ(FactsOf(JoinPaths(folder, kFirstName))->modified, FactsOf(Notes(kFirstName))->modified);
    EXPECT_EQ(ReadBytes(JoinPaths(folder, "quillo-settings.txt")), "Note opacity=192\n");
    EXPECT_EQ(Qln({"backup", into}), kDone);
    EXPECT_EQ(MadePath(), folder + "-2");
}

TEST_F(QlnWriting, RestoreCreatesMissingNotes) {
    Put(Notes(kFirstName), Copy("\r\nfirst", "#46348.3958333333", 1));
    Put(Notes(kSecondName), Copy("second"));
    Put(Notes(kThirdName), Copy("third"));
    EXPECT_EQ(Qln({"backup", Root()}), kDone);
    const std::string backup = MadePath();
    ASSERT_TRUE(RemoveFile(Notes(kFirstName)));
    Put(Notes(kSecondName), Copy("second, changed"));
    host.channel.answers = true;
    EXPECT_EQ(Qln({"restore", backup}), kDone);
    EXPECT_EQ(Out(), Notes(kFirstName) + "\n");
    EXPECT_NE(Error().find(kSecondName), std::string::npos) << "listed";
    EXPECT_EQ(ReadBytes(Notes(kFirstName)), Copy("\r\nfirst", "#46348.3958333333", 1));
    EXPECT_EQ(host.channel.sent, std::vector<std::string>{Notes(kFirstName)});
    EXPECT_EQ(ReadBytes(Notes(kSecondName)), Copy("second, changed"));

    EXPECT_EQ(Qln({"restore", backup, "--older"}), kDone);
    EXPECT_EQ(ReadBytes(MadePath()), Copy("second"));
    EXPECT_EQ(NamesIn(Notes()).size(), 4U);
    EXPECT_EQ(Qln({"restore", backup, "--older"}), kDone);
    EXPECT_EQ(Out(), "") << "everything is there now";
    EXPECT_EQ(NamesIn(backup).size(), 4U) << "the backup stays";
}

TEST_F(QlnWriting, RestoreNamesNotesAboveTheLimit) {
    Put(Notes(kFirstName), Copy("first"));
    EXPECT_EQ(Qln({"backup", Root()}), kDone);
    const std::string backup = MadePath();
    ASSERT_TRUE(RemoveFile(Notes(kFirstName)));
    Fill(50);
    EXPECT_EQ(Qln({"restore", backup}), kFailed);
    EXPECT_NE(Error().find(kFirstName), std::string::npos);
    EXPECT_EQ(NamesIn(Notes()).size(), 50U);
    EXPECT_EQ(Qln({"restore", Closed()}), kFailed) << "no notes there";
}

TEST_F(QlnWriting, OpenAndQuitUseTheChannel) {
    const std::string file = JoinPaths(Root(), "a b.txt");
    Put(file, "x");
    EXPECT_EQ(Qln({"open", file}), kFailed);
    EXPECT_EQ(Qln({"quit"}), kFailed);
    host.channel.answers = true;
    EXPECT_EQ(Qln({"open", file}), kDone);
    EXPECT_EQ(Qln({"quit"}), kDone);
    EXPECT_EQ(host.channel.sent, (std::vector<std::string>{file, "/close"}));
    EXPECT_EQ(Qln({"open", JoinPaths(Root(), "none")}), kNothingFound);
}

}  // namespace
}  // namespace quillo::qln
