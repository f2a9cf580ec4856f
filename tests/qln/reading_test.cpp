#include "qln_fixture.h"

namespace quillo::qln {
namespace {

class QlnReading : public QlnTest {
  protected:
    void SetUp() override {
        Put(Notes(kFirstName), Copy("Buy milk\r\nand caf\xE9", "#46348.395833333336"));
        Put(Notes(kSecondName), Copy("\r\n\tCall Zo\xEB", "", 1));
        Put(Notes("plain.qln"),
            "Stra\xC3\x9F"
            "e 7");
        Put(Closed("old.qln"), Copy("Old milk"));
        Put(Notes("no note.txt"), "milk");
    }
};

TEST_F(QlnReading, ListHasALineForEachNoteByTheTimeOfItsFile) {
    EXPECT_EQ(Qln({"list"}), kDone);
    EXPECT_EQ(
        Out(),
        "1  3f2504e0  Buy milk  shown      2026-11-22 09:30  yellow   {3F2504E0-4F89-41D3-9A0C-0305E82C3301}.qln\n"
        "2  a0000002  Call Zo\u00EB  hidden     -                 yellow   {A0000002-4F89-41D3-9A0C-0305E82C3302}.qln\n"
        "3  daec60e0  Stra\u00DFe 7  shown      -                 default  plain.qln\n");
    EXPECT_EQ(Qln({"list", "--closed"}), kDone);
    EXPECT_NE(Out().find("Old milk  closed     -                 yellow   old.qln\n"), std::string::npos) << Out();
}

TEST_F(QlnReading, ListAsJson) {
    EXPECT_EQ(Qln({"list", "--json"}), kDone);
    EXPECT_EQ(Out().substr(0, Out().find("},")), R"([
  {
    "number": 1,
    "id": "3f2504e0",
    "words": "Buy milk",
    "state": "shown",
    "reminder": "2026-11-22T09:30:00",
    "color": "yellow",
    "file": "{3F2504E0-4F89-41D3-9A0C-0305E82C3301}.qln"
  )");
}

TEST_F(QlnReading, ShowAcceptsANumberAnIdAFileOrWords) {
    for (const std::string& which :
         {std::string("1"), std::string("3F2504E0"), Notes(kFirstName), std::string("CAFE")}) {
        EXPECT_EQ(Qln({"show", which}), kDone) << which;
        EXPECT_EQ(Out(), "Buy milk\nand caf\u00E9\n") << which;
    }
    EXPECT_EQ(Qln({"show", "milk", "buy"}), kDone);
    EXPECT_EQ(Qln({"show", Closed("old.qln")}), kDone);
    EXPECT_EQ(Out(), "Old milk\n");
}

TEST_F(QlnReading, AnEmptyFirstLineIsShown) {
    EXPECT_EQ(Qln({"show", "2"}), kDone);
    EXPECT_EQ(Out(), "\n\tCall Zo\u00EB\n");
}

TEST_F(QlnReading, SeveralHitsAreListedAndNoneIsShown) {
    EXPECT_EQ(Qln({"show", "--closed", "milk"}), kWrongUse);
    EXPECT_EQ(Out(), "");
    EXPECT_NE(Error().find("3f2504e0"), std::string::npos);
    EXPECT_NE(Error().find("old.qln"), std::string::npos);
    EXPECT_EQ(Qln({"show", "nowhere"}), kNothingFound);
    EXPECT_EQ(Qln({"show", "99"}), kNothingFound);
    EXPECT_EQ(Error(), "qln: no such note: 99\n");
}

TEST_F(QlnReading, AnIdOfOnlyDigitsIsUsedIfNoNoteHasTheNumber) {
    Put(Notes("{12345678-4F89-41D3-9A0C-0305E82C3301}.qln"), Copy("digits"));
    EXPECT_EQ(Qln({"show", "12345678"}), kDone);
    EXPECT_EQ(Out(), "digits\n");
}

TEST_F(QlnReading, FindRequiresEveryWordIgnoringCaseAndAccents) {
    EXPECT_EQ(Qln({"find", "MILK", "caf\u00C9"}), kDone);
    EXPECT_EQ(Out(), "1  3f2504e0  Buy milk\n");
    EXPECT_EQ(Qln({"find", "zoe"}), kDone);
    EXPECT_EQ(Out(), "2  a0000002  Call Zo\u00EB\n");
    EXPECT_EQ(Qln({"find", "STRASSE"}), kDone);
    EXPECT_EQ(Qln({"find", "milk", "zoe"}), kNothingFound);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Qln({"find", "nodelete"}), kNothingFound) << "the tags are no text";
    EXPECT_EQ(Qln({"find", "old", "--closed"}), kDone);
}

TEST_F(QlnReading, AMatchIsMarkedOnATerminalOnly) {
    host.console.terminal = true;
    EXPECT_EQ(Qln({"find", "strasse"}), kDone);
    EXPECT_NE(Out().find("\x1b[1;31mStra\u00DFe\x1b[0m 7\n"), std::string::npos) << Out();
    EXPECT_EQ(Qln({"find", "ll", "all", "zoe"}), kDone);
    EXPECT_NE(Out().find("C\x1b[1;31mall\x1b[0m \x1b[1;31mZo\u00EB\x1b[0m\n"), std::string::npos) << Out();
}

TEST_F(QlnReading, NothingInANoteActsOnATerminal) {
    Put(Notes(kThirdName), Copy("evil\x1b]0;title\x07 \x9B"
                                "2J"));
    host.console.terminal = true;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"show", "4"}, {"list"}}) {
        EXPECT_EQ(Qln(arguments), kDone);
        EXPECT_EQ(Out().find('\x1b'), std::string::npos);
        EXPECT_EQ(Out().find('\x07'), std::string::npos);
    }
    EXPECT_EQ(Qln({"find", "title"}), kDone);
    EXPECT_NE(Out().find("evil\uFFFD]0;\x1b[1;31mtitle\x1b[0m\uFFFD"), std::string::npos) << Out();
}

TEST_F(QlnReading, PathOfTheFolderAndOfANote) {
    EXPECT_EQ(Qln({"path"}), kDone);
    EXPECT_EQ(Out(), Notes() + "\n");
    EXPECT_EQ(Qln({"path", "2"}), kDone);
    EXPECT_EQ(Out(), Notes(kSecondName) + "\n");
}

TEST_F(QlnReading, WrongUseIsReported) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"nonsense"},
                                                      {"find"},
                                                      {"show"},
                                                      {"list", "--nonsense"},
                                                      {"list", "--codepage", "x"}}) {
        EXPECT_EQ(Qln(arguments), kWrongUse);
        EXPECT_NE(Error(), "");
    }
    EXPECT_EQ(Qln({"find", "\xFF"}), kWrongUse);
    EXPECT_EQ(Qln({"--version"}), kDone);
    EXPECT_EQ(Out(), "qln 1.0.0\n");
    EXPECT_EQ(Qln({"find", "--help"}), kDone);
    EXPECT_NE(Out().find("WORDS"), std::string::npos);
    EXPECT_EQ(Qln({"list", "--folder", Root() + "/nowhere"}), kFailed);
}

}  // namespace
}  // namespace quillo::qln
