#include <filesystem>

#include "diagnosis.h"
#include "notes/note_codec.h"
#include "prefix_locale.h"
#include "qln_fixture.h"

namespace quillo::qln {
namespace {

class QlnDoctor : public QlnTest {
  protected:
    /// A note whose whole text no longer matches the text beside it.
    std::string DamagedUnicode() {
        EXPECT_EQ(Qln({"new", "\u65E5\u672C!"}), kDone);
        const std::string path = Out().substr(0, Out().find('\n'));
        std::string bytes = *ReadBytes(path);
        EXPECT_TRUE(RemoveFile(path));
        return bytes.replace(0, 1, "edited ");
    }
    std::string Copies() const { return JoinPaths(Root(), "Repaired 2026-11-22-100000"); }
};

TEST_F(QlnDoctor, SoundNotesAndPlainTextsAreNotChanged) {
    Put(Notes(kFirstName), Copy("sound"));
    Put(Notes("plain.qln"), "a text about <quillo>\r\nand more");
    EXPECT_EQ(Qln({"new", "\u65E5\u672C"}), kDone);
    EXPECT_EQ(Qln({"doctor"}), kDone);
    EXPECT_EQ(Out(), "Nothing is wrong.\n");
}

TEST_F(QlnDoctor, DescribesEachFault) {
    Put(Notes("a-torn.qln"), "text\r\n<quillo><position>15,1");
    Put(Notes("b-empty.qln"), "");
    Put(Notes("c-nulls.qln"), std::string("a\0b", 3));
    Put(Notes("d-sound.qln"), Copy("twice"));
    Put(Notes("e-double.qln"), Copy("twice"));
    Put(Notes("f-large.qln"), std::string(4'000'001, 'x'));
    Put(Notes("g-unicode.qln"), DamagedUnicode());
    Put(Notes("h.qln-part"), "half");
    Put(Notes("i.qln.new"), "half");
    EXPECT_EQ(Qln({"doctor"}), kNothingFound);
    EXPECT_EQ(Out(),
              "a-torn.qln: torn: its tags are cut off\n"
              "b-empty.qln: empty\n"
              "c-nulls.qln: null characters in it, so that Quillo does not open it\n"
              "e-double.qln: a double of d-sound.qln\n"
              "f-large.qln: larger than a note can be\n"
              "g-unicode.qln: damaged: its whole text does not fit the text beside it, which counts\n"
              "h.qln-part: a leftover of an interrupted write\n"
              "i.qln.new: a leftover of an interrupted write\n");
    EXPECT_EQ(NamesIn(Notes()).size(), 9U) << "nothing was touched";
}

TEST_F(QlnDoctor, RepairCorrectsFilesAndKeepsCopies) {
    const std::string unicode = DamagedUnicode();
    Put(Notes("a-torn.qln"), "\r\ntext\r\nmore\r\n<quillo><position>15,1");
    Put(Notes("b-empty.qln"), "");
    Put(Notes("c-sound.qln"), Copy("twice"));
    Put(Notes("d-double.qln"), Copy("twice"));
    Put(Notes("e-unicode.qln"), unicode);
    Put(Notes("f.qln-part"), "half");
    Put(Notes("g.qln.new"), Copy("never shown"));
    Put(Notes("c-sound.qln.new"), Copy("newer"));
    EXPECT_EQ(Qln({"doctor", "--repair"}), kDone) << Out() << Error();
    EXPECT_EQ(ReadBytes(Notes("a-torn.qln")),
              "\r\ntext\r\nmore\r\n<quillo><reminder></reminder><nodelete></nodelete></quillo>");
    EXPECT_EQ(ReadBytes(Notes("e-unicode.qln"))->find("<unicode>"), std::string::npos);
    EXPECT_EQ(ReadBytes(Notes("e-unicode.qln"))->substr(0, 11), "edited ?!\r\n");
    EXPECT_EQ(NamesIn(Notes()),
              (std::vector<std::string>{"a-torn.qln", "c-sound.qln", "d-double.qln", "e-unicode.qln", "g.qln"}));
    EXPECT_EQ(ReadBytes(Notes("g.qln")), Copy("never shown"));
    EXPECT_EQ(NamesIn(Copies()), (std::vector<std::string>{"a-torn.qln", "b-empty.qln", "c-sound.qln.new",
                                                           "e-unicode.qln", "f.qln-part", "g.qln.new"}));
    EXPECT_EQ(ReadBytes(JoinPaths(Copies(), "e-unicode.qln")), unicode);
    EXPECT_EQ(Qln({"doctor"}), kNothingFound);
    EXPECT_EQ(Out(), "d-double.qln: a double of c-sound.qln\n") << "a note is never removed";
}

TEST_F(QlnDoctor, RepairRefusesWhileTheProgramRuns) {
    Put(Notes("torn.qln"), "text\r\n<quillo>");
    host.channel.answers = true;
    EXPECT_EQ(Qln({"doctor", "--repair"}), kFailed);
    EXPECT_EQ(ReadBytes(Notes("torn.qln")), "text\r\n<quillo>");
    EXPECT_EQ(Qln({"doctor"}), kNothingFound) << "looking is allowed";
}

TEST(QlnDiagnosis, EveryCutOfANoteIsFoundOrIsPlainText) {
    PrefixLocale locale(*CodePage::Find(1252), Regional{});
    NoteFile note;
    note.text = u"text\r\nmore";
    note.reminder = NoteReminder{DaySerial{46348.5}};
    const std::string whole = *FormatNoteFile(note, locale);
    const std::size_t block = whole.find("<quillo>") + 8;
    for (std::size_t size = block; size < whole.size(); ++size) {
        Finding finding{"", Fault::Torn, whole.substr(0, size), ""};
        ASSERT_EQ(Diagnose(finding.bytes, locale), Fault::Torn) << size;
        EXPECT_EQ(ParseNoteFile(*Mended(finding, locale), locale).text, note.text);
    }
    EXPECT_FALSE(Diagnose(whole, locale));
}

}  // namespace
}  // namespace quillo::qln
