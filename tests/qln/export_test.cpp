#include <filesystem>

#include "export_notes.h"
#include "json_notes.h"
#include "qln_fixture.h"
#include "words.h"

namespace quillo::qln {
namespace {

/// Notes with every character that could break a format.
class QlnExport : public QlnTest {
  protected:
    void SetUp() override {
        Put(Notes(kFirstName), Copy("Buy milk; 2, or <3> & \"more\"\r\n```note\r\n  caf\xE9", "#46348.395833333336"));
        Put(Notes(kSecondName), Copy("\r\n# lower\\", "#46348.75", 1));
        Put(Notes(kThirdName), "a\x1b\x01\x9D]\r\n<quillo><position>0,100,1500,750</position></quillo>");
        Put(Closed("old.qln"), Copy("Old"));
    }

    std::string Exported(const std::string& format) {
        EXPECT_EQ(Qln({"export", "--format", format}), kDone) << Error();
        return Out();
    }
};

TEST_F(QlnExport, AsText) {
    EXPECT_EQ(Exported("text"),
              "==== 3f2504e0: shown, reminder 2026-11-22 09:30, yellow\nBuy milk; 2, or <3> & \"more\"\n```note\n"
              "  caf\u00E9\n\n"
              "==== a0000002: hidden, reminder 2026-11-22 18:00, yellow\n\n# lower\\\n\n"
              "==== b0000003: shown, default\na\x1b\x01\u009D]\n");
}

TEST_F(QlnExport, AsMarkdown) {
    EXPECT_EQ(
        Exported("markdown"),
        "<!-- Notes of Quillo -->\n\n# Notes\n\n"
        "## Buy milk; 2, or \\<3\\> \\& \"more\"\n\n- id: 3f2504e0\n- note: shown, reminder 2026-11-22 09:30, "
        "yellow\n\n"
        "````note\nBuy milk; 2, or <3> & \"more\"\n```note\n  caf\u00E9\n````\n\n"
        "## \\# lower\\\\\n\n- id: a0000002\n- note: hidden, reminder 2026-11-22 18:00, yellow\n\n"
        "```note\n\n# lower\\\n```\n\n"
        "## a\uFFFD\uFFFD\uFFFD\\]\n\n- id: b0000003\n- note: shown, default\n\n```note\na\x1b\x01\u009D]\n```\n");
}

TEST_F(QlnExport, AsAPageFromTheTopOfTheScreenToTheBottom) {
    const std::string page = Exported("html");
    EXPECT_NE(page.find("<article style=\"background: #fefdd7; border-color: #fecf38; color: #000000; width: 100px; "
                        "min-height: 50px\">\n<div>a\uFFFD\uFFFD\uFFFD]</div>\n<p>shown, default</p>"),
              std::string::npos)
        << page;
    EXPECT_NE(
        page.find("background: #fffdd0; border-color: #fecf38; color: #000000; width: 200px; min-height: 160px\">\n"
                  "<div>Buy milk; 2, or &lt;3&gt; &amp; \"more\"\n```note\n  caf\u00E9</div>"),
        std::string::npos)
        << page;
    EXPECT_LT(page.find("shown, default"), page.find("Buy milk"));
    EXPECT_NE(page.find("font-family: \"Tahoma\", sans-serif; font-size: 8pt;"), std::string::npos);
}

TEST_F(QlnExport, AFontNameCannotBreakThePage) {
    host.settings.noteFont.name = u"\"}</style><script>";
    const std::string page = Exported("html");
    EXPECT_EQ(page.find("script"), std::string::npos);
    EXPECT_NE(page.find("font-family: sans-serif;"), std::string::npos);
}

TEST_F(QlnExport, AsACalendarInLocalTime) {
    const std::string calendar = Exported("ics");
    EXPECT_NE(calendar.find("BEGIN:VEVENT\r\nUID:3f2504e0-4f89-41d3-9a0c-0305e82c3301-3f2504e0@quillo\r\n"
                            "DTSTAMP:20260921T141320Z\r\nDTSTART:20261122T093000\r\n"
                            "SUMMARY:Buy milk\\; 2\\, or <3> & \"more\"\r\n"
                            "DESCRIPTION:Buy milk\\; 2\\, or <3> & \"more\"\\n```note\\n  caf\u00E9\r\n"),
              std::string::npos)
        << calendar;
    EXPECT_EQ(calendar.find("UID:b0000003"), std::string::npos) << "it has no reminder";
    EXPECT_EQ(Exported("ics"), calendar) << "the same identifiers every time";
}

TEST_F(QlnExport, LongLinesOfTheCalendarAreFoldedBetweenCharacters) {
    std::string text;
    for (int i = 0; i < 100; ++i) text += "\xE9\x80";
    Put(Notes(kFirstName), Copy(text, "#46348.5"));
    const std::string calendar = Exported("ics");
    std::size_t from = 0;
    for (std::size_t end = calendar.find("\r\n"); end != std::string::npos; end = calendar.find("\r\n", from)) {
        EXPECT_LE(end - from, 75U);
        EXPECT_NE(static_cast<unsigned char>(calendar[from]) & 0xC0U, 0x80U);
        from = end + 2;
    }
    EXPECT_EQ(from, calendar.size());
}

TEST_F(QlnExport, JsonIsImportedUnchanged) {
    const std::string json = Exported("json");
    std::string error;
    const auto notes = NotesFromJson(json, error);
    ASSERT_TRUE(notes) << error;
    ASSERT_EQ(notes->size(), 3U);
    EXPECT_EQ((*notes)[1].text, u"\r\n# lower\\");
    EXPECT_EQ((*notes)[0].reminder->when, DaySerial{46348.395833333336});
    EXPECT_EQ((*notes)[2].appearance, std::nullopt);
    EXPECT_EQ((*notes)[2].position, (NotePosition{0, 100, 1500, 750}));
    EXPECT_EQ((*notes)[2].text, u"a\x1b\x01\x9D]");
}

TEST_F(QlnExport, DamagedJsonIsRefused) {
    const std::string json = Exported("json");
    std::string error;
    for (const auto& [from, to] : std::initializer_list<std::pair<const char*, const char*>>{
             {"quillo-notes", "other"},
             {"\"version\": 1", "\"version\": 2"},
             {"2026-11-22T", "2026-99-22T"},
             {"\"hidden\"\n", "\"gone\"\n"},
             {"#fffdd0", "#fffdd"},
             {"\"state\": \"hidden\",\n        \"largeText\"", "\"state\": \"gone\",\n        \"largeText\""},
             {"1500.0", "1e99"},
             {"\"text\"", "\"words\""},
             {"\"text\": \"", "\"text\": \"\\u0000"}}) {
        std::string damaged = json;
        const std::size_t at = damaged.find(from);
        if (at == std::string::npos) continue;
        damaged.replace(at, std::string_view(from).size(), to);
        EXPECT_FALSE(NotesFromJson(damaged, error)) << from;
    }
    for (const std::size_t size : {std::size_t{0}, json.size() / 2, json.size() - 3}) {
        EXPECT_FALSE(NotesFromJson(json.substr(0, size), error));
    }
}

TEST_F(QlnExport, AFolderGetsAFileForEachNote) {
    const std::string folder = JoinPaths(Root(), "out");
    ASSERT_TRUE(MakeFolder(folder));
    EXPECT_EQ(Qln({"export", "--format", "text", "-o", folder, "--closed"}), kDone);
    EXPECT_EQ(NamesIn(folder), (std::vector<std::string>{"3f2504e0-shown.txt", "8446c71b-closed.txt",
                                                         "a0000002-hidden.txt", "b0000003-shown.txt"}));
    EXPECT_EQ(ReadBytes(JoinPaths(folder, "a0000002-hidden.txt")), "\n# lower\\\n");
    const std::string file = JoinPaths(Root(), "all.json");
    EXPECT_EQ(Qln({"export", "--format", "json", "-o", file}), kDone);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(ReadBytes(file), Exported("json"));
    EXPECT_EQ(Qln({"export", "--format", "pdf"}), kWrongUse);
    EXPECT_EQ(Qln({"export", "--format", "json", "-o", JoinPaths(JoinPaths(Root(), "nowhere"), "a.json")}), kFailed);
}

TEST(QlnMarkdown, OnlyOurOwnHasSeveralNotes) {
    EXPECT_FALSE(TextsFromMarkdown(u"# Notes\n\n```note\na\n```\n"));
    EXPECT_EQ(TextsFromMarkdown(u"<!-- Notes of Quillo -->\n\n```note\n\n```\n```note\na\n\n```\n"),
              (std::vector<std::u16string>{u"", u"a\n"}));
}

}  // namespace
}  // namespace quillo::qln
